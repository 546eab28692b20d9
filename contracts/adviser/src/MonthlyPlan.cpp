#include "MonthlyPlan.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace tlm::adviser {

namespace {

using fiscora::Currency;
using fiscora::Money;

Currency commonCurrency(std::initializer_list<Money> monies)
{
    auto common = Currency::XXX;
    for (auto const& money : monies) {
        if (money.code() == Currency::XXX) {
            continue;
        }
        if (common != Currency::XXX && common != money.code()) {
            throw std::invalid_argument("A budget is judged in one currency, not in " + toStdString(common) + " and " +
                                        toStdString(money.code()) + ".");
        }
        common = money.code();
    }
    return common;
}

long long amountOf(Money const& money)
{
    return money.code() == Currency::XXX ? 0 : money.amount();
}

long long subtract(long long from, long long amount)
{
    long long difference = 0;
    if (__builtin_sub_overflow(from, amount, &difference)) {
        // One above the least, so that it can be negated.
        return amount > 0 ? -std::numeric_limits<long long>::max() : std::numeric_limits<long long>::max();
    }
    return difference;
}

double number(long long amount)
{
    return static_cast<double>(amount);
}
}

MonthlyPlan::MonthlyPlan(budgeting::BudgetTotals const& perMonth, Money const& stillOwed)
    : currency_(commonCurrency(
          {perMonth.wages, perMonth.goals, perMonth.bills, perMonth.debts, perMonth.nontracks, stillOwed})),
      wages_(amountOf(perMonth.wages)),
      goals_(amountOf(perMonth.goals)),
      bills_(amountOf(perMonth.bills)),
      debts_(amountOf(perMonth.debts)),
      nontracks_(amountOf(perMonth.nontracks)),
      stillOwed_(amountOf(stillOwed)),
      measure_(std::max(number(wages_), std::pow(10.0, fiscora::storedDigits(currency_))))
{}

long long MonthlyPlan::unplanned() const noexcept
{
    return subtract(subtract(subtract(subtract(wages_, bills_), debts_), nontracks_), goals_);
}

double MonthlyPlan::shareOf(long long amount) const noexcept
{
    return number(amount) / measure_;
}

double MonthlyPlan::spending() const noexcept
{
    return number(bills_) + number(debts_) + number(nontracks_);
}

double MonthlyPlan::spendingShare() const noexcept
{
    return spending() / measure_;
}

double MonthlyPlan::leftShare() const noexcept
{
    return (number(wages_) - spending()) / measure_;
}

double MonthlyPlan::coveredGoalsShare() const noexcept
{
    return std::max(0.0, std::min(shareOf(goals_), leftShare()));
}

double MonthlyPlan::plannedShare() const noexcept
{
    return (spending() + number(goals_)) / measure_;
}

double MonthlyPlan::overrunShare() const noexcept
{
    return std::max(0.0, (spending() + number(goals_) - number(wages_)) / measure_);
}

double MonthlyPlan::yearsOwed() const noexcept
{
    return shareOf(stillOwed_) / 12.0;
}
}
