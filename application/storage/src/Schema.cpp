#include "Schema.h"

#include "UnsoundBudget.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>

#include <QtEndian>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace tallymere::storage::schema {

using Reason = UnsoundBudget::Reason;

namespace {

constexpr qsizetype versionOffset = 60;
constexpr qsizetype applicationIdOffset = 68;
char const magic[] = "SQLite format 3"; // with its closing NUL

// Files that people keep hold these words to the letter, and check() compares them: a change is a new version.
char const tables[] = R"sql(
CREATE TABLE currencies (
    code TEXT NOT NULL PRIMARY KEY CHECK (code GLOB '[A-Z][A-Z][A-Z]'),
    unit INTEGER NOT NULL CHECK (unit > 0),
    is_usable INTEGER NOT NULL DEFAULT 0 CHECK (is_usable IN (0, 1))
) STRICT, WITHOUT ROWID;
CREATE TABLE settings (
    id INTEGER NOT NULL PRIMARY KEY CHECK (id = 1),
    preferred_currency TEXT NOT NULL REFERENCES currencies (code),
    display_currencies_as TEXT NOT NULL CHECK (display_currencies_as IN ('code', 'name and code', 'symbol and code')),
    balance_window REAL NOT NULL CHECK (balance_window BETWEEN 0 AND 100),
    balance_window_decimals INTEGER NOT NULL CHECK (balance_window_decimals BETWEEN 0 AND 255),
    due_within_days INTEGER NOT NULL CHECK (due_within_days BETWEEN 0 AND 60),
    working_hours_per_week INTEGER NOT NULL CHECK (working_hours_per_week BETWEEN 1 AND 168),
    working_days_per_week INTEGER NOT NULL CHECK (working_days_per_week BETWEEN 1 AND 7),
    rates_fetched INTEGER NOT NULL DEFAULT 0
) STRICT;
CREATE TABLE rates (
    from_currency TEXT NOT NULL REFERENCES currencies (code),
    to_currency TEXT NOT NULL REFERENCES currencies (code),
    rate REAL NOT NULL CHECK (rate > 0 AND rate < 9e999),
    is_looked_up INTEGER NOT NULL CHECK (is_looked_up IN (0, 1)),
    PRIMARY KEY (from_currency, to_currency)
) STRICT, WITHOUT ROWID;
CREATE TABLE items (
    id INTEGER NOT NULL PRIMARY KEY,
    kind TEXT NOT NULL CHECK (kind IN ('bill', 'debt', 'goal', 'nontrack', 'wage')),
    source TEXT NOT NULL CHECK (length(source) > 0),
    source_key TEXT NOT NULL,
    currency TEXT NOT NULL REFERENCES currencies (code),
    amount INTEGER NOT NULL CHECK (amount > 0),
    period TEXT NOT NULL CHECK (period IN (
        'once', 'hourly', 'daily', 'weekly', 'fortnightly', 'every 4 weeks', 'twice monthly', 'monthly',
        'every 2 months', 'every 3 months', 'every 4 months', 'every 5 months', 'every 6 months', 'every 8 months',
        'every 9 months', 'yearly', 'every 18 months', 'every 2 years', 'every 3 years', 'every 4 years',
        'every 5 years', 'every 10 years')),
    anchored_on TEXT NOT NULL CHECK (anchored_on IS date(anchored_on) AND anchored_on >= '0001-01-01'),
    next_occur_on TEXT NOT NULL CHECK (next_occur_on IS date(next_occur_on) AND next_occur_on >= anchored_on),
    borrowed INTEGER CHECK (borrowed > 0),
    interest REAL CHECK (interest BETWEEN 0 AND 100),
    interest_decimals INTEGER CHECK (interest_decimals BETWEEN 0 AND 255),
    goal_total INTEGER CHECK (goal_total > 0),
    UNIQUE (kind, source_key),
    CHECK ((kind = 'debt') = (borrowed IS NOT NULL)),
    CHECK ((kind = 'debt') = (interest IS NOT NULL)),
    CHECK ((kind = 'debt') = (interest_decimals IS NOT NULL)),
    CHECK ((kind = 'goal') = (goal_total IS NOT NULL))
) STRICT;
)sql";

/// \return amount in stored units of one unit of \a code
std::int64_t unitOf(fiscora::Currency code)
{
    std::int64_t unit = 1;
    for (auto digit = 0; digit < fiscora::storedDigits(code); ++digit) {
        unit *= 10;
    }
    return unit;
}

unsigned int numberAt(QByteArray const& header, qsizetype offset)
{
    return qFromBigEndian<quint32>(header.constData() + offset);
}

/// \return the words of every table and index, in a fixed order
std::vector<std::string> wordsOf(SQLite::Database const& database)
{
    std::vector<std::string> words;
    SQLite::Statement query(database, "SELECT type || ' ' || name || ' ' || tbl_name || ' ' || ifnull(sql, '') "
                                      "FROM sqlite_schema ORDER BY 1");
    while (query.executeStep()) {
        words.push_back(query.getColumn(0).getString());
    }
    return words;
}

std::vector<std::string> const& expectedWords()
{
    static auto const words = [] {
        SQLite::Database model(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        model.exec(tables);
        return wordsOf(model);
    }();
    return words;
}

[[noreturn]] void refuse(std::string const& detail)
{
    throw UnsoundBudget(Reason::Damaged, detail);
}

void checkPages(SQLite::Database const& database)
{
    SQLite::Statement check(database, "PRAGMA integrity_check(1)");
    if (!check.executeStep() || check.getColumn(0).getString() != "ok") {
        refuse(check.hasRow() ? check.getColumn(0).getString() : "no integrity check");
    }
}

void checkReferences(SQLite::Database const& database)
{
    if (SQLite::Statement check(database, "PRAGMA foreign_key_check"); check.executeStep()) {
        refuse("a row of " + check.getColumn(0).getString() + " refers to nothing");
    }
}

void checkCounts(SQLite::Database& database)
{
    if (database.execAndGet("SELECT count(*) FROM items").getInt64() > mostItems) {
        throw UnsoundBudget(Reason::TooLarge, "too many items");
    }
}

void checkUnits(SQLite::Database const& database)
{
    SQLite::Statement stored(database, "SELECT unit FROM currencies WHERE code = ?");
    for (auto const code : fiscora::allCurrencies) {
        stored.reset();
        stored.bind(1, fiscora::toStdString(code));
        if (stored.executeStep() && stored.getColumn(0).getInt64() != unitOf(code)) {
            refuse("amounts of " + fiscora::toStdString(code) + " count otherwise");
        }
    }
}
}

void checkHeader(QByteArray const& header, qint64 size)
{
    if (size == 0) {
        throw UnsoundBudget(Reason::Empty, "no bytes");
    }
    if (!header.startsWith(QByteArray(magic, sizeof magic))) {
        throw UnsoundBudget(Reason::Foreign, "no database");
    }
    if (header.size() < headerSize) {
        throw UnsoundBudget(Reason::Damaged, "cut off within the header");
    }
    if (numberAt(header, applicationIdOffset) != applicationId) {
        throw UnsoundBudget(Reason::Foreign, "the database of another program");
    }
    auto const found = numberAt(header, versionOffset);
    if (found != version) {
        throw UnsoundBudget(found > version ? Reason::Newer : Reason::Damaged, "version " + std::to_string(found));
    }
    if (size > mostBytes) {
        throw UnsoundBudget(Reason::TooLarge, std::to_string(size) + " bytes");
    }
}

void create(SQLite::Database& database)
{
    database.exec("PRAGMA application_id = " + std::to_string(applicationId));
    database.exec("PRAGMA user_version = " + std::to_string(version));
    database.exec(tables);
    addCurrencies(database);
}

void addCurrencies(SQLite::Database& database)
{
    SQLite::Statement add(database, "INSERT OR IGNORE INTO currencies (code, unit) VALUES (?, ?)");
    for (auto const code : fiscora::allCurrencies) {
        add.bind(1, fiscora::toStdString(code));
        add.bind(2, unitOf(code));
        add.exec();
        add.reset();
    }
}

void check(SQLite::Database& database)
{
    if (wordsOf(database) != expectedWords()) {
        refuse("other tables than those of a budget");
    }
    checkPages(database);
    checkReferences(database);
    checkCounts(database);
    checkUnits(database);
}
}
