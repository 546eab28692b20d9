#pragma once

#include "Prepared.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tallymere::storage {

/// A query that is walked row by row, for the many rows that there may be of postings. It is prepared when it is first
/// needed. Columns count from 0; failures throw SQLite::Exception.
class Walk
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

    std::int64_t integer(int column) const;
    bool isInteger(int column) const;
    bool isNull(int column) const;
    bool isText(int column) const;

    /// \return the text in UTF-8, empty for none, until the next step
    std::string_view text(int column) const;

private:
    SQLite::Database const& database_;
    std::string words_;
    Prepared statement_;
};
}
