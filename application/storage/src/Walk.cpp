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
}
