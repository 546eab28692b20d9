#include "BankRecords.h"

#include <tlm/foundation/Error.h>

#include <algorithm>
#include <vector>

namespace tallymere::presenter {

using engine::Household;
using tlm::accounting::Account;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankMap;
using tlm::budgeting::BudgetItemTypes;

BankTree::BankTree(Household const& household) : household_(household)
{
    auto const& [settings, rates, items, books] = household.content();
    for (auto const& [number, account] : books.accounts) {
        if (auto const& parent = account.code.parent()) {
            below_.emplace(*parent, number);
        }
    }
    for (auto const& [name, bank] : books.banks) {
        for (auto const& [number, type] : bank.accounts()) {
            listed_.insert(number);
        }
    }
    for (auto const& [identifier, item] : items) {
        if (identifier.type == BudgetItemTypes::Goal) {
            ofGoals_.insert(item.account);
        }
    }
}

BankMap BankTree::banks() const
{
    BankMap banks;
    for (auto const& [name, bank] : household_.content().books.banks) {
        banks.emplace_hint(banks.end(), name, Bank(name, shownAt(bank), bank.isClosed()));
    }
    return banks;
}

std::set<Account> BankTree::accounts() const
{
    auto accounts = household_.accounts();
    for (auto const& [name, bank] : household_.content().books.banks) {
        auto const shown = shownAt(bank);
        for (auto const& [number, type] : shown) {
            auto const& code = household_.content().books.accounts.at(number).code;
            auto const parent = parentAmong(shown, number);
            if (parent != code.parent()) {
                auto const found = std::ranges::lower_bound(accounts, number, {},
                                                            [](auto const& each) { return each.code().number(); });
                Account const moved(found->type(), AccountCode(number, code.name(), parent), found->balance(),
                                    found->isClosed());
                accounts.erase(found);
                accounts.insert(moved);
            }
        }
    }
    return accounts;
}

BankAccounts BankTree::listed(Bank const& told) const
{
    auto accounts = told.accounts();
    if (auto const* const kept = household_.bank(told.name)) {
        auto const shown = shownAt(*kept);
        for (auto const& [number, type] : kept->accounts()) {
            if (parentAmong(shown, number)) {
                accounts.emplace(number, type);
            }
        }
    }
    return accounts;
}

BankAccounts BankTree::shownAt(Bank const& bank) const
{
    auto shown = bank.accounts();
    std::vector<AccountNumber> left;
    std::ranges::transform(shown, std::back_inserter(left), [](auto const& each) { return each.first; });
    while (!left.empty()) {
        auto const above = left.back();
        left.pop_back();
        auto const [first, last] = below_.equal_range(above);
        for (auto each = first; each != last; ++each) {
            auto const& number = each->second;
            if (!listed_.contains(number)) {
                shown.emplace(number, ofGoals_.contains(number) ? BankAccountTypes::Goal : shown.at(above));
                left.push_back(number);
            }
        }
    }
    return shown;
}

/// The view places accounts in the order of their numbers, those right below the bank first, and finds no parent that has
/// not been placed before.
std::optional<AccountNumber> BankTree::parentAmong(BankAccounts const& shown, AccountNumber const& number) const
{
    auto const& accounts = household_.content().books.accounts;
    std::optional<AccountNumber> highest;
    for (auto above = accounts.at(number).code.parent(); above; above = accounts.at(*above).code.parent()) {
        if (!shown.contains(*above)) {
            continue;
        }
        if (*above < number) {
            return above;
        }
        highest = above;
    }
    return highest;
}

AccountCode codeNamed(QString const& name)
{
    try {
        return {name, std::nullopt};
    } catch (tlm::foundation::Error const&) {
        return {}; // the refusal tells why
    }
}
}
