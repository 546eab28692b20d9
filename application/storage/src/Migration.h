#pragma once

#include <engine/BudgetContent.h>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

/// Makes the budget of version 1 in \a database one of the present version, in the transaction that the caller has begun:
/// each item gets its account, and each debt opens with the sum borrowed. The same budget always becomes the same.
/// \param content what the budget holds
/// \return what it holds then
/// \throws UnsoundBudget when its sums can't be counted
engine::BudgetContent migrateVersion1(SQLite::Database& database, engine::BudgetContent content);
}
