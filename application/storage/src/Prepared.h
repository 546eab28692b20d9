#pragma once

#include <memory>
#include <string>

struct sqlite3_stmt;

namespace SQLite {
class Database;
}

namespace tallymere::storage {

struct Finalizer
{
    void operator()(sqlite3_stmt* statement) const noexcept;
};

/// A query for the many rows that there may be of postings, read by the database's own calls.
using Prepared = std::unique_ptr<sqlite3_stmt, Finalizer>;

/// \throws SQLite::Exception when \a words are no query for \a database
Prepared prepare(SQLite::Database const& database, std::string const& words);
}
