#include "BooksWriter.h"

#include "Names.h"
#include "SourceKey.h"
#include "Stored.h"

#include <storage/DocumentError.h>
#include <tlm/foundation/ScopeExecutor.h>

#include <QCoreApplication>

#include <SQLiteCpp/Column.h>
#include <optional>
#include <string>

using tallymere::engine::BookAccount;
using tallymere::engine::Books;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankName;
using tlm::foundation::ScopeExecutor;

namespace tallymere::storage {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("BooksWriter", text);
}

void require(bool isFound, QString const& missing)
{
    if (!isFound) {
        throw DocumentError(missing);
    }
}

QString missing(AccountNumber const& number)
{
    return tr("The books have no account %1 any more. Choose another account.").arg(number.integer());
}

QString missing(BankName const& name)
{
    return tr("%1 isn't among the banks any more. Choose another bank.").arg(name.institution());
}

void bind(SQLite::Statement& row, BankName const& name)
{
    row.bind(1, stored(sourceKey(name.institution())));
}

void bind(SQLite::Statement& row, Bank const& bank)
{
    bind(row, bank.name);
    row.bind(2, stored(bank.name.institution()));
    row.bind(3, int{bank.isClosed()});
}

/// \return the key that \a statement finds with what is bound to it
std::int64_t foundId(LazyStatement& statement, QString const& missing)
{
    auto& row = statement.get();
    ScopeExecutor const ready([&row] { row.tryReset(); });
    require(row.executeStep(), missing);
    return row.getColumn(0).getInt64();
}
}

BooksWriter::BooksWriter(SQLite::Database& database)
    : database_(database),
      accountId_(database, "SELECT id FROM accounts WHERE number = ?"),
      addAccount_(database, "INSERT INTO accounts (number, name, parent, type, is_closed, purpose, currency) "
                            "VALUES (?, ?, ?, ?, ?, ?, ?)"),
      changeAccount_(database, "UPDATE accounts SET number = ?, name = ?, parent = ?, type = ?, is_closed = ?, "
                               "purpose = ? WHERE number = ?"),
      changeCurrency_(database, "UPDATE accounts SET currency = ?1 WHERE number = ?2 AND currency <> ?1"),
      removeAccount_(database, "DELETE FROM accounts WHERE number = ?"),
      bankId_(database, "SELECT id FROM banks WHERE name_key = ?"),
      addBank_(database, "INSERT INTO banks (name_key, name, is_closed) VALUES (?, ?, ?)"),
      changeBank_(database, "UPDATE banks SET name_key = ?, name = ?, is_closed = ? WHERE id = ?"),
      removeBank_(database, "DELETE FROM banks WHERE id = ?"),
      addBankAccount_(database, "INSERT INTO bank_accounts (account, bank, kind) VALUES (?, ?, ?)"),
      removeBankAccounts_(database, "DELETE FROM bank_accounts WHERE bank = ?")
{}

void BooksWriter::write(Books const& books)
{
    for (auto const& entry : books.accounts) {
        auto account = entry.second; // parents are set when all are there
        account.code = AccountCode(account.code.number(), account.code.name(), std::nullopt);
        add(account);
    }
    for (auto const& [number, account] : books.accounts) {
        if (account.code.parent()) {
            change(number, account);
        }
    }
    for (auto const& entry : books.banks) {
        add(entry.second);
    }
}

void BooksWriter::bind(SQLite::Statement& row, BookAccount const& account)
{
    row.clearBindings();
    row.bind(1, account.code.number().integer());
    row.bind(2, stored(account.code.name()));
    if (auto const& parent = account.code.parent()) {
        row.bind(3, accountId(*parent));
    }
    row.bind(4, names::toName(account.type));
    row.bind(5, int{account.isClosed});
    row.bind(6, names::toName(account.purpose));
}

void BooksWriter::add(BookAccount const& account)
{
    auto& row = addAccount_.get();
    bind(row, account);
    row.bind(7, fiscora::toStdString(account.currency));
    addAccount_.run();
}

void BooksWriter::change(AccountNumber const& original, BookAccount const& account)
{
    // On its own: all postings to the account are looked through when its currency is written.
    changeCurrency_.get().bind(1, fiscora::toStdString(account.currency));
    changeCurrency_.get().bind(2, original.integer());
    changeCurrency_.run();
    auto& row = changeAccount_.get();
    bind(row, account);
    row.bind(7, original.integer());
    require(changeAccount_.run() == 1, missing(original));
    isRenumbered_ |= account.code.number() != original;
}

void BooksWriter::remove(AccountNumber const& number)
{
    removeAccount_.get().bind(1, number.integer());
    require(removeAccount_.run() == 1, missing(number));
}

std::int64_t BooksWriter::accountId(AccountNumber const& number)
{
    accountId_.get().bind(1, number.integer());
    return foundId(accountId_, missing(number));
}

std::int64_t BooksWriter::bankId(BankName const& name)
{
    storage::bind(bankId_.get(), name);
    return foundId(bankId_, missing(name));
}

void BooksWriter::add(Bank const& bank)
{
    storage::bind(addBank_.get(), bank);
    addBank_.run();
    writeAccounts(database_.getLastInsertRowid(), bank);
}

void BooksWriter::change(BankName const& original, Bank const& bank)
{
    auto const id = bankId(original);
    auto& row = changeBank_.get();
    storage::bind(row, bank);
    row.bind(4, id);
    changeBank_.run();
    writeAccounts(id, bank);
}

void BooksWriter::writeAccounts(std::int64_t bank, Bank const& kept)
{
    removeBankAccounts_.get().bind(1, bank);
    removeBankAccounts_.run();
    for (auto const& [number, kind] : kept.accounts()) {
        auto const account = accountId(number);
        auto& row = addBankAccount_.get();
        row.bind(1, account);
        row.bind(2, bank);
        row.bind(3, names::toName(kind));
        addBankAccount_.run();
    }
}

void BooksWriter::remove(BankName const& name)
{
    auto const id = bankId(name);
    removeBankAccounts_.get().bind(1, id);
    removeBankAccounts_.run();
    removeBank_.get().bind(1, id);
    removeBank_.run();
}
}
