#pragma once

#include "Columns.h"
#include "Prepared.h"

#include <cstdint>
#include <initializer_list>
#include <string>

namespace tallymere::storage {

/// A query that is walked row by row, for the many rows that there may be of postings. It is prepared when it is first
/// needed. Failures throw SQLite::Exception.
class Walk : public Columns<Walk>
{
public:
    /// \param database outlives the walk
    Walk(SQLite::Database const& database, std::string words);

    /// Goes back to before the first row, with \a arguments in the place of ?1, ?2 and so on.
    void begin(std::initializer_list<std::int64_t> arguments = {});

    /// \return whether there is another row, which the others then tell of
    bool next();

    /// Lets go of the tables before the last row was reached.
    void end() noexcept;

private:
    friend Columns<Walk>;

    std::int64_t integerAt(int column) const { return sqlite3_column_int64(statement_.get(), column); }
    int typeAt(int column) const { return sqlite3_column_type(statement_.get(), column); }
    unsigned char const* textAt(int column) const { return sqlite3_column_text(statement_.get(), column); }
    int sizeAt(int column) const { return sqlite3_column_bytes(statement_.get(), column); }

    SQLite::Database const& database_;
    std::string words_;
    Prepared statement_;
};
}
