#pragma once

#include <engine/BudgetContent.h>
#include <engine/Store.h>
#include <tlm/adviser/BudgetHealth.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetTotals.h>

#include <cstddef>
#include <vector>

namespace tallymere::engine {

/// The budget in memory: checks every change, stores it, then takes it over.
///
/// A refused change throws a foundation::Error whose message tells the person what, why and what to do; neither the
/// store nor the content has moved then. What the store throws passes through, and the content stays as it was.
///
/// Views total with the rates and the working week of the process. Those are the ones of the household that was made,
/// configured or given rates last.
class Household
{
public:
    /// What due() tells of one item at most: about four years of working days, or eighty of months.
    static constexpr std::size_t mostDueOfOneItem_ = 1000;

    /// \param store outlives the household and holds \a content already
    /// \throws foundation::Error when \a content breaks a rule that the changes below keep
    Household(BudgetContent content, Store& store);
    Household(Household const&) = delete;
    Household& operator=(Household const&) = delete;

    BudgetContent const& content() const;

    /// Plans \a item. Its rhythm counts from its next occurrence on, whatever its anchor.
    void add(PlannedItem item);

    /// Puts \a item in the place of \a original, which is found without regard to case and surrounding blanks.
    ///
    /// Another period or next occurrence makes the rhythm count from that occurrence on. Otherwise the anchor stays,
    /// whatever the anchor of \a item.
    void change(tlm::budgeting::BudgetItemIdentifier const& original, PlannedItem item);

    /// Drops the item, which is found as change() finds it.
    void remove(tlm::budgeting::BudgetItemIdentifier const& identifier);

    /// Also gives each usable currency the rate 1 for itself, which a whole table of rates needs.
    void configure(Settings settings);

    /// Replaces all rates. A usable currency's rate for itself is always 1, whatever \a rates tell.
    void setRates(tlm::conversion::ConversionMap rates);

    /// \return what each type comes to per month in the preferred currency, without items that happen once and
    ///         currencies that have no rate, which are logged
    /// \throws foundation::Error when a total is too large to count
    tlm::budgeting::BudgetTotals monthlyTotals() const;

    /// \return every occurrence neither posted nor skipped up to as many days after \a today as the settings tell, overdue
    ///         ones included, ordered by date, type and source. The earliest of each item come first and later ones follow
    ///         up once they are dealt with, where there are more than `mostDueOfOneItem_`. An hourly item is due with the
    ///         hours of a whole working day.
    std::vector<tlm::budgeting::BudgetItemAmountDue> due(QDate const& today) const;

    /// \return the adviser's judgement of the monthly totals and of all that was borrowed
    /// \throws foundation::Error when a total is too large to count
    tlm::adviser::BudgetHealth health() const;

private:
    PlannedItems::const_iterator find(tlm::budgeting::BudgetItemIdentifier const& tidied) const;
    PlannedItems::const_iterator planned(tlm::budgeting::BudgetItemIdentifier const& identifier) const;
    void check(PlannedItem const& item, PlannedItems::const_iterator replaced) const;
    void countInProcess() const;

    BudgetContent content_;
    Store& store_;
};
}
