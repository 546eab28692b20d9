#pragma once

#include "LazyStatement.h"
#include "PostingsDigest.h"
#include "Walk.h"

#include <engine/Posting.h>

#include <utility>

namespace tallymere::storage {

class BooksWriter;

/// Writes changes of a budget's postings into a database, within the transaction that the caller has begun.
///
/// Throws as ContentWriter does.
class PostingsWriter
{
public:
    /// \param database has the tables of a budget and outlives the writer
    /// \param books of the same database, which outlive the writer
    PostingsWriter(SQLite::Database& database, BooksWriter& books);

    engine::PostingId post(engine::Posting const& posting);
    void change(engine::PostingId const& id, engine::Posting const& posting);
    void remove(engine::PostingId const& id);

    /// \return what came less what went since this was asked last
    PostingsDigest takeChange() { return std::exchange(change_, {}); }

private:
    PostingsDigest without(engine::PostingId const& id, QString const& missing);
    PostingsDigest bind(SQLite::Statement& row, engine::Posting const& posting);

    SQLite::Database& database_;
    BooksWriter& books_;
    PostingsDigest change_;
    LazyStatement post_;
    LazyStatement update_;
    LazyStatement remove_;
    Walk posted_;
};
}
