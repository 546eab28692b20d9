#include "BooksReader.h"

#include "Names.h"
#include "PostingsTally.h"
#include "Rows.h"
#include "SourceKey.h"

#include <SQLiteCpp/Database.h>
#include <cstdint>
#include <optional>
#include <utility>

using tallymere::engine::BookAccount;
using tallymere::engine::Books;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankMap;
using tlm::banking::BankName;

namespace tallymere::storage {

using namespace rows;

namespace {

AccountNumber accountNumber(SQLite::Statement const& row, int column)
{
    return AccountNumber(row.getColumn(column).getUInt());
}

std::optional<AccountNumber> optionalNumber(SQLite::Statement const& row, int column)
{
    return isNull(row, column) ? std::nullopt : std::optional(accountNumber(row, column));
}

std::map<AccountNumber, BookAccount> readAccounts(SQLite::Database const& database)
{
    std::map<AccountNumber, BookAccount> accounts;
    SQLite::Statement row(database, "SELECT a.number, a.name, p.number, a.type, a.currency, a.is_closed, a.purpose "
                                    "FROM accounts AS a LEFT JOIN accounts AS p ON p.id = a.parent ORDER BY a.number");
    while (row.executeStep()) {
        auto const number = accountNumber(row, 0);
        accounts.emplace_hint(accounts.end(), number,
                              BookAccount{.code = AccountCode(number, text(row, 1), optionalNumber(row, 2)),
                                          .type = names::toAccountType(word(row, 3)),
                                          .currency = currency(row, 4),
                                          .isClosed = rows::number(row, 5) == 1,
                                          .purpose = names::toPurpose(word(row, 6))});
    }
    return accounts;
}

using BankAccounts = std::map<AccountNumber, BankAccountTypes>;

std::map<std::int64_t, BankAccounts> readBankAccounts(SQLite::Database const& database)
{
    std::map<std::int64_t, BankAccounts> found;
    SQLite::Statement row(database,
                          "SELECT bank, number, kind FROM bank_accounts CROSS JOIN accounts ON accounts.id = account");
    while (row.executeStep()) {
        found[integer(row, 0)].emplace(accountNumber(row, 1), names::toBankAccountType(word(row, 2)));
    }
    return found;
}

BankMap readBanks(SQLite::Database const& database)
{
    BankMap banks;
    auto accounts = readBankAccounts(database);
    SQLite::Statement row(database, "SELECT id, name, name_key, is_closed FROM banks");
    while (row.executeStep()) {
        require(text(row, 2) == sourceKey(text(row, 1)), "a bank under another key");
        BankName const name(text(row, 1));
        banks.emplace(name, Bank(name, std::move(accounts[integer(row, 0)]), rows::number(row, 3) == 1));
    }
    return banks;
}
}

Books readBooks(SQLite::Database const& database, PostingsTally const& postings)
{
    return {.accounts = readAccounts(database), .banks = readBanks(database), .turnovers = postings.turnovers()};
}
}
