#pragma once

#include <QByteArray>

namespace SQLite {
class Database;
}

/// The shape of a budget file.
namespace tallymere::storage::schema {

/// Tells budget files from other databases: "TLMB" in ASCII.
inline constexpr unsigned int applicationId = 0x544C4D42;
inline constexpr unsigned int presentVersion = 3;
inline constexpr unsigned int oldestVersion = 1;

/// How much of a file's beginning checkHeader() looks at.
inline constexpr qint64 headerSize = 100;

/// Most budgets take some hundred kilobytes, and a million postings some hundred megabytes. What is larger than this is
/// none, and isn't read at all.
inline constexpr qint64 mostBytes = 1LL << 30;
inline constexpr int mostItems = 1'000'000;
inline constexpr int mostAccounts = 2'000'000;
inline constexpr int mostPostings = 10'000'000;

/// Looks at the first \a header bytes of a file of \a size bytes, without giving it to the database.
/// \throws UnsoundBudget when they don't begin a budget file of a known version
void checkHeader(QByteArray const& header, qint64 size);

/// \return the version of which \a database says that it is
unsigned int versionOf(SQLite::Database const& database);

/// Makes the tables in an empty database, with all known currencies, in the transaction that the caller has begun.
void create(SQLite::Database& database);

/// Replaces the items of version 1 by the tables of the present version, which are empty then.
void replaceVersion1(SQLite::Database& database);

/// Makes the tables of version 2 those of the present version, with all that is in them. The connection must not look after
/// references meanwhile.
void replaceVersion2(SQLite::Database& database);

/// Adds the currencies that the program has come to know since the file was written.
void addCurrencies(SQLite::Database& database);

/// Checks that \a database has exactly the tables of \a version, that every page and every row obeys their rules, and that
/// its amounts are counted as the program counts them. Of the present version's postings, it checks pages and types alone:
/// PostingsTally checks the rest, with its indexes, where it reads them anyway.
/// \return whether it has every currency that the program knows, so that addCurrencies() has nothing to do
/// \throws UnsoundBudget otherwise
bool check(SQLite::Database& database, unsigned int version);
}
