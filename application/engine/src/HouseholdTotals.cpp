#include "Refuse.h"
#include "engine/Household.h"

#include <engine/Recurrence.h>
#include <fiscora/Accumulate.h>
#include <tlm/adviser/Assess.h>
#include <tlm/budgeting/Accumulate.h>

#include <QDebug>

#include <algorithm>
#include <map>
#include <tuple>

using fiscora::Currency;
using fiscora::Money;
using tlm::adviser::BudgetHealth;
using tlm::budgeting::BudgetItemAmountDue;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetTotals;
using tlm::budgeting::EventFrequency;

namespace tallymere::engine {

namespace {

using RunningTotals = std::map<Currency, Money>;

void include(RunningTotals& totals, Money const& amount)
{
    totals.try_emplace(amount.code(), amount.code()).first->second += amount;
}

Money total(RunningTotals const& totals, Currency preferred)
{
    return fiscora::math::detail::accumulateRunningTotals(preferred, totals);
}

/// \return the amount of one day, which has several hours
Money amountOfOccurrence(PlannedItem const& item)
{
    return item.period == EventFrequency::Hourly
               ? counted([&] { return accumulateOver(EventFrequency::Daily, item.amount, EventFrequency::Hourly); })
               : item.amount;
}

bool isDueBefore(BudgetItemAmountDue const& left, BudgetItemAmountDue const& right)
{
    return std::tie(left.dueOn, left.type, left.source) < std::tie(right.dueOn, right.type, right.source);
}
}

BudgetTotals Household::monthlyTotals() const
{
    std::map<BudgetItemTypes, RunningTotals> totals;
    return counted([&] {
        for (auto const& [identifier, item] : content_.items) {
            if (item.period != EventFrequency::None) {
                include(totals[identifier.type], accumulateOver(EventFrequency::Monthly, item.amount, item.period));
            }
        }
        auto const of = [&](BudgetItemTypes type) { return total(totals[type], content_.settings.preferred); };
        return BudgetTotals{of(BudgetItemTypes::Wage), of(BudgetItemTypes::Goal), of(BudgetItemTypes::Bill),
                            of(BudgetItemTypes::Debt), of(BudgetItemTypes::Nontrack)};
    });
}

std::vector<BudgetItemAmountDue> Household::due(QDate const& today) const
{
    auto const last = today.addDays(content_.settings.dueWithin.count());
    auto const share = mostDue_ / std::max(content_.items.size(), std::size_t{1});
    auto const most = std::clamp(share, std::size_t{1}, mostDueOfOneItem_);
    std::vector<BudgetItemAmountDue> found;
    for (auto const& [identifier, item] : content_.items) {
        Recurrence const recurrence(item.period, item.anchoredOn, content_.settings.workingWeek);
        auto const days = recurrence.between(item.nextOccurOn, last, most);
        if (days.size() == most) {
            qWarning() << "Of a long neglected budget item, only its first" << most << "are due:" << identifier;
        }
        for (auto const& day : days) {
            found.push_back({{identifier, day}, amountOfOccurrence(item)});
        }
    }
    std::sort(found.begin(), found.end(), isDueBefore);
    return found;
}

BudgetHealth Household::health() const
{
    auto const stillOwed = counted([&] {
        RunningTotals borrowed;
        for (auto const& [identifier, item] : content_.items) {
            if (item.debt) {
                include(borrowed, item.debt->borrowed);
            }
        }
        return total(borrowed, content_.settings.preferred);
    });
    return tlm::adviser::assess(monthlyTotals(), stillOwed);
}
}
