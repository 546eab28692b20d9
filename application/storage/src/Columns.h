#pragma once

#include <cstddef>
#include <cstdint>
#include <sqlite3.h>
#include <string_view>

namespace tallymere::storage {

/// What a row tells by its columns, which count from 0.
/// \tparam Row derives from this and hands a column out as the database does: integerAt(), typeAt(), textAt() and sizeAt()
template <typename Row>
class Columns
{
public:
    std::int64_t integer(int column) const { return row().integerAt(column); }
    bool isInteger(int column) const { return row().typeAt(column) == SQLITE_INTEGER; }
    bool isNull(int column) const { return row().typeAt(column) == SQLITE_NULL; }
    bool isText(int column) const { return row().typeAt(column) == SQLITE_TEXT; }

    /// \return the text in UTF-8, empty for none, until the next row
    std::string_view text(int column) const
    {
        auto const* const bytes = row().textAt(column); // before its length, which it may change
        auto const size = row().sizeAt(column);
        return {reinterpret_cast<char const*>(bytes), bytes == nullptr ? 0 : static_cast<std::size_t>(size)};
    }

private:
    Row const& row() const { return static_cast<Row const&>(*this); }
};
}
