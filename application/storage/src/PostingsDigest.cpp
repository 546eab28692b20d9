#include "PostingsDigest.h"

#include "PostingWords.h"
#include "Scrambled.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string_view>

namespace tallymere::storage {

namespace {

using Sums = std::array<std::uint64_t, 2>;

/// Mixes numbers and texts in their order. Each is scrambled by itself, which a processor does for several at once.
class Mixture
{
public:
    void add(std::int64_t number) { addWord(static_cast<std::uint64_t>(number)); }

    /// Adds the length first, so that what follows can't be taken for a part of \a text.
    void add(std::string_view text)
    {
        addWord(text.size());
        for (; text.size() > sizeof(std::uint64_t); text.remove_prefix(sizeof(std::uint64_t))) {
            addWord(start<std::uint64_t>(text));
        }
        addWord(rest(text));
    }

    Sums sums() const { return {scrambled(plain_), scrambled(weighted_)}; }

private:
    template <typename Word>
    static Word start(std::string_view text)
    {
        Word word = 0;
        std::memcpy(&word, text.data(), sizeof word);
        return word;
    }

    /// \return another number for each text of one length, of 8 bytes at most
    static std::uint64_t rest(std::string_view text)
    {
        constexpr auto half = sizeof(std::uint32_t);
        if (text.size() >= half) {
            return (std::uint64_t{start<std::uint32_t>(text)} << 32) |
                   start<std::uint32_t>(text.substr(text.size() - half));
        }
        std::uint64_t word = 0;
        for (auto const byte : text) {
            word = (word << 8) | static_cast<unsigned char>(byte);
        }
        return word;
    }

    void addWord(std::uint64_t word)
    {
        constexpr std::uint64_t step = 0x9E37'79B9'7F4A'7C15; // odd, so that each place tells a word otherwise
        place_ += step;
        auto const mixed = scrambled(word + place_);
        plain_ += mixed;
        weighted_ += mixed * (place_ | 1);
    }

    std::uint64_t place_ = 0;
    std::uint64_t plain_ = 0;
    std::uint64_t weighted_ = 0;
};

Sums sumsOf(PostingWords const& words)
{
    Mixture mixture;
    mixture.add(words.day);
    mixture.add(words.debiting);
    mixture.add(words.crediting);
    mixture.add(words.amount);
    mixture.add(words.currency);
    mixture.add(words.description);
    mixture.add(words.status);
    mixture.add(words.madeFrom);
    return mixture.sums();
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
}
