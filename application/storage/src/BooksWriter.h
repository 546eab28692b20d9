#pragma once

#include "LazyStatement.h"
#include "PostingsDigest.h"

#include <engine/Books.h>
#include <engine/Posting.h>

#include <SQLiteCpp/Database.h>
#include <cstdint>
#include <utility>

namespace tallymere::storage {

/// Writes changes of a budget's books into a database, within the transaction that the caller has begun.
///
/// Throws as ContentWriter does.
class BooksWriter
{
public:
    /// \param database has the tables of a budget and outlives the writer
    explicit BooksWriter(SQLite::Database& database);

    /// Writes \a books, but not the postings, into a database without any.
    void write(engine::Books const& books);

    void add(engine::BookAccount const& account);
    void change(tlm::accounting::AccountNumber const& original, engine::BookAccount const& account);
    void remove(tlm::accounting::AccountNumber const& number);

    void add(tlm::banking::Bank const& bank);
    void change(tlm::banking::BankName const& original, tlm::banking::Bank const& bank);
    void remove(tlm::banking::BankName const& name);

    engine::PostingId post(engine::Posting const& posting);
    void remove(engine::PostingId const& id);

    /// \return the key by which other rows tell of the account
    /// \throws DocumentError when there is none of \a number
    std::int64_t accountId(tlm::accounting::AccountNumber const& number);

    /// \return what was posted and removed since this was asked last
    PostingsChange takePostingsChange() { return std::exchange(postingsChange_, {}); }

private:
    using DigestChange = void (PostingsDigest::*)(SQLite::Statement const&);

    std::int64_t bankId(tlm::banking::BankName const& name);
    void bind(SQLite::Statement& row, engine::BookAccount const& account);
    void writeAccounts(std::int64_t bank, tlm::banking::Bank const& kept);
    void follow(engine::PostingId const& id, DigestChange followUp);

    SQLite::Database& database_;
    PostingsChange postingsChange_;
    LazyStatement accountId_;
    LazyStatement addAccount_;
    LazyStatement changeAccount_;
    LazyStatement changeCurrency_;
    LazyStatement removeAccount_;
    LazyStatement bankId_;
    LazyStatement addBank_;
    LazyStatement changeBank_;
    LazyStatement removeBank_;
    LazyStatement addBankAccount_;
    LazyStatement removeBankAccounts_;
    LazyStatement post_;
    LazyStatement posted_;
    LazyStatement removePosting_;
};
}
