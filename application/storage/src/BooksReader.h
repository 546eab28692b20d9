#pragma once

#include <engine/Books.h>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

class PostingsTally;

/// \param postings of the same database
/// \return the chart of accounts, the banks, and what the postings in \a database come to
/// \throws UnsoundBudget when one doesn't fit the others
/// \throws std::invalid_argument for a value that stands for nothing that the program knows
/// \throws foundation::Error for a name that no account can have
engine::Books readBooks(SQLite::Database const& database, PostingsTally const& postings);
}
