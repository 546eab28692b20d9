#include "ContentWriter.h"

#include "Names.h"
#include "SourceKey.h"

#include <storage/DocumentError.h>
#include <tlm/foundation/ScopeExecutor.h>

#include <QCoreApplication>

#include <SQLiteCpp/Database.h>
#include <cstdint>
#include <stdexcept>
#include <string>

using fiscora::Money;
using tallymere::engine::BudgetContent;
using tallymere::engine::PlannedItem;
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

std::int64_t integer(long long number)
{
    return number;
}

/// \return \a text as the file holds it, from which it can be read back to the letter
std::string stored(QString const& text)
{
    auto const bytes = text.toUtf8();
    if (text.contains(QChar::Null) || QString::fromUtf8(bytes) != text) {
        throw DocumentError(tr("The name holds a character that can't be stored. Write it without."));
    }
    return bytes.toStdString();
}

std::string stored(QDate const& date)
{
    return date.toString(Qt::ISODate).toStdString();
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

/// What isn't bound stays NULL.
void bind(SQLite::Statement& row, PlannedItem const& item)
{
    requireFitting(item);
    row.clearBindings();
    bind(row, 1, item.identifier);
    row.bind(3, stored(item.identifier.source.name()));
    row.bind(4, fiscora::toStdString(item.amount.code()));
    row.bind(5, integer(item.amount.amount()));
    row.bind(6, names::toName(item.period));
    row.bind(7, stored(item.anchoredOn));
    row.bind(8, stored(item.nextOccurOn));
    if (item.debt) {
        row.bind(9, integer(item.debt->borrowed.amount()));
        bind(row, 10, item.debt->interest);
    }
    if (item.goalTotal) {
        row.bind(12, integer(item.goalTotal->amount()));
    }
}

/// Runs \a statement with what is bound to it, and makes it ready to be bound again, whatever happens.
/// \return number of rows changed
int run(SQLite::Statement& statement)
{
    tlm::foundation::ScopeExecutor const ready([&statement] { statement.tryReset(); });
    return statement.exec();
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
           "borrowed, interest, interest_decimals, goal_total) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      change_(database,
              "UPDATE items SET kind = ?, source_key = ?, source = ?, currency = ?, amount = ?, period = ?, "
              "anchored_on = ?, next_occur_on = ?, borrowed = ?, interest = ?, interest_decimals = ?, goal_total = ? "
              "WHERE kind = ? AND source_key = ?"),
      remove_(database, "DELETE FROM items WHERE kind = ? AND source_key = ?")
{}

void ContentWriter::write(BudgetContent const& content)
{
    write(content.settings);
    write(content.rates);
    for (auto const& [identifier, item] : content.items) {
        add(item);
    }
}

void ContentWriter::write(Settings const& settings)
{
    writeUsable(settings.usable);
    settings_.bind(1, fiscora::toStdString(settings.preferred));
    settings_.bind(2, names::toName(settings.displayAs));
    bind(settings_, 3, settings.balanceWindow);
    settings_.bind(5, integer(settings.dueWithin.count()));
    settings_.bind(6, integer(settings.workingWeek.hours.count()));
    settings_.bind(7, integer(settings.workingWeek.days.count()));
    run(settings_);
}

void ContentWriter::writeUsable(std::set<fiscora::Currency> const& usable)
{
    database_.exec("UPDATE currencies SET is_usable = 0 WHERE is_usable");
    for (auto const code : usable) {
        usable_.bind(1, fiscora::toStdString(code));
        run(usable_);
    }
}

void ContentWriter::write(ConversionMap const& rates)
{
    database_.exec("DELETE FROM rates");
    for (auto const& [from, row] : rates.rates()) {
        for (auto const& [to, rate] : row) {
            rate_.bind(1, fiscora::toStdString(from));
            rate_.bind(2, fiscora::toStdString(to));
            rate_.bind(3, rate.underlying());
            rate_.bind(4, int{rates.isLookedUp(from, to)});
            run(rate_);
        }
    }
    fetched_.bind(1, integer(rates.lastFetched().time_since_epoch().count()));
    run(fetched_);
}

void ContentWriter::add(PlannedItem const& item)
{
    bind(add_, item);
    run(add_);
}

void ContentWriter::change(BudgetItemIdentifier const& original, PlannedItem const& item)
{
    bind(change_, item);
    bind(change_, 13, original);
    requireFound(run(change_), original);
}

void ContentWriter::remove(BudgetItemIdentifier const& identifier)
{
    bind(remove_, 1, identifier);
    requireFound(run(remove_), identifier);
}
}
