#pragma once

#include "LazyStatement.h"

#include <engine/Books.h>

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

    /// \return the key by which other rows tell of the account
    /// \throws DocumentError when there is none of \a number
    std::int64_t accountId(tlm::accounting::AccountNumber const& number);

    /// \return whether an account got another number since this was asked last, which its postings tell of
    bool takeRenumbering() { return std::exchange(isRenumbered_, false); }

private:
    std::int64_t bankId(tlm::banking::BankName const& name);
    void bind(SQLite::Statement& row, engine::BookAccount const& account);
    void writeAccounts(std::int64_t bank, tlm::banking::Bank const& kept);

    SQLite::Database& database_;
    bool isRenumbered_ = false;
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
};
}
