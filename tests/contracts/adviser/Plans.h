#pragma once

#include <tlm/adviser/Assess.h>

namespace tlm::adviser {

/// What a test plans, in cents a month.
struct Cents
{
    long long wages = 0;
    long long goals = 0;
    long long bills = 0;
    long long debts = 0;
    long long nontracks = 0;
    long long owed = 0;
};

inline fiscora::Money dollars(long long cents)
{
    return fiscora::Money::fromAmount(fiscora::Currency::USD, cents * 100);
}

inline BudgetHealth assess(Cents const& plan)
{
    return assess(
        {dollars(plan.wages), dollars(plan.goals), dollars(plan.bills), dollars(plan.debts), dollars(plan.nontracks)},
        dollars(plan.owed));
}

/// The household of the handbook's example.
inline constexpr Cents millers{400000, 60000, 172000, 36000, 80000, 1200000};
}
