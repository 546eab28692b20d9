#pragma once

#include <engine/BudgetContent.h>
#include <tlm/budgeting/BudgetedMoneyMap.h>

/// Budget items as the window carries them, and as the books keep them.
namespace tallymere::presenter {

tlm::budgeting::BillMap bills(engine::PlannedItems const& items);
tlm::budgeting::DebtMap debts(engine::PlannedItems const& items);
tlm::budgeting::GoalMap goals(engine::PlannedItems const& items);
tlm::budgeting::NontrackMap nontracks(engine::PlannedItems const& items);
tlm::budgeting::WageMap wages(engine::PlannedItems const& items);

/// \param record of the kind that \a type tells
/// \return the item without its account and its anchor, which are the household's to give
/// \throws std::bad_cast when \a record is of another kind
engine::PlannedItem planned(tlm::budgeting::BudgetItemTypes type, tlm::budgeting::BudgetedMoney const& record);
}
