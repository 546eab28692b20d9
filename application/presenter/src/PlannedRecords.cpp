#include "PlannedRecords.h"

namespace tallymere::presenter {

using engine::PlannedItem;
using engine::PlannedItems;
using tlm::budgeting::BillMap;
using tlm::budgeting::BudgetedMoney;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::Debt;
using tlm::budgeting::DebtMap;
using tlm::budgeting::Goal;
using tlm::budgeting::GoalMap;
using tlm::budgeting::NontrackMap;
using tlm::budgeting::WageMap;
using tlm::foundation::Percentage;

namespace {

/// \param terms what a record of this kind has beside the values that every item has
template <typename Map, typename... Terms>
Map mapOf(PlannedItems const& items, BudgetItemTypes type, Terms const&... terms)
{
    Map records;
    for (auto each = items.lower_bound({type, {}}); each != items.end() && each->first.type == type; ++each) {
        auto const& [identifier, item] = *each;
        typename Map::mapped_type record(identifier.source, item.amount, item.period, item.nextOccurOn, terms(item)...);
        records.emplace_hint(records.end(), identifier.source, std::move(record));
    }
    return records;
}
}

BillMap bills(PlannedItems const& items)
{
    return mapOf<BillMap>(items, BudgetItemTypes::Bill);
}

DebtMap debts(PlannedItems const& items)
{
    return mapOf<DebtMap>(
        items, BudgetItemTypes::Debt, [](PlannedItem const& item) { return item.debt.value().borrowed; },
        [](PlannedItem const& item) { return item.debt.value().interest; });
}

GoalMap goals(PlannedItems const& items)
{
    return mapOf<GoalMap>(items, BudgetItemTypes::Goal, [](PlannedItem const& item) { return item.goalTotal.value(); });
}

NontrackMap nontracks(PlannedItems const& items)
{
    return mapOf<NontrackMap>(items, BudgetItemTypes::Nontrack);
}

WageMap wages(PlannedItems const& items)
{
    return mapOf<WageMap>(items, BudgetItemTypes::Wage);
}

namespace {

/// Forms tell each rate with the decimals of the finest one, and show as many as they are given: what says nothing goes.
Percentage withoutIdleDecimals(Percentage const& rate)
{
    constexpr unsigned char least = 2;
    for (auto decimals = least; decimals < rate.precision(); ++decimals) {
        if (QString::number(rate.rate(), 'f', decimals).toDouble() == rate.rate()) {
            return {rate.rate(), decimals};
        }
    }
    return rate;
}
}

PlannedItem planned(BudgetItemTypes type, BudgetedMoney const& record)
{
    PlannedItem item;
    item.identifier = {type, record.source()};
    item.amount = record.amount();
    item.period = record.period();
    item.nextOccurOn = record.nextOccurOn();
    if (type == BudgetItemTypes::Debt) {
        auto const& debt = dynamic_cast<Debt const&>(record);
        item.debt = {debt.borrowed(), withoutIdleDecimals(debt.interest())};
    } else if (type == BudgetItemTypes::Goal) {
        item.goalTotal = dynamic_cast<Goal const&>(record).final();
    }
    return item;
}
}
