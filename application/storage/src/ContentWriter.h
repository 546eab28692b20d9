#pragma once

#include <engine/BudgetContent.h>

#include <SQLiteCpp/Statement.h>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

/// Writes changes of a budget into a database, within the transaction that the caller has begun.
///
/// \throws SQLite::Exception when a change breaks a rule of the file
/// \throws DocumentError when the file can't tell a value, or an item isn't there
class ContentWriter
{
public:
    /// \param database has the tables of a budget and outlives the writer
    explicit ContentWriter(SQLite::Database& database);

    void write(engine::BudgetContent const& content);
    void write(engine::Settings const& settings);
    void write(tlm::conversion::ConversionMap const& rates);
    void add(engine::PlannedItem const& item);
    void change(tlm::budgeting::BudgetItemIdentifier const& original, engine::PlannedItem const& item);
    void remove(tlm::budgeting::BudgetItemIdentifier const& identifier);

private:
    void writeUsable(std::set<fiscora::Currency> const& usable);

    SQLite::Database& database_;
    SQLite::Statement settings_;
    SQLite::Statement usable_;
    SQLite::Statement fetched_;
    SQLite::Statement rate_;
    SQLite::Statement add_;
    SQLite::Statement change_;
    SQLite::Statement remove_;
};
}
