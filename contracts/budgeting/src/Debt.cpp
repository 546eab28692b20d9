#include <tlm/budgeting/Debt.h>

namespace tlm::budgeting {

Debt::Debt(BudgetSource const& source, fiscora::Money const& amount, EventFrequency const& period,
           QDate const& nextOccurOn, fiscora::Money const& borrowed, foundation::Percentage const& interest)
    : BudgetedMoneyOf(source, amount, period, nextOccurOn), borrowed_(borrowed), interest_(interest)
{}

std::strong_ordering Debt::compareTerms(BudgetedMoney const& other) const
{
    auto const& debt = static_cast<Debt const&>(other);
    auto const byBorrowed = borrowed_ <=> debt.borrowed_;
    return byBorrowed != 0 ? byBorrowed : interest_ <=> debt.interest_;
}
}
