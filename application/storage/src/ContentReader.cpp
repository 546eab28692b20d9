#include "ContentReader.h"

#include "BooksReader.h"
#include "Names.h"
#include "OrUnsound.h"
#include "Rows.h"
#include "SourceKey.h"

#include <SQLiteCpp/Database.h>
#include <utility>

using fiscora::Currency;
using fiscora::Money;
using tallymere::engine::BudgetContent;
using tallymere::engine::PlannedItem;
using tallymere::engine::Settings;
using tlm::accounting::AccountNumber;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::conversion::ConversionMap;
using tlm::foundation::Percentage;

namespace tallymere::storage {

using namespace rows;

namespace {

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
        .displayAs = names::toDisplayOption(word(row, 1)),
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
    rates.setLastFetched(ConversionMap::TimePoint(ConversionMap::TimePoint::duration(integer(fetched, 0))));
    return rates;
}

PlannedItem readItem(SQLite::Statement const& row)
{
    auto const money = [&row, code = currency(row, 3)](int column) {
        return Money::fromAmount(code, integer(row, column));
    };
    PlannedItem item{.identifier = {names::toType(word(row, 0)), BudgetSource(text(row, 1))},
                     .amount = money(4),
                     .period = names::toFrequency(word(row, 5)),
                     .anchoredOn = date(row, 6),
                     .nextOccurOn = date(row, 7),
                     .account = AccountNumber(row.getColumn(12).getUInt()),
                     .debt = {},
                     .goalTotal = {}};
    require(text(row, 2) == sourceKey(text(row, 1)) && !text(row, 2).isEmpty(), "a source under another key");
    if (item.identifier.type == BudgetItemTypes::Debt) {
        item.debt = engine::DebtTerms{.borrowed = money(8), .interest = percentage(row, 9, 10)};
    }
    if (item.identifier.type == BudgetItemTypes::Goal) {
        item.goalTotal = money(11);
    }
    return item;
}

/// \param account tells how to find the number of an item's account
/// \param from the tables in which both stand
engine::PlannedItems readItems(SQLite::Database const& database, std::set<Currency> const& usable,
                               std::string const& account, std::string const& from)
{
    engine::PlannedItems items;
    SQLite::Statement row(database, "SELECT kind, source, source_key, items.currency, amount, period, anchored_on, "
                                    "next_occur_on, borrowed, interest, interest_decimals, goal_total, " +
                                        account + " FROM " + from);
    while (row.executeStep()) {
        auto item = readItem(row);
        require(usable.contains(item.amount.code()), "an item in a currency that isn't usable");
        auto const identifier = item.identifier;
        items.emplace(identifier, std::move(item));
    }
    return items;
}

BudgetContent readPlan(SQLite::Database const& database, std::string const& account, std::string const& from)
{
    BudgetContent content{.settings = readSettings(database), .rates = readRates(database), .items = {}, .books = {}};
    content.items = readItems(database, content.settings.usable, account, from);
    return content;
}
}

BudgetContent readContent(SQLite::Database const& database, PostingsTally const& postings)
{
    return orUnsound([&] {
        auto content = readPlan(database, "number", "items CROSS JOIN accounts ON accounts.id = account");
        content.books = readBooks(database, postings);
        return content;
    });
}

BudgetContent readContentOfVersion1(SQLite::Database const& database)
{
    return orUnsound([&database] { return readPlan(database, "0", "items"); });
}
}
