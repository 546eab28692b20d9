#pragma once

#include <QByteArray>

namespace SQLite {
class Database;
}

/// The shape of a budget file.
namespace tallymere::storage::schema {

/// Tells budget files from other databases: "TLMB" in ASCII.
inline constexpr unsigned int applicationId = 0x544C4D42;
inline constexpr unsigned int version = 1;

/// How much of a file's beginning checkHeader() looks at.
inline constexpr qint64 headerSize = 100;

/// Household budgets take some hundred kilobytes; what is larger than this is none, and isn't read at all.
inline constexpr qint64 mostBytes = 256LL << 20;
inline constexpr int mostItems = 1'000'000;

/// Looks at the first \a header bytes of a file of \a size bytes, without giving it to the database.
/// \throws UnsoundBudget when they don't begin a budget file of this version
void checkHeader(QByteArray const& header, qint64 size);

/// Makes the tables in an empty database, with all known currencies, in the transaction that the caller has begun.
void create(SQLite::Database& database);

/// Adds the currencies that the program has come to know since the file was written.
void addCurrencies(SQLite::Database& database);

/// Checks that \a database has exactly the tables of this version, that every page and every row obeys their rules, and
/// that its amounts are counted as the program counts them.
/// \throws UnsoundBudget otherwise
void check(SQLite::Database& database);
}
