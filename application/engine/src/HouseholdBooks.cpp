#include "BankPlaces.h"
#include "Chart.h"
#include "Plan.h"
#include "engine/Household.h"

using fiscora::Money;
using tlm::accounting::Account;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::AccountNumberBankType;
using tlm::banking::Bank;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::navigation::AllowSubAccounts;
using tlm::navigation::BudgetBankAccount;

namespace tallymere::engine {

Money Household::balance(AccountNumber const& number) const
{
    return chart_->balance(number);
}

std::set<Account> Household::accounts() const
{
    std::set<Account> found;
    for (auto const& [number, account] : content_.books.accounts) {
        found.emplace_hint(found.end(), account.type, account.code, chart_->balance(number), account.isClosed);
    }
    return found;
}

std::set<AccountCode> Household::codes(AccountTypes type) const
{
    std::set<AccountCode> found;
    for (auto const& [number, account] : content_.books.accounts) {
        if (account.type == type) {
            found.insert(found.end(), account.code);
        }
    }
    return found;
}

Bank const* Household::bank(BankName const& name) const
{
    return chart_->find(name);
}

std::set<BankName> Household::openBanks() const
{
    std::set<BankName> found;
    for (auto const& [name, bank] : content_.books.banks) {
        if (!bank.isClosed()) {
            found.insert(found.end(), name);
        }
    }
    return found;
}

std::set<AccountNumberBankType> Household::bankAccounts(BankName const& bank, AllowSubAccounts shouldAllow) const
{
    auto const* const known = chart_->find(bank);
    return known == nullptr ? std::set<AccountNumberBankType>()
                            : BankPlaces(*chart_, *plan_).openAccounts(*known, shouldAllow);
}

std::set<BudgetBankAccount> Household::keptAt(BudgetItemTypes type) const
{
    BankPlaces const places(*chart_, *plan_);
    std::set<BudgetBankAccount> found;
    for (auto const& [identifier, item] : content_.items) {
        if (auto const place = identifier.type == type ? places.keptAt(item) : std::nullopt) {
            found.insert({identifier.source, *place});
        }
    }
    return found;
}
}
