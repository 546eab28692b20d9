#include "Schema.h"

#include "Tables.h"
#include "UnsoundBudget.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>

#include <QtEndian>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace tallymere::storage::schema {

using Reason = UnsoundBudget::Reason;

namespace {

constexpr qsizetype writingOffset = 18;
constexpr char newestWriting = 2;
constexpr qsizetype versionOffset = 60;
constexpr qsizetype applicationIdOffset = 68;
char const magic[] = "SQLite format 3"; // with its closing NUL

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

/// \return what the database lists, as tables::listOf() does
std::vector<std::string> listIn(SQLite::Database const& database)
{
    std::vector<std::string> list;
    SQLite::Statement query(database, "SELECT type || ' ' || name || ' ' || tbl_name || ' ' || ifnull(sql, '') "
                                      "FROM sqlite_schema");
    while (query.executeStep()) {
        list.push_back(query.getColumn(0).getString());
    }
    std::ranges::sort(list);
    return list;
}

void setVersion(SQLite::Database& database)
{
    database.exec("PRAGMA user_version = " + std::to_string(presentVersion));
}

[[noreturn]] void refuse(std::string const& detail)
{
    throw UnsoundBudget(Reason::Damaged, detail);
}

void checkPages(SQLite::Database const& database, std::string const& pragma)
{
    SQLite::Statement check(database, "PRAGMA " + pragma);
    if (!check.executeStep() || check.getColumn(0).getString() != "ok") {
        refuse(check.hasRow() ? check.getColumn(0).getString() : "no integrity check");
    }
}

void checkReferences(SQLite::Database const& database, std::string const& pragma)
{
    if (SQLite::Statement check(database, "PRAGMA " + pragma); check.executeStep()) {
        refuse("a row of " + check.getColumn(0).getString() + " refers to nothing");
    }
}

/// Looks each row up in each index, and each account of each posting, which takes its time.
void checkAtLength(SQLite::Database const& database)
{
    checkPages(database, "integrity_check(1)");
    checkReferences(database, "foreign_key_check");
}

void checkAllButPostings(SQLite::Database& database)
{
    database.exec("PRAGMA ignore_check_constraints = ON");
    checkPages(database, "quick_check(1)");
    database.exec("PRAGMA ignore_check_constraints = OFF");
    for (std::string const table : {"currencies", "settings", "rates", "accounts", "banks", "bank_accounts", "items"}) {
        checkPages(database, "integrity_check(" + table + ")");
        checkReferences(database, "foreign_key_check(" + table + ")");
    }
}

void checkCount(SQLite::Database const& database, std::string const& table, int most)
{
    SQLite::Statement count(database, "SELECT count(*) FROM " + table);
    count.executeStep();
    if (count.getColumn(0).getInt64() > most) {
        throw UnsoundBudget(Reason::TooLarge, "too many " + table);
    }
}

/// Without a number for another posting, the database would call the disk full.
void checkNumbersLeft(SQLite::Database const& database)
{
    SQLite::Statement last(database,
                           "SELECT max(ifnull(max(id), 0), "
                           "(SELECT ifnull(max(CAST(seq AS INTEGER)), 0) FROM sqlite_sequence)) FROM postings");
    last.executeStep();
    if (last.getColumn(0).getInt64() > std::numeric_limits<std::int64_t>::max() - mostPostings) {
        refuse("too few numbers left for postings");
    }
}

void checkCounts(SQLite::Database const& database, unsigned int version)
{
    checkCount(database, "items", mostItems);
    if (version >= 2) {
        checkCount(database, "accounts", mostAccounts);
        checkCount(database, "postings", mostPostings);
        checkNumbersLeft(database);
    }
}

using Units = std::map<std::string, std::int64_t, std::less<>>;

Units storedUnits(SQLite::Database const& database)
{
    Units units;
    SQLite::Statement row(database, "SELECT code, unit FROM currencies ORDER BY code");
    while (row.executeStep()) {
        units.emplace_hint(units.end(), row.getColumn(0).getString(), row.getColumn(1).getInt64());
    }
    return units;
}

/// \return whether each known currency has a unit
bool checkUnits(SQLite::Database const& database)
{
    auto const units = storedUnits(database);
    auto areAllThere = true;
    for (auto const code : fiscora::allCurrencies) {
        auto const stored = units.find(fiscora::toStdString(code));
        areAllThere = areAllThere && stored != units.end();
        if (stored != units.end() && stored->second != unitOf(code)) {
            refuse("amounts of " + stored->first + " count otherwise");
        }
    }
    return areAllThere;
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
    if (found < oldestVersion || found > presentVersion) {
        throw UnsoundBudget(found > presentVersion ? Reason::Newer : Reason::Damaged,
                            "version " + std::to_string(found));
    }
    if (header[writingOffset] < 1 || header[writingOffset] > newestWriting) {
        refuse("a way of writing that isn't known"); // the database would open it, but for reading only
    }
    if (size > mostBytes) {
        throw UnsoundBudget(Reason::TooLarge, std::to_string(size) + " bytes");
    }
}

unsigned int versionOf(SQLite::Database const& database)
{
    SQLite::Statement query(database, "PRAGMA user_version");
    query.executeStep();
    return query.getColumn(0).getUInt();
}

void create(SQLite::Database& database)
{
    database.exec("PRAGMA application_id = " + std::to_string(applicationId));
    setVersion(database);
    database.exec(tables::ofVersion(presentVersion));
    addCurrencies(database);
}

void replaceVersion1(SQLite::Database& database)
{
    database.exec("DROP TABLE items");
    database.exec(tables::newSinceVersion1());
    setVersion(database);
}

void replaceVersion2(SQLite::Database& database)
{
    database.exec(tables::replacingVersion2());
    setVersion(database);
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

bool check(SQLite::Database& database, unsigned int version)
{
    if (listIn(database) != tables::listOf(version)) {
        refuse("other tables than those of a budget");
    }
    if (version == presentVersion) {
        checkAllButPostings(database);
    } else {
        checkAtLength(database);
    }
    checkCounts(database, version);
    return checkUnits(database);
}
}
