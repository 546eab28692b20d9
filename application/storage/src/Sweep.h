#pragma once

#include "Columns.h"

#include <cstdint>
#include <functional>
#include <string>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

/// One row of a sweep.
class SweptRow : public Columns<SweptRow>
{
public:
    /// \param values one a column, which outlive the row
    explicit SweptRow(sqlite3_value** values) : values_(values) {}

private:
    friend Columns<SweptRow>;

    std::int64_t integerAt(int column) const { return sqlite3_value_int64(values_[column]); }
    int typeAt(int column) const { return sqlite3_value_type(values_[column]); }
    unsigned char const* textAt(int column) const { return sqlite3_value_text(values_[column]); }
    int sizeAt(int column) const { return sqlite3_value_bytes(values_[column]); }

    sqlite3_value** values_;
};

/// Has the database call \a visit with each row, one after the other, which takes it half as long as handing out row by row.
/// \param columns what to tell of a row, such as "id, amount"
/// \param source "FROM" and what follows; rows come in the order in which the database reads them
/// \throws what \a visit throws, and SQLite::Exception
void sweep(SQLite::Database const& database, std::string const& columns, std::string const& source,
           std::function<void(SweptRow const&)> const& visit);
}
