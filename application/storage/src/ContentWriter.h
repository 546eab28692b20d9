#pragma once

#include "BooksWriter.h"
#include "LazyStatement.h"
#include "PostingsWriter.h"

#include <engine/BudgetContent.h>
#include <engine/Posting.h>

#include <set>
#include <vector>

namespace tallymere::storage {

/// Writes changes of a budget into a database, within the transaction that the caller has begun.
///
/// \throws SQLite::Exception when a change breaks a rule of the file
/// \throws DocumentError when the file can't tell a value, or what is changed isn't there
class ContentWriter
{
public:
    /// \param database has the tables of a budget and outlives the writer
    explicit ContentWriter(SQLite::Database& database);

    /// Writes a whole budget into a database without any. Nobody looks whether the turnovers count \a postings.
    void write(engine::BudgetContent const& content, std::vector<engine::Posting> const& postings);
    /// Writes all of \a content but settings and rates.
    void writePlan(engine::BudgetContent const& content, std::vector<engine::Posting> const& postings);
    void write(engine::Settings const& settings);
    void write(tlm::conversion::ConversionMap const& rates);
    void add(engine::PlannedItem const& item);
    void change(tlm::budgeting::BudgetItemIdentifier const& original, engine::PlannedItem const& item);
    void remove(tlm::budgeting::BudgetItemIdentifier const& identifier);

    BooksWriter& books() { return books_; }
    PostingsWriter& postings() { return postings_; }

private:
    void bind(SQLite::Statement& row, engine::PlannedItem const& item);
    void writeUsable(std::set<fiscora::Currency> const& usable);

    SQLite::Database& database_;
    BooksWriter books_;
    PostingsWriter postings_;
    LazyStatement settings_;
    LazyStatement usable_;
    LazyStatement fetched_;
    LazyStatement rate_;
    LazyStatement add_;
    LazyStatement change_;
    LazyStatement remove_;
};
}
