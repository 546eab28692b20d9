#pragma once

#include <engine/BudgetContent.h>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

class PostingsTally;

/// \param postings of the same database
/// \return all that the budget in \a database holds, but the postings themselves
/// \throws UnsoundBudget when a value stands for nothing that the program knows, or one doesn't fit the others
engine::BudgetContent readContent(SQLite::Database const& database, PostingsTally const& postings);

/// \return all that the budget of version 1 in \a database holds: no books, and items without accounts
/// \throws UnsoundBudget as readContent() does
engine::BudgetContent readContentOfVersion1(SQLite::Database const& database);
}
