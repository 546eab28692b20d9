#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

struct sqlite3_value;

namespace SQLite {
class Database;
}

namespace tallymere::storage {

/// One row of a sweep. Columns count from 0.
class SweptRow
{
public:
    /// \param values one a column, which outlive the row
    explicit SweptRow(sqlite3_value** values) : values_(values) {}

    std::int64_t integer(int column) const;
    bool isInteger(int column) const;
    bool isNull(int column) const;
    bool isText(int column) const;

    /// \return the text in UTF-8, empty for none, until the next row
    std::string_view text(int column) const;

private:
    sqlite3_value** values_;
};

/// Has the database call \a visit with each row, one after the other, which takes it half as long as handing out row by row.
/// \param columns what to tell of a row, such as "id, amount"
/// \param source "FROM" and what follows; rows come in the order in which the database reads them
/// \throws what \a visit throws, and SQLite::Exception
void sweep(SQLite::Database const& database, std::string const& columns, std::string const& source,
           std::function<void(SweptRow const&)> const& visit);
}
