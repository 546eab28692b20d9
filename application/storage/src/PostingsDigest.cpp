#include "PostingsDigest.h"

#include "PostingWords.h"
#include "Scrambled.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <string_view>

namespace tallymere::storage {

namespace {

/// \return the first bytes of \a rest as a number, which are cut off there
std::uint64_t takeNumber(std::string_view& rest)
{
    std::uint64_t number = 0;
    auto const size = std::min(rest.size(), sizeof number);
    std::memcpy(&number, rest.data(), size);
    rest.remove_prefix(size);
    return number;
}
}

void PostingsDigest::add(PostingWords const& words)
{
    std::ranges::transform(sums_, sumsOf(words), sums_.begin(), std::plus());
}

void PostingsDigest::remove(PostingWords const& words)
{
    std::ranges::transform(sums_, sumsOf(words), sums_.begin(), std::minus());
}

void PostingsDigest::add(PostingsDigest const& other)
{
    std::ranges::transform(sums_, other.sums_, sums_.begin(), std::plus());
}

QByteArray PostingsDigest::bytes() const
{
    return {reinterpret_cast<char const*>(sums_.data()), sizeof sums_};
}

PostingsDigest::Sums PostingsDigest::sumsOf(PostingWords const& words)
{
    told_.clear();
    tell(told_, words);
    Sums sums{told_.size(), ~told_.size()};
    for (std::string_view rest = told_; !rest.empty();) {
        auto const number = takeNumber(rest);
        sums[0] = scrambled(sums[0] ^ number);
        sums[1] = scrambled(sums[1] + number);
    }
    return sums;
}
}
