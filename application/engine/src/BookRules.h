#pragma once

#include <engine/BudgetContent.h>

/// What the books of a household hold. Books that a file tells otherwise are damaged: they throw a foundation::Error.
namespace tallymere::engine::rules {

/// Refuses books that don't fit together or don't sum to zero in each currency.
void check(Books const& books);

/// Refuses items without an account of their own, or with one of another type or currency.
void checkAccounts(PlannedItems const& items, Books const& books);

/// Tells the types whose balances are debits less credits, not the other way round.
bool isDebitType(tlm::accounting::AccountTypes type);

/// \throws foundation::Error always, since the books have no account of that number
[[noreturn]] void refuseUnknown(tlm::accounting::AccountNumber const& number);

/// \return \a name as it is kept: without surrounding blanks, characters composed
QString tidied(QString const& name);

/// \return what the names of one bank, or of one account, have in common: neither case nor blanks between words or around them
QString comparable(QString const& name);
}
