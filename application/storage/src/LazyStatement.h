#pragma once

#include <SQLiteCpp/Statement.h>
#include <optional>

namespace tallymere::storage {

/// A statement that is prepared when it is first needed, since most that a budget could need it never does.
class LazyStatement
{
public:
    /// \param database outlives the statement
    LazyStatement(SQLite::Database const& database, char const* words) : database_(database), words_(words) {}

    SQLite::Statement& get()
    {
        if (!statement_) {
            statement_.emplace(database_, words_);
        }
        return *statement_;
    }

    /// Runs the statement with what is bound to it, and makes it ready to be bound again, whatever happens.
    /// \return number of rows changed
    int run();

private:
    SQLite::Database const& database_;
    char const* words_;
    std::optional<SQLite::Statement> statement_;
};
}
