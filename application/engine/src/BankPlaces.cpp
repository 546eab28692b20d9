#include "BankPlaces.h"

#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <vector>

using tlm::accounting::AccountNumber;
using tlm::banking::AccountNumberBankType;
using tlm::banking::Bank;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::navigation::AllowSubAccounts;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("BankPlaces", text);
}
}

std::optional<BankAccount> BankPlaces::find(AccountNumber const& number) const
{
    auto isOfGoal = false;
    for (auto const* account = chart_.find(number); account != nullptr;) {
        auto const& place = account->code.number();
        isOfGoal = isOfGoal || plan_.isOfGoal(place);
        if (auto const* const bank = chart_.bankOf(place)) {
            return BankAccount{bank->name, number, isOfGoal ? BankAccountTypes::Goal : bank->accounts().at(place)};
        }
        auto const& parent = account->code.parent();
        account = parent ? chart_.find(*parent) : nullptr;
    }
    return std::nullopt;
}

std::set<AccountNumberBankType> BankPlaces::accounts(Bank const& bank, AllowSubAccounts shouldAllow) const
{
    std::vector<AccountNumberBankType> left;
    for (auto const& [number, type] : bank.accounts()) {
        left.push_back({number, kindBelow(number, type)});
    }
    std::set<AccountNumberBankType> found;
    while (!left.empty()) {
        auto const account = left.back();
        left.pop_back();
        found.insert(account);
        if (shouldAllow == AllowSubAccounts::No) {
            continue;
        }
        for (auto const& below : chart_.subAccounts(account.number)) {
            if (chart_.bankOf(below) == nullptr) { // what a bank lists is told with its own kind
                left.push_back({below, kindBelow(below, account.type)});
            }
        }
    }
    return found;
}

std::set<AccountNumberBankType> BankPlaces::openAccounts(Bank const& bank, AllowSubAccounts shouldAllow) const
{
    auto found = accounts(bank, shouldAllow);
    std::erase_if(found, [&](auto const& account) { return chart_.account(account.number).isClosed; });
    return found;
}

std::optional<BankAccount> BankPlaces::keptAt(PlannedItem const& item) const
{
    if (item.identifier.type == BudgetItemTypes::Debt) {
        return find(item.account);
    }
    auto const& parent = chart_.find(item.account)->code.parent();
    return item.identifier.type == BudgetItemTypes::Goal && parent ? find(*parent) : std::nullopt;
}

Bank const& BankPlaces::openBank(BankName const& name, QString const& forWhat) const
{
    if (name.isEmpty()) {
        refuse(tr("No bank is chosen for %1. Choose one.").arg(forWhat));
    }
    auto const* const bank = chart_.find(name);
    if (bank == nullptr) {
        refuse(tr("There is no bank called %1. Choose another bank for %2.").arg(name.institution(), forWhat));
    }
    if (bank->isClosed()) {
        refuse(tr("%1 is closed. Choose another bank for %2.").arg(name.institution(), forWhat));
    }
    return *bank;
}

void BankPlaces::checkStorage(PlannedItem const& goal, BankAccount const& place) const
{
    auto const& goalName = goal.identifier.source.name();
    auto const& bank = openBank(place.bank, goalName).name;
    if (place.number == AccountNumber()) {
        refuse(tr("No account is chosen for %1. Choose the account at %2 that holds its money.")
                   .arg(goalName, bank.institution()));
    }
    auto const found = find(place.number);
    if (!found || found->bank != bank) {
        refuse(tr("%1 has no account %2. Choose another account for %3.")
                   .arg(bank.institution(), presentationText(place.number), goalName));
    }
    auto const& account = *chart_.find(place.number);
    auto const& name = account.code.name();
    if (found->type == BankAccountTypes::Goal && plan_.isOfGoal(place.number)) {
        refuse(tr("%1 is the account of a goal itself. Choose the account in which that goal is stored for %2.")
                   .arg(name, goalName));
    }
    if (account.type != tlm::accounting::AccountTypes::Asset) {
        refuse(tr("%1 is an account of what is owed, so it can't hold the money of %2. Choose a checking or savings "
                  "account.")
                   .arg(name, goalName));
    }
    if (account.isClosed) {
        refuse(tr("%1 is closed. Choose another account for %2.").arg(name, goalName));
    }
}

BankAccountTypes BankPlaces::kindBelow(AccountNumber const& number, BankAccountTypes above) const
{
    return plan_.isOfGoal(number) ? BankAccountTypes::Goal : above;
}
}
