#include <presenter/TransactionNumbers.h>

#include <stdexcept>

namespace tallymere::presenter {

using engine::PostingId;
using tlm::accounting::TransactionNumber;

TransactionNumber TransactionNumbers::take(PostingId const& id)
{
    if (auto const known = numbers_.find(id.value); known != numbers_.end()) {
        return known->second;
    }
    auto const number = freeNumber(id);
    TransactionNumber const taken(static_cast<unsigned short>(number));
    numbers_.emplace(id.value, taken);
    ids_[number] = id;
    return taken;
}

std::optional<PostingId> TransactionNumbers::find(TransactionNumber const& number) const
{
    if (ids_.empty() || number == TransactionNumber() || isFree(number.integer())) {
        return std::nullopt;
    }
    return ids_[number.integer()];
}

void TransactionNumbers::clear()
{
    *this = TransactionNumbers();
}

/// The highest free ones come first, since identifiers count from below and may still want their own.
std::size_t TransactionNumbers::freeNumber(PostingId const& id)
{
    if (left() == 0) {
        throw std::length_error("No transaction number is left.");
    }
    ids_.resize(most_ + 1);
    if (id.value > 0 && id.value <= std::int64_t(most_) && isFree(static_cast<std::size_t>(id.value))) {
        return static_cast<std::size_t>(id.value);
    }
    while (!isFree(highest_)) {
        --highest_;
    }
    return highest_;
}
}
