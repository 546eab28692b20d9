#pragma once

#include <engine/BudgetContent.h>

/// What the books of a household hold. Books that a file tells otherwise are damaged: they throw a foundation::Error.
namespace tallymere::engine::rules {

/// Refuses books that don't fit together or don't sum to zero in each currency.
void check(Books const& books);

/// Refuses items without an account of their own, or with one of another type or currency.
void checkAccounts(PlannedItems const& items, Books const& books);

/// \return what the names of one bank, or of one account of a bank, have in common: neither case nor blanks between words or around them
QString comparable(QString const& name);
}
