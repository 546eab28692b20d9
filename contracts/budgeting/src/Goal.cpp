#include <tlm/budgeting/Goal.h>

namespace tlm::budgeting {

Goal::Goal(BudgetSource const& source, fiscora::Money const& amount, EventFrequency const& period,
           QDate const& nextOccurOn, fiscora::Money const& final)
    : BudgetedMoneyOf(source, amount, period, nextOccurOn), final_(final)
{}

std::strong_ordering Goal::compareTerms(BudgetedMoney const& other) const
{
    return final_ <=> static_cast<Goal const&>(other).final_;
}
}
