#include "Advice.h"
#include "MonthlyPlan.h"

#include <tlm/adviser/Assess.h>

#include <algorithm>

namespace tlm::adviser {

namespace {

// resources/handbook/health.md tells these figures to the household.
constexpr auto healthyFrom = 60.0;
constexpr auto cautiousFrom = 30.0;

double pointsForLeft(MonthlyPlan const& plan)
{
    return 100.0 * std::clamp(plan.leftShare(), 0.0, 0.50);
}

double pointsForGoals(MonthlyPlan const& plan)
{
    return 100.0 * std::clamp(plan.coveredGoalsShare(), 0.0, 0.20);
}

/// All points up to a tenth of wages, none from four tenths.
double pointsForPayments(MonthlyPlan const& plan)
{
    return 15.0 - 50.0 * std::clamp(plan.shareOf(plan.debts()) - 0.10, 0.0, 0.30);
}

/// All points with nothing owed, none from three years of wages.
double pointsForOwed(MonthlyPlan const& plan)
{
    return 15.0 - 5.0 * std::clamp(plan.yearsOwed(), 0.0, 3.0);
}

double percentOf(MonthlyPlan const& plan)
{
    auto const points = pointsForLeft(plan) + pointsForGoals(plan) + pointsForPayments(plan) + pointsForOwed(plan);
    return std::clamp(points - 1000.0 * plan.overrunShare(), 0.0, 100.0);
}

HealthStatuses statusOf(double percent)
{
    if (percent >= healthyFrom) {
        return HealthStatuses::Healthy;
    }
    return percent >= cautiousFrom ? HealthStatuses::Cautious : HealthStatuses::Unhealthy;
}
}

BudgetHealth assess(budgeting::BudgetTotals const& perMonth, fiscora::Money const& stillOwed)
{
    MonthlyPlan const plan(perMonth, stillOwed);
    auto const percent = percentOf(plan);
    return {statusOf(percent), percent, adviceOn(plan)};
}
}
