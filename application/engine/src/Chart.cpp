#include "Chart.h"

#include "BookRules.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

using fiscora::Money;
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
        index_.list(account);
    }
    for (auto const& [name, bank] : books_.banks) {
        index_.list(bank);
    }
}

BookAccount const* Chart::find(AccountNumber const& number) const
{
    return valueOf(books_.accounts, number);
}

BookAccount const& Chart::account(AccountNumber const& number) const
{
    auto const* const found = find(number);
    if (found == nullptr) {
        rules::refuseUnknown(number);
    }
    return *found;
}

Money Chart::balance(AccountNumber const& number) const
{
    auto const& known = account(number);
    auto const* const turnover = turnoverOf(number);
    if (turnover == nullptr) {
        return Money(known.currency);
    }
    return rules::isDebitType(known.type) ? turnover->debited : -turnover->debited;
}

std::vector<AccountNumber> Chart::called(QString const& name) const
{
    auto const key = rules::comparable(name);
    std::vector<AccountNumber> found;
    for (auto next = index_.names.lower_bound({key, AccountNumber()}); next != index_.names.end() && next->first == key;
         ++next) {
        found.push_back(next->second);
    }
    return found;
}

Bank const* Chart::find(BankName const& name) const
{
    auto const* const kept = valueOf(index_.bankNames, rules::comparable(name.institution()));
    return kept == nullptr ? nullptr : valueOf(books_.banks, *kept);
}

Bank const* Chart::bankOf(AccountNumber const& number) const
{
    auto const* const name = valueOf(index_.banks, number);
    return name == nullptr ? nullptr : valueOf(books_.banks, *name);
}

Turnover const* Chart::turnoverOf(AccountNumber const& number) const
{
    return valueOf(books_.turnovers, number);
}

std::vector<AccountNumber> Chart::subAccounts(AccountNumber const& number) const
{
    return engine::subAccounts(index_, number);
}

bool Chart::isAtOrBelow(AccountNumber const& number, AccountNumber const& above) const
{
    for (auto const* place = find(number); place != nullptr;) {
        if (place->code == above) {
            return true;
        }
        auto const& parent = place->code.parent();
        place = parent ? find(*parent) : nullptr;
    }
    return false;
}
}
