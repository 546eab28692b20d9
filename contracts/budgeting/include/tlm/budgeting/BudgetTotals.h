#pragma once

#include <fiscora/Money.h>

namespace tlm::budgeting {

/// What the budget items of each type come to per month, in the preferred currency.
struct BudgetTotals
{
    fiscora::Money wages;
    fiscora::Money goals;
    fiscora::Money bills;
    fiscora::Money debts;
    fiscora::Money nontracks;

    friend bool operator==(BudgetTotals const&, BudgetTotals const&) = default;
};
}
