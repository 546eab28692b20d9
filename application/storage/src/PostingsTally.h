#pragma once

#include "PostingsDigest.h"

#include <engine/Books.h>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

namespace SQLite {
class Database;
}

namespace tallymere::storage {

class SweptRow;

/// What all postings of a budget come to, for which they are read once.
class PostingsTally
{
public:
    /// \param database has the tables of a budget, whose values are of the types that they should be, and outlives the tally
    /// \throws UnsoundBudget when a posting breaks a rule of its table or doesn't fit its accounts
    explicit PostingsTally(SQLite::Database const& database);

    /// \return the turnovers of the accounts that have postings, and no others
    /// \throws UnsoundBudget when one is more than an account can hold
    std::map<tlm::accounting::AccountNumber, engine::Turnover> turnovers() const;

    PostingsDigest const& digest() const { return digest_; }

    /// Goes once through each index in its own order, which is far quicker than to look each posting up in it.
    /// \throws UnsoundBudget unless each index of the present version lists every posting in its order, once, and nothing else
    void requireIndexed() const;

private:
    /// A sum in which no part can overflow on the way, however postings follow each other.
    struct WideSum
    {
        std::int64_t high = 0; ///< counts 2^32
        std::int64_t low = 0;

        void add(std::int64_t amount);
        std::int64_t whole() const;
    };

    struct Account
    {
        std::int64_t number = 0;
        std::string currency;
        WideSum debited;
        std::size_t postings = 0;
    };

    /// The text of a day as numbers, which are quicker to compare and of the same order. All are 0 for none.
    struct Day
    {
        std::uint64_t start = 0;
        std::uint16_t rest = 0;

        static Day of(std::string_view text);
        friend auto operator<=>(Day const&, Day const&) = default;
    };

    /// What an index tells of a posting, in the index's order.
    struct Entry
    {
        std::int64_t account = 0;
        Day day;
        std::int64_t id = 0;

        friend auto operator<=>(Entry const&, Entry const&) = default;
    };

    /// What an index should hold, or does, in whatever order it came.
    struct Entries
    {
        std::uint64_t sum = 0;
        std::size_t count = 0;

        void add(Entry const& entry);
        friend bool operator==(Entries const&, Entries const&) = default;
    };

    void readAccounts();
    void add(SweptRow const& row);
    std::int64_t turnOver(std::int64_t id, std::string_view currency, std::int64_t debited);
    Account& find(std::int64_t id);
    Entries entriesOf(std::string const& columns, std::string const& source) const;

    SQLite::Database const& database_;
    std::unordered_map<std::int64_t, Account> accounts_; ///< by what postings refer to
    PostingsDigest digest_;
    Entries debits_;
    Entries credits_;
    Entries origins_;
};
}
