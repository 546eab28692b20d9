#pragma once

#include <engine/BudgetContent.h>

#include <QString>

/// What a household may hold. What is refused throws a foundation::Error that says what, why and what to do.
namespace tallymere::engine::rules {

/// Refuses settings out of their ranges and ones whose currencies leave \a items behind.
void check(Settings const& settings, PlannedItems const& items);

/// Refuses rates that are no rates.
void check(tlm::conversion::ConversionMap const& rates);

/// Refuses an item that can't be planned under \a settings, whatever else is planned.
void check(PlannedItem const& item, Settings const& settings);

/// Refuses an amount whose month leaves what a money can count.
void checkSize(PlannedItem const& item);

/// Refuses content that breaks any of these rules or plans an item twice.
void check(BudgetContent const& content);

/// \return the identifier as it is kept: its source without surrounding blanks, characters composed
tlm::budgeting::BudgetItemIdentifier tidied(tlm::budgeting::BudgetItemIdentifier const& identifier);

/// Orders tidied identifiers, those of one item being equal: case doesn't matter.
struct ByName
{
    bool operator()(tlm::budgeting::BudgetItemIdentifier const& left,
                    tlm::budgeting::BudgetItemIdentifier const& right) const;
};

/// \throws foundation::Error always, since an item of that name is planned
[[noreturn]] void refuseTwice(tlm::budgeting::BudgetItemIdentifier const& planned);

/// \throws foundation::Error always, since no item of that name is planned
[[noreturn]] void refuseUnknown(tlm::budgeting::BudgetItemIdentifier const& identifier);
}
