#include "ContentWriter.h"

#include "Names.h"
#include "SourceKey.h"
#include "Stored.h"

#include <storage/DocumentError.h>

#include <QCoreApplication>

#include <SQLiteCpp/Database.h>
#include <stdexcept>

using fiscora::Money;
using tallymere::engine::BudgetContent;
using tallymere::engine::PlannedItem;
using tallymere::engine::Posting;
using tallymere::engine::Settings;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::conversion::ConversionMap;
using tlm::foundation::Percentage;

namespace tallymere::storage {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("ContentWriter", text);
}

void requireFitting(PlannedItem const& item)
{
    auto const fits = [&item](Money const& money) { return money.code() == item.amount.code(); };
    if (item.debt.has_value() != (item.identifier.type == BudgetItemTypes::Debt) ||
        item.goalTotal.has_value() != (item.identifier.type == BudgetItemTypes::Goal) ||
        (item.debt && !fits(item.debt->borrowed)) || (item.goalTotal && !fits(*item.goalTotal))) {
        throw std::invalid_argument("An item's terms don't fit its type and its currency.");
    }
}

void bind(SQLite::Statement& row, int first, BudgetItemIdentifier const& identifier)
{
    row.bind(first, names::toName(identifier.type));
    row.bind(first + 1, stored(sourceKey(identifier.source.name())));
}

void bind(SQLite::Statement& row, int first, Percentage const& percentage)
{
    row.bind(first, percentage.rate());
    row.bind(first + 1, int{percentage.precision()});
}

void requireFound(int changes, BudgetItemIdentifier const& identifier)
{
    if (changes != 1) {
        throw DocumentError(tr("%1 isn't planned any more, so it can't be changed.").arg(identifier.source.name()));
    }
}
}

ContentWriter::ContentWriter(SQLite::Database& database)
    : database_(database),
      books_(database),
      postings_(database, books_),
      settings_(database,
                "INSERT OR REPLACE INTO settings (id, preferred_currency, display_currencies_as, balance_window, "
                "balance_window_decimals, due_within_days, working_hours_per_week, working_days_per_week, "
                "rates_fetched) VALUES (1, ?, ?, ?, ?, ?, ?, ?, "
                "ifnull((SELECT rates_fetched FROM settings), 0))"),
      usable_(database, "UPDATE currencies SET is_usable = 1 WHERE code = ?"),
      fetched_(database, "UPDATE settings SET rates_fetched = ?"),
      rate_(database, "INSERT INTO rates (from_currency, to_currency, rate, is_looked_up) VALUES (?, ?, ?, ?)"),
      add_(database,
           "INSERT INTO items (kind, source_key, source, currency, amount, period, anchored_on, next_occur_on, "
           "borrowed, interest, interest_decimals, goal_total, account) "
           "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      change_(database,
              "UPDATE items SET kind = ?, source_key = ?, source = ?, currency = ?, amount = ?, period = ?, "
              "anchored_on = ?, next_occur_on = ?, borrowed = ?, interest = ?, interest_decimals = ?, goal_total = ?, "
              "account = ? WHERE kind = ? AND source_key = ?"),
      remove_(database, "DELETE FROM items WHERE kind = ? AND source_key = ?")
{}

void ContentWriter::write(BudgetContent const& content, std::vector<Posting> const& postings)
{
    write(content.settings);
    write(content.rates);
    writePlan(content, postings);
}

void ContentWriter::writePlan(BudgetContent const& content, std::vector<Posting> const& postings)
{
    books_.write(content.books);
    for (auto const& entry : content.items) {
        add(entry.second);
    }
    for (auto const& posting : postings) {
        postings_.post(posting);
    }
}

void ContentWriter::write(Settings const& settings)
{
    writeUsable(settings.usable);
    auto& row = settings_.get();
    row.bind(1, fiscora::toStdString(settings.preferred));
    row.bind(2, names::toName(settings.displayAs));
    storage::bind(row, 3, settings.balanceWindow);
    row.bind(5, integer(settings.dueWithin.count()));
    row.bind(6, integer(settings.workingWeek.hours.count()));
    row.bind(7, integer(settings.workingWeek.days.count()));
    settings_.run();
}

void ContentWriter::writeUsable(std::set<fiscora::Currency> const& usable)
{
    database_.exec("UPDATE currencies SET is_usable = 0 WHERE is_usable");
    for (auto const code : usable) {
        usable_.get().bind(1, fiscora::toStdString(code));
        usable_.run();
    }
}

void ContentWriter::write(ConversionMap const& rates)
{
    database_.exec("DELETE FROM rates");
    for (auto const& [from, others] : rates.rates()) {
        for (auto const& [to, rate] : others) {
            auto& row = rate_.get();
            row.bind(1, fiscora::toStdString(from));
            row.bind(2, fiscora::toStdString(to));
            row.bind(3, rate.underlying());
            row.bind(4, int{rates.isLookedUp(from, to)});
            rate_.run();
        }
    }
    fetched_.get().bind(1, integer(rates.lastFetched().time_since_epoch().count()));
    fetched_.run();
}

void ContentWriter::bind(SQLite::Statement& row, PlannedItem const& item)
{
    requireFitting(item);
    row.clearBindings(); // what isn't bound stays NULL
    storage::bind(row, 1, item.identifier);
    row.bind(3, stored(item.identifier.source.name()));
    row.bind(4, fiscora::toStdString(item.amount.code()));
    row.bind(5, integer(item.amount.amount()));
    row.bind(6, names::toName(item.period));
    row.bind(7, stored(item.anchoredOn));
    row.bind(8, stored(item.nextOccurOn));
    if (item.debt) {
        row.bind(9, integer(item.debt->borrowed.amount()));
        storage::bind(row, 10, item.debt->interest);
    }
    if (item.goalTotal) {
        row.bind(12, integer(item.goalTotal->amount()));
    }
    row.bind(13, books_.accountId(item.account));
}

void ContentWriter::add(PlannedItem const& item)
{
    bind(add_.get(), item);
    add_.run();
}

void ContentWriter::change(BudgetItemIdentifier const& original, PlannedItem const& item)
{
    auto& row = change_.get();
    bind(row, item);
    storage::bind(row, 14, original);
    requireFound(change_.run(), original);
}

void ContentWriter::remove(BudgetItemIdentifier const& identifier)
{
    storage::bind(remove_.get(), 1, identifier);
    requireFound(remove_.run(), identifier);
}
}
