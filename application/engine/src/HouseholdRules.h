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

/// Tells whether an account can be called \a name.
bool isAccountName(QString const& name);

/// \return what an item of the type \a type is called within a sentence
/// \throws foundation::Error when there is no such type
QString noun(tlm::budgeting::BudgetItemTypes type);

/// Refuses an item without a name or a type.
void checkNamed(tlm::budgeting::BudgetItemIdentifier const& identifier);

/// Refuses a name that the item's account can't have. Old files may hold one.
void checkName(tlm::budgeting::BudgetItemIdentifier const& identifier);

/// Refuses an item of which it isn't said how often it happens. Old files may hold one.
void checkRegular(PlannedItem const& item);

/// \return what the account of the item is called: as the item, with plain blanks for signs that an account's name can't
///         have, or as its type where nothing else is left
QString accountName(tlm::budgeting::BudgetItemIdentifier const& identifier);

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
