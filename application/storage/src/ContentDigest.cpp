#include "ContentDigest.h"

#include <QCryptographicHash>

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Statement.h>
#include <array>
#include <bit>
#include <string>

namespace tallymere::storage {

namespace {

constexpr std::array queries{
    "SELECT preferred_currency, display_currencies_as, balance_window, balance_window_decimals, due_within_days, "
    "working_hours_per_week, working_days_per_week, rates_fetched FROM settings",
    "SELECT code FROM currencies WHERE is_usable ORDER BY code",
    "SELECT from_currency, to_currency, rate, is_looked_up FROM rates ORDER BY from_currency, to_currency",
    "SELECT kind, source, currency, amount, period, anchored_on, next_occur_on, borrowed, interest, interest_decimals, "
    "goal_total FROM items ORDER BY kind, source_key",
};

/// Tells the value's type and length too, so that values that follow each other can't be taken for others.
std::string told(SQLite::Column const& column)
{
    if (column.isNull()) {
        return "-";
    }
    if (column.isFloat()) {
        return "r" + std::to_string(std::bit_cast<std::uint64_t>(column.getDouble())) + ";";
    }
    auto const text = column.getString();
    return (column.isInteger() ? "i" : "t") + std::to_string(text.size()) + ":" + text;
}
}

QByteArray digestOf(SQLite::Database const& database)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (auto const* const query : queries) {
        SQLite::Statement rows(database, query);
        while (rows.executeStep()) {
            for (auto column = 0; column < rows.getColumnCount(); ++column) {
                hash.addData(QByteArray::fromStdString(told(rows.getColumn(column))));
            }
            hash.addData("\n");
        }
        hash.addData("\n");
    }
    return hash.result();
}
}
