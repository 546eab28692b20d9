#include "Walk.h"

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>
#include <utility>

namespace tallymere::storage {

Walk::Walk(SQLite::Database const& database, std::string words) : database_(database), words_(std::move(words)) {}

void Walk::begin(std::initializer_list<std::int64_t> arguments)
{
    if (!statement_) {
        statement_ = prepare(database_, words_);
    }
    end();
    auto place = 0;
    for (auto const argument : arguments) {
        if (auto const result = sqlite3_bind_int64(statement_.get(), ++place, argument); result != SQLITE_OK) {
            throw SQLite::Exception(database_.getHandle(), result);
        }
    }
}

bool Walk::next()
{
    auto const result = sqlite3_step(statement_.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) {
        throw SQLite::Exception(database_.getHandle(), result);
    }
    return result == SQLITE_ROW;
}

void Walk::end() noexcept
{
    sqlite3_reset(statement_.get());
}

std::int64_t Walk::integer(int column) const
{
    return sqlite3_column_int64(statement_.get(), column);
}

bool Walk::isInteger(int column) const
{
    return sqlite3_column_type(statement_.get(), column) == SQLITE_INTEGER;
}

bool Walk::isNull(int column) const
{
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

bool Walk::isText(int column) const
{
    return sqlite3_column_type(statement_.get(), column) == SQLITE_TEXT;
}

std::string_view Walk::text(int column) const
{
    auto const* const bytes = sqlite3_column_text(statement_.get(), column); // before its length, which it may change
    auto const size = sqlite3_column_bytes(statement_.get(), column);
    return {reinterpret_cast<char const*>(bytes), bytes == nullptr ? 0 : static_cast<std::size_t>(size)};
}
}
