#pragma once

#include <engine/BudgetContent.h>
#include <storage/Document.h>

namespace tallymere::storage::testing {

/// \return a household with an item of each type, three currencies and rates of both origins
engine::BudgetContent household();

/// \return the bill number \a number of a series
engine::PlannedItem numberedBill(int number);

/// \return a household that plans numberedBill() 0 to \a count - 1 and nothing else
engine::BudgetContent billsOnly(int count);

void plan(Document& document, engine::PlannedItem const& item);
}
