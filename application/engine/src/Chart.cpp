#include "Chart.h"

using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankName;

namespace tallymere::engine {

namespace {

/// \return the value under \a key, none when there is none
template <typename Map, typename Key>
typename Map::mapped_type const* valueOf(Map const& map, Key const& key)
{
    auto const found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}
}

Chart::Chart(Books& books) : books_(books)
{
    for (auto const& [number, account] : books_.accounts) {
        if (auto const& parent = account.code.parent()) {
            index_.subAccounts.insert({*parent, number});
        }
        if (account.purpose == AccountPurposes::OpeningBalances) {
            index_.openings.emplace(account.currency, number);
        }
    }
    for (auto const& [name, bank] : books_.banks) {
        for (auto const& [number, type] : bank.accounts()) {
            index_.banks.emplace(number, name);
        }
    }
}

BookAccount const* Chart::find(AccountNumber const& number) const
{
    return valueOf(books_.accounts, number);
}

Bank const* Chart::find(BankName const& name) const
{
    return valueOf(books_.banks, name);
}

Bank const* Chart::bankOf(AccountNumber const& number) const
{
    auto const* const name = valueOf(index_.banks, number);
    return name == nullptr ? nullptr : find(*name);
}

Turnover const* Chart::turnoverOf(AccountNumber const& number) const
{
    return valueOf(books_.turnovers, number);
}

std::vector<AccountNumber> Chart::subAccounts(AccountNumber const& number) const
{
    std::vector<AccountNumber> found;
    auto const& all = index_.subAccounts;
    for (auto next = all.lower_bound({number, AccountNumber()}); next != all.end() && next->parent == number; ++next) {
        found.push_back(next->number);
    }
    return found;
}
}
