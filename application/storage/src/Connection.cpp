#include "Connection.h"

#include <tlm/foundation/ScopeExecutor.h>

#include <SQLiteCpp/Transaction.h>
#include <array>
#include <sqlite3.h>
#include <string>
#include <utility>

namespace tallymere::storage::connection {

namespace {

/// Far more than any row, text or statement of a budget takes.
constexpr std::array<std::pair<int, int>, 5> limits{{
    {SQLITE_LIMIT_LENGTH, 1'000'000},
    {SQLITE_LIMIT_SQL_LENGTH, 100'000},
    {SQLITE_LIMIT_COLUMN, 100},
    {SQLITE_LIMIT_EXPR_DEPTH, 100},
    {SQLITE_LIMIT_ATTACHED, 1}, // writing a copy attaches it
}};

void configure(SQLite::Database& database, int option, int isOn)
{
    auto isNow = 0;
    if (sqlite3_db_config(database.getHandle(), option, isOn, &isNow) != SQLITE_OK || isNow != isOn) {
        throw SQLite::Exception("A safety setting isn't available.", SQLITE_ERROR);
    }
}

void harden(SQLite::Database& database)
{
    configure(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    configure(database, SQLITE_DBCONFIG_DEFENSIVE, 1);
    configure(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    configure(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    for (auto const& [limit, most] : limits) {
        sqlite3_limit(database.getHandle(), limit, most);
    }
    database.exec("PRAGMA cell_size_check = ON");
    database.exec("PRAGMA cache_size = -16384"); // KiB at most: checks go through tables and indexes in their own order
    database.exec("PRAGMA mmap_size = 0");       // a disk's fault is an error then, and not a signal
    database.exec("PRAGMA foreign_keys = ON");
}
}

SQLite::Database open(QByteArray const& path, Access access)
{
    auto const mode = access == Access::Write ? SQLite::OPEN_READWRITE : SQLite::OPEN_READONLY;
    SQLite::Database database(path.toStdString(), mode | SQLite::OPEN_NOMUTEX);
    harden(database);
    return database;
}

void makeDurable(SQLite::Database& database)
{
    if (database.execAndGet("PRAGMA journal_mode = DELETE").getString() != "delete") {
        throw SQLite::Exception("A rollback journal isn't available.", SQLITE_ERROR);
    }
    database.exec("PRAGMA synchronous = FULL");
}

void transact(SQLite::Database& database, std::function<void()> const& changes)
{
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    changes();
    transaction.commit();
}

void transactFreely(SQLite::Database& database, std::function<void()> const& changes)
{
    database.exec("PRAGMA foreign_keys = OFF");
    tlm::foundation::ScopeExecutor const again([&database] { database.tryExec("PRAGMA foreign_keys = ON"); });
    transact(database, changes);
}
}
