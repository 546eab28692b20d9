#include "ContentDigest.h"

#include "PostingWords.h"
#include "PostingsDigest.h"
#include "Walk.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>
#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <string>

namespace tallymere::storage {

namespace {

constexpr auto settings =
    "SELECT preferred_currency, display_currencies_as, balance_window, balance_window_decimals, due_within_days, "
    "working_hours_per_week, working_days_per_week, rates_fetched FROM settings";
constexpr auto usable = "SELECT code FROM currencies WHERE is_usable ORDER BY code";
constexpr auto rates =
    "SELECT from_currency, to_currency, rate, is_looked_up FROM rates ORDER BY from_currency, to_currency";

constexpr std::array version1{
    settings, usable, rates,
    "SELECT kind, source, currency, amount, period, anchored_on, next_occur_on, borrowed, interest, interest_decimals, "
    "goal_total FROM items ORDER BY kind, source_key"};

constexpr std::array allButPostings{
    settings,
    usable,
    rates,
    "SELECT kind, source, number, items.currency, amount, period, anchored_on, next_occur_on, borrowed, interest, "
    "interest_decimals, goal_total FROM items CROSS JOIN accounts ON accounts.id = account ORDER BY kind, source_key",
    "SELECT a.number, a.name, p.number, a.type, a.currency, a.is_closed, a.purpose "
    "FROM accounts AS a LEFT JOIN accounts AS p ON p.id = a.parent ORDER BY a.number",
    "SELECT name, is_closed FROM banks ORDER BY name_key",
    "SELECT number, banks.name, kind FROM banks CROSS JOIN bank_accounts ON bank = banks.id "
    "CROSS JOIN accounts ON accounts.id = account ORDER BY number"};

/// Tells the type and the length too, so that values that follow each other can't be taken for others.
void tell(std::string& text, SQLite::Statement const& row, int column)
{
    auto const value = row.getColumn(column);
    if (value.isNull()) {
        text += '-';
    } else if (value.isFloat()) {
        text += 'r' + std::to_string(std::bit_cast<std::uint64_t>(value.getDouble())) + ';';
    } else {
        text += value.isInteger() ? 'i' : 't';
        auto const* const words = value.getText(); // before its length, which it may change
        auto const size = static_cast<std::size_t>(value.getBytes());
        text += std::to_string(size) + ':';
        text.append(words, size);
    }
}

void add(QCryptographicHash& hash, SQLite::Database const& database, std::span<char const* const> queries)
{
    std::string told;
    for (auto const* const query : queries) {
        SQLite::Statement row(database, query);
        while (row.executeStep()) {
            told.clear();
            for (auto column = 0; column < row.getColumnCount(); ++column) {
                tell(told, row, column);
            }
            told += '\n';
            hash.addData(QByteArrayView(told));
        }
        hash.addData("\n");
    }
}

void tellNumber(std::string& told, std::int64_t number)
{
    told.append(reinterpret_cast<char const*>(&number), sizeof number);
}

void tellText(std::string& told, std::string_view text)
{
    tellNumber(told, static_cast<std::int64_t>(text.size()));
    told.append(text);
}

void tell(std::string& told, PostingWords const& words)
{
    tellText(told, words.day);
    tellNumber(told, words.debiting);
    tellNumber(told, words.crediting);
    tellNumber(told, words.amount);
    tellText(told, words.currency);
    tellText(told, words.description);
    tellText(told, words.status);
    tellNumber(told, words.madeFrom);
}

using Sums = std::array<std::uint64_t, 4>;

/// Adds what version 2 told of a posting.
void add(Sums& sums, PostingWords const& words)
{
    std::string told;
    tell(told, words);
    auto const hash = QCryptographicHash::hash(QByteArrayView(told), QCryptographicHash::Blake2b_256);
    for (auto place = 0U; place < sums.size(); ++place) {
        sums[place] += qFromLittleEndian<quint64>(hash.constData() + place * sizeof(quint64));
    }
}

Sums sumsOfVersion2(SQLite::Database const& database)
{
    Sums sums{};
    Walk row(database, postingRows);
    row.begin();
    while (row.next()) {
        add(sums, wordsOf(row));
    }
    return sums;
}
}

QByteArray digestOfPlan(SQLite::Database const& database)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    add(hash, database, allButPostings);
    return hash.result();
}

QByteArray digestOf(QByteArray const& plan, PostingsDigest const& postings)
{
    return plan + postings.bytes();
}

QByteArray digestOfVersion2(SQLite::Database const& database)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    add(hash, database, allButPostings);
    auto const sums = sumsOfVersion2(database);
    hash.addData(QByteArrayView(reinterpret_cast<char const*>(sums.data()), sizeof sums));
    return hash.result();
}

QByteArray digestOfVersion1(SQLite::Database const& database)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    add(hash, database, version1);
    return hash.result();
}
}
