#include "BookIndex.h"

#include "BookRules.h"

namespace tallymere::engine {

namespace {

template <typename Map>
void takeMap(Map& kept, Map const& dropped, Map& added) noexcept
{
    for (auto const& [key, value] : dropped) {
        kept.erase(key);
    }
    kept.merge(added);
}

template <typename Set>
void takeSet(Set& kept, Set const& dropped, Set& added) noexcept
{
    for (auto const& value : dropped) {
        kept.erase(value);
    }
    kept.merge(added);
}
}

void BookIndex::list(BookAccount const& account)
{
    auto const& number = account.code.number();
    if (auto const& parent = account.code.parent()) {
        subAccounts.insert({*parent, number});
    }
    names.emplace(rules::comparable(account.code.name()), number);
    if (account.purpose != AccountPurposes::Household) {
        purposes.emplace(std::pair(account.purpose, account.currency), number);
    }
}

void BookIndex::list(tlm::banking::Bank const& bank)
{
    bankNames.emplace(rules::comparable(bank.name.institution()), bank.name);
    for (auto const& [number, type] : bank.accounts()) {
        banks.emplace(number, bank.name);
    }
}

void BookIndex::take(BookIndex const& dropped, BookIndex& added) noexcept
{
    takeSet(subAccounts, dropped.subAccounts, added.subAccounts);
    takeSet(names, dropped.names, added.names);
    takeMap(purposes, dropped.purposes, added.purposes);
    takeMap(banks, dropped.banks, added.banks);
    takeMap(bankNames, dropped.bankNames, added.bankNames);
}

std::vector<tlm::accounting::AccountNumber> subAccounts(BookIndex const& index,
                                                        tlm::accounting::AccountNumber const& number)
{
    std::vector<tlm::accounting::AccountNumber> found;
    auto const& all = index.subAccounts;
    for (auto next = all.lower_bound({number, {}}); next != all.end() && next->parent == number; ++next) {
        found.push_back(next->number);
    }
    return found;
}
}
