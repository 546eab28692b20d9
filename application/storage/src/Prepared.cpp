#include "Prepared.h"

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

namespace tallymere::storage {

void Finalizer::operator()(sqlite3_stmt* statement) const noexcept
{
    sqlite3_finalize(statement);
}

Prepared prepare(SQLite::Database const& database, std::string const& words)
{
    sqlite3_stmt* made = nullptr;
    auto const result = sqlite3_prepare_v2(database.getHandle(), words.c_str(), -1, &made, nullptr);
    Prepared prepared(made);
    if (result != SQLITE_OK) {
        throw SQLite::Exception(database.getHandle(), result);
    }
    return prepared;
}
}
