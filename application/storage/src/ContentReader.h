#pragma once

#include <engine/BudgetContent.h>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

/// \return all that the budget in \a database holds
/// \throws UnsoundBudget when a value stands for nothing that the program knows, or one doesn't fit the others
engine::BudgetContent readContent(SQLite::Database const& database);
}
