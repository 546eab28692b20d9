#include "internal/TransactionRecords.h"

#include <algorithm>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::Transaction;
using accounting::TransactionNumber;

namespace {

std::vector<TransactionRecords::Index> const none;

int keyOf(TransactionRecords::Number const& number)
{
    constexpr auto noNumber = -1;
    return number ? number->integer() : noNumber;
}

void erase(std::vector<TransactionRecords::Index>& ascending, TransactionRecords::Index index)
{
    auto const place = std::ranges::lower_bound(ascending, index);
    if (place != ascending.end() && *place == index) {
        ascending.erase(place);
    }
}
}

auto TransactionRecords::add(AccountCode const& ledger, Transaction&& txn, std::size_t accounts) -> Index
{
    auto const index = records_.size();
    auto const number = txn.number();
    records_.push_back({std::move(txn), ledger, accounts, number, nullptr});
    entries_[ledger.number()].push_back(index);
    numberedAs(number).push_back(index);
    shown_.push_back(index);
    return index;
}

bool TransactionRecords::isLoaded(AccountCode const& ledger) const
{
    return entries_.contains(ledger.number());
}

auto TransactionRecords::of(AccountCode const& ledger) const -> std::vector<Index> const&
{
    auto const found = entries_.find(ledger.number());
    return found == entries_.end() ? none : found->second;
}

auto TransactionRecords::numbered(Number const& number) const -> std::vector<Index> const&
{
    auto const found = numbered_.find(keyOf(number));
    return found == numbered_.end() ? none : found->second;
}

auto TransactionRecords::numberedAs(Number const& number) -> std::vector<Index>&
{
    return numbered_[keyOf(number)];
}

std::size_t TransactionRecords::rankOf(Index index) const
{
    return static_cast<std::size_t>(std::ranges::lower_bound(shown_, index) - shown_.begin());
}

bool TransactionRecords::setShown(AccountCode const& ledger, bool isShown)
{
    auto hasChanged = false;
    for (auto const index : of(ledger)) {
        auto& record = at(index);
        if (!record.isGone && record.isShown != isShown) {
            record.isShown = isShown;
            hasChanged = true;
            if (isShown) {
                shown_.push_back(index);
            }
        }
    }
    if (hasChanged && isShown) {
        std::ranges::sort(shown_);
    } else if (hasChanged) {
        std::erase_if(shown_, [this](Index index) { return !at(index).isShown; });
    }
    return hasChanged;
}

void TransactionRecords::renumber(Index index, TransactionNumber const& number)
{
    auto& record = at(index);
    if (record.number == number) {
        return;
    }
    erase(numberedAs(record.number), index);
    record.number = number;
    auto& alike = numberedAs(number);
    alike.insert(std::ranges::lower_bound(alike, index), index);
}

void TransactionRecords::remove(Index index)
{
    forget(index);
    auto const ledger = entries_.find(at(index).ledger.number());
    if (ledger != entries_.end()) {
        erase(ledger->second, index);
        if (ledger->second.empty()) {
            entries_.erase(ledger);
        }
    }
}

void TransactionRecords::forget(Index index)
{
    auto& record = at(index);
    record.isGone = true;
    record.transaction = Transaction();
    erase(numberedAs(record.number), index);
    erase(shown_, index);
}
}
