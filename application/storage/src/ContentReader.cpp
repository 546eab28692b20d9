#include "ContentReader.h"

#include "Names.h"
#include "SourceKey.h"
#include "UnsoundBudget.h"

#include <SQLiteCpp/Column.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <stdexcept>
#include <string>
#include <utility>

using fiscora::Currency;
using fiscora::Money;
using tallymere::engine::BudgetContent;
using tallymere::engine::PlannedItem;
using tallymere::engine::Settings;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::conversion::ConversionMap;
using tlm::foundation::Percentage;

namespace tallymere::storage {

namespace {

void require(bool isMet, char const* rule)
{
    if (!isMet) {
        throw UnsoundBudget(UnsoundBudget::Reason::Damaged, rule);
    }
}

QString text(SQLite::Statement const& row, int column)
{
    return QString::fromStdString(row.getColumn(column).getString());
}

Currency currency(SQLite::Statement const& row, int column)
{
    return fiscora::toCurrency(row.getColumn(column).getString());
}

QDate date(SQLite::Statement const& row, int column)
{
    return QDate::fromString(text(row, column), Qt::ISODate);
}

int number(SQLite::Statement const& row, int column)
{
    return row.getColumn(column).getInt();
}

Percentage percentage(SQLite::Statement const& row, int rate, int decimals)
{
    return {row.getColumn(rate).getDouble(), static_cast<unsigned char>(number(row, decimals))};
}

std::set<Currency> readUsable(SQLite::Database const& database)
{
    std::set<Currency> usable;
    SQLite::Statement row(database, "SELECT code FROM currencies WHERE is_usable");
    while (row.executeStep()) {
        usable.insert(currency(row, 0));
    }
    return usable;
}

Settings readSettings(SQLite::Database const& database)
{
    SQLite::Statement row(database,
                          "SELECT preferred_currency, display_currencies_as, balance_window, balance_window_decimals, "
                          "due_within_days, working_hours_per_week, working_days_per_week FROM settings");
    require(row.executeStep(), "no settings");
    Settings settings{
        .preferred = currency(row, 0),
        .usable = readUsable(database),
        .displayAs = names::toDisplayOption(row.getColumn(1).getString()),
        .balanceWindow = percentage(row, 2, 3),
        .dueWithin = std::chrono::days(number(row, 4)),
        .workingWeek = {.hours = std::chrono::hours(number(row, 5)), .days = std::chrono::days(number(row, 6))}};
    require(settings.usable.contains(settings.preferred), "the preferred currency isn't usable");
    return settings;
}

ConversionMap readRates(SQLite::Database const& database)
{
    ConversionMap rates;
    SQLite::Statement row(database, "SELECT from_currency, to_currency, rate, is_looked_up FROM rates");
    while (row.executeStep()) {
        rates.updateConversion(currency(row, 0), currency(row, 1), fiscora::FloatingPoint(row.getColumn(2).getDouble()),
                               {.value = number(row, 3) == 1});
    }
    // Storing a rate that was looked up moves the time, so it is set last.
    SQLite::Statement fetched(database, "SELECT rates_fetched FROM settings");
    require(fetched.executeStep(), "no settings");
    rates.setLastFetched(ConversionMap::TimePoint(ConversionMap::TimePoint::duration(fetched.getColumn(0).getInt64())));
    return rates;
}

PlannedItem readItem(SQLite::Statement const& row)
{
    auto const money = [&row, code = currency(row, 3)](int column) {
        return Money::fromAmount(code, row.getColumn(column).getInt64());
    };
    PlannedItem item{.identifier = {names::toType(row.getColumn(0).getString()), BudgetSource(text(row, 1))},
                     .amount = money(4),
                     .period = names::toFrequency(row.getColumn(5).getString()),
                     .anchoredOn = date(row, 6),
                     .nextOccurOn = date(row, 7),
                     .debt = {},
                     .goalTotal = {}};
    require(item.anchoredOn.isValid() && item.nextOccurOn.isValid(), "no date");
    require(text(row, 2) == sourceKey(text(row, 1)) && !text(row, 2).isEmpty(), "a source under another key");
    if (item.identifier.type == BudgetItemTypes::Debt) {
        item.debt = engine::DebtTerms{.borrowed = money(8), .interest = percentage(row, 9, 10)};
    }
    if (item.identifier.type == BudgetItemTypes::Goal) {
        item.goalTotal = money(11);
    }
    return item;
}

BudgetContent readAll(SQLite::Database const& database)
{
    BudgetContent content{.settings = readSettings(database), .rates = readRates(database), .items = {}};
    SQLite::Statement row(database, "SELECT kind, source, source_key, currency, amount, period, anchored_on, "
                                    "next_occur_on, borrowed, interest, interest_decimals, goal_total FROM items");
    while (row.executeStep()) {
        auto item = readItem(row);
        require(content.settings.usable.contains(item.amount.code()), "an item in a currency that isn't usable");
        auto const identifier = item.identifier;
        content.items.emplace(identifier, std::move(item));
    }
    return content;
}
}

engine::BudgetContent readContent(SQLite::Database const& database)
{
    try {
        return readAll(database);
    } catch (std::invalid_argument const& unknown) {
        throw UnsoundBudget(UnsoundBudget::Reason::Damaged, unknown.what());
    }
}
}
