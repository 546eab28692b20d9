#include "internal/BudgetedMoneyCreator.h"

#include "internal/BudgetedDebtEntryWidget.h"
#include "internal/BudgetedGoalEntryWidget.h"

#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using banking::BankName;
using budgeting::BudgetedMoney;
using fiscora::Currency;
using foundation::QtPtr;
using navigation::BudgetBankAccount;
using navigation::CurrencyDisplayOptions;

BudgetedMoneyCreator::~BudgetedMoneyCreator() = default;

std::unique_ptr<BudgetedMoneyEntryWidget> BudgetedMoneyCreator::makeEntryWidget(std::set<Currency> const& usable,
                                                                                CurrencyDisplayOptions const& displayAs,
                                                                                QtPtr<QWidget> parent)
{
    return std::make_unique<BudgetedMoneyEntryWidget>(usable, displayAs, parent);
}

DebtCreator::DebtCreator(std::set<BankName> banks, std::set<AccountCode> codes, std::set<BudgetBankAccount> accounts)
    : known_(std::move(accounts), std::move(codes)), banks_(std::move(banks))
{}

std::unique_ptr<BudgetedMoneyEntryWidget> DebtCreator::makeEntryWidget(std::set<Currency> const& usable,
                                                                       CurrencyDisplayOptions const& displayAs,
                                                                       QtPtr<QWidget> parent)
{
    return std::make_unique<BudgetedDebtEntryWidget>(banks_, known_, usable, displayAs, parent);
}

std::unique_ptr<BudgetedMoney> DebtCreator::makeBudgetedMoney(BudgetedMoneyEntryWidget const& entry)
{
    auto const& debt = dynamic_cast<BudgetedDebtEntryWidget const&>(entry);
    return make(debt, debt.borrowed(), debt.interest());
}

GoalCreator::GoalCreator(std::set<BankName> banks, std::set<BudgetBankAccount> accounts, std::set<AccountCode> codes,
                         fiscora::Money const& wagesTotal)
    : known_(std::move(accounts), std::move(codes)), banks_(std::move(banks)), wagesTotal_(wagesTotal)
{}

std::unique_ptr<BudgetedMoneyEntryWidget> GoalCreator::makeEntryWidget(std::set<Currency> const& usable,
                                                                       CurrencyDisplayOptions const& displayAs,
                                                                       QtPtr<QWidget> parent)
{
    return std::make_unique<BudgetedGoalEntryWidget>(banks_, wagesTotal_, known_, usable, displayAs, parent);
}

std::unique_ptr<BudgetedMoney> GoalCreator::makeBudgetedMoney(BudgetedMoneyEntryWidget const& entry)
{
    auto const& goal = dynamic_cast<BudgetedGoalEntryWidget const&>(entry);
    return make(goal, goal.finalTotal());
}
}
