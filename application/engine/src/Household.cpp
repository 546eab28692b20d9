#include "engine/Household.h"

#include "HouseholdRules.h"

#include <engine/Recurrence.h>
#include <fiscora/Accumulate.h>
#include <fiscora/Conversions.h>
#include <tlm/adviser/Assess.h>
#include <tlm/budgeting/Accumulate.h>
#include <tlm/foundation/Error.h>

#include <QCoreApplication>
#include <QDebug>

#include <algorithm>
#include <stdexcept>
#include <tuple>
#include <utility>

using fiscora::Currency;
using fiscora::FloatingPoint;
using fiscora::Money;
using tlm::adviser::BudgetHealth;
using tlm::budgeting::BudgetItemAmountDue;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetTotals;
using tlm::budgeting::EventFrequency;
using tlm::conversion::ConversionMap;
using tlm::foundation::Error;

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

/// Runs \a sum, which counts money.
/// \throws foundation::Error instead of std::overflow_error
template <typename Sum>
auto counted(Sum sum)
{
    try {
        return sum();
    } catch (std::overflow_error const& overflow) {
        throw Error(QCoreApplication::translate("Household", "The budget's amounts add up to more than can be counted. "
                                                             "Plan smaller ones, or correct the exchange rates."),
                    overflow);
    }
}

/// One unit of a currency is worth itself: the table of rates is whole only with its diagonal.
ConversionMap withDiagonal(ConversionMap rates, std::set<Currency> const& usable)
{
    for (auto const code : usable) {
        rates.updateConversion(code, code, FloatingPoint(1.0), {});
    }
    return rates;
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

Household::Household(BudgetContent content, Store& store) : content_(std::move(content)), store_(store)
{
    rules::check(content_);
    countInProcess();
}

BudgetContent const& Household::content() const
{
    return content_;
}

void Household::add(PlannedItem item)
{
    item.identifier = rules::tidied(item.identifier);
    item.anchoredOn = item.nextOccurOn;
    check(item, content_.items.end());
    PlannedItems addition{{item.identifier, item}}; // made first: nothing can fail any more once the item is stored

    store_.transact([&] { store_.add(item); });
    content_.items.merge(addition);
}

void Household::change(BudgetItemIdentifier const& original, PlannedItem item)
{
    auto const place = planned(original);
    auto const& before = place->second;
    auto const keepsRhythm = item.period == before.period && item.nextOccurOn == before.nextOccurOn;
    item.identifier = rules::tidied(item.identifier);
    item.anchoredOn = keepsRhythm ? before.anchoredOn : item.nextOccurOn;
    check(item, place);
    PlannedItems changed{{item.identifier, item}};

    store_.transact([&] { store_.change(place->first, item); });
    content_.items.erase(place);
    content_.items.merge(changed);
}

void Household::remove(BudgetItemIdentifier const& identifier)
{
    auto const place = planned(identifier);

    store_.transact([&] { store_.remove(place->first); });
    content_.items.erase(place);
}

void Household::configure(Settings settings)
{
    rules::check(settings, content_.items);
    auto rates = withDiagonal(content_.rates, settings.usable);

    store_.transact([&] {
        store_.write(settings);
        store_.write(rates);
    });
    content_.settings = std::move(settings);
    content_.rates = std::move(rates);
    countInProcess();
}

void Household::setRates(ConversionMap rates)
{
    rules::check(rates);
    rates = withDiagonal(std::move(rates), content_.settings.usable);

    store_.transact([&] { store_.write(rates); });
    content_.rates = std::move(rates);
    countInProcess();
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
    std::vector<BudgetItemAmountDue> found;
    for (auto const& [identifier, item] : content_.items) {
        Recurrence const recurrence(item.period, item.anchoredOn, content_.settings.workingWeek);
        auto const days = recurrence.between(item.nextOccurOn, last, mostDueOfOneItem_);
        if (days.size() == mostDueOfOneItem_) {
            qWarning() << "Of a long neglected budget item, only its first" << mostDueOfOneItem_
                       << "are due:" << identifier;
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

/// \return the item of that name, the end when there is none
PlannedItems::const_iterator Household::find(BudgetItemIdentifier const& tidied) const
{
    rules::ByName const isBefore;
    return std::find_if(content_.items.begin(), content_.items.end(), [&](auto const& planned) {
        return !isBefore(planned.first, tidied) && !isBefore(tidied, planned.first);
    });
}

/// \throws foundation::Error when nothing of that name is planned
PlannedItems::const_iterator Household::planned(BudgetItemIdentifier const& identifier) const
{
    auto const tidied = rules::tidied(identifier);
    auto const found = find(tidied);
    if (found == content_.items.end()) {
        rules::refuseUnknown(tidied);
    }
    return found;
}

/// \param replaced the item whose place \a item takes, the end for none
void Household::check(PlannedItem const& item, PlannedItems::const_iterator replaced) const
{
    rules::check(item, content_.settings);
    rules::checkSize(item);
    auto const namesake = find(item.identifier);
    if (namesake != content_.items.end() && namesake != replaced) {
        rules::refuseTwice(namesake->first);
    }
}

/// Views total by the process's rates and working week: makes them this budget's.
void Household::countInProcess() const
{
    setWorkingWeek(content_.settings.workingWeek);
    fiscora::clearConversions();
    for (auto const& [from, row] : content_.rates.rates()) {
        for (auto const& [to, rate] : row) {
            if (from != to) {
                fiscora::registerConversion(from, to, rate);
            }
        }
    }
}
}
