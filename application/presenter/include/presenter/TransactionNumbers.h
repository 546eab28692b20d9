#pragma once

#include <engine/Posting.h>
#include <tlm/accounting/TransactionNumber.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tallymere::presenter {

/// Which posting each number of a view means.
///
/// A number has 16 bits and a posting's identifier 64. A posting is known by its identifier as long as that fits and is free,
/// and by another free number else. A number keeps its meaning until clear(), even when its posting has gone: a view may
/// still show it in another ledger.
class TransactionNumbers
{
public:
    /// All numbers but 0.
    static constexpr std::size_t most_ = 65'535;

    /// \return the number of \a id, which it has from here on
    /// \throws std::length_error when all numbers are taken by others
    tlm::accounting::TransactionNumber take(engine::PostingId const& id);

    /// \return whether \a id has a number
    bool has(engine::PostingId const& id) const { return numbers_.contains(id.value); }

    /// \return the posting that \a number means, none for a number that no posting was given
    std::optional<engine::PostingId> find(tlm::accounting::TransactionNumber const& number) const;

    /// \return how many more postings can be given a number
    std::size_t left() const { return most_ - numbers_.size(); }

    void clear();

private:
    bool isFree(std::size_t number) const { return number != 0 && ids_[number].value == 0; }
    std::size_t freeNumber(engine::PostingId const& id);

    std::unordered_map<std::int64_t, tlm::accounting::TransactionNumber> numbers_;
    std::vector<engine::PostingId> ids_; ///< under their numbers; a default one is free
    std::size_t highest_ = most_;        ///< no number above is free
};
}
