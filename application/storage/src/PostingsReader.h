#pragma once

#include "Walk.h"

#include <engine/Posting.h>

#include <cstddef>
#include <map>
#include <optional>

namespace tallymere::storage {

/// Reads postings of a database that was found to be sound.
class PostingsReader
{
public:
    /// \param database has the tables of a budget of the present version and outlives the reader
    explicit PostingsReader(SQLite::Database const& database);

    /// \return none when there is no such posting
    std::optional<engine::Posting> posting(engine::PostingId const& id);

    /// Reads no more postings than it returns, however many the account has.
    /// \return the \a most latest postings that debit or credit the account of \a number, by day, and by identifier within a
    ///         day
    std::map<engine::PostingId, engine::Posting> latest(tlm::accounting::AccountNumber const& number, std::size_t most);

private:
    Walk one_;
    Walk latest_;
};
}
