#pragma once

#include <engine/Books.h>
#include <engine/Posting.h>

#include <map>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

/// \return the chart of accounts, the banks, and what the postings in \a database come to
/// \throws UnsoundBudget when one doesn't fit the others
/// \throws std::invalid_argument for a value that stands for nothing that the program knows
/// \throws foundation::Error for a name that no account can have
engine::Books readBooks(SQLite::Database const& database);

/// \return all postings that debit or credit the account of \a number
std::map<engine::PostingId, engine::Posting> readPostings(SQLite::Database const& database,
                                                          tlm::accounting::AccountNumber number);
}
