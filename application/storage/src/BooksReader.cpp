#include "BooksReader.h"

#include "Names.h"
#include "PostingRows.h"
#include "Rows.h"
#include "SourceKey.h"

#include <SQLiteCpp/Database.h>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

using fiscora::Money;
using tallymere::engine::BookAccount;
using tallymere::engine::Books;
using tallymere::engine::Posting;
using tallymere::engine::PostingId;
using tallymere::engine::Turnover;
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

/// A sum in which no part can overflow on the way, however postings follow each other.
struct WideSum
{
    static constexpr int bits = 32;

    std::int64_t high = 0; ///< counts 2^32
    std::int64_t low = 0;

    /// \throws UnsoundBudget when the sum leaves 64 bits
    std::int64_t whole() const
    {
        using Part = std::numeric_limits<std::int32_t>;
        auto const carried = high + (low >> bits);
        require(carried >= Part::min() && carried <= Part::max(), "more than an account can hold");
        return carried * (std::int64_t{1} << bits) + (low & std::numeric_limits<std::uint32_t>::max());
    }
};

struct Sum
{
    fiscora::Currency currency{};
    WideSum debited;
    std::size_t postings = 0;
};

std::map<AccountNumber, Sum> readSums(SQLite::Database const& database)
{
    std::map<AccountNumber, Sum> sums;
    SQLite::Statement row(
        database,
        "SELECT number, currency, high, low, count FROM ("
        "SELECT debiting AS account, sum(amount >> 32) AS high, sum(amount & 4294967295) AS low, count(*) AS count "
        "FROM postings GROUP BY debiting UNION ALL "
        "SELECT crediting, -sum(amount >> 32), -sum(amount & 4294967295), count(*) FROM postings GROUP BY crediting) "
        "CROSS JOIN accounts ON accounts.id = account");
    while (row.executeStep()) {
        auto& sum = sums[accountNumber(row, 0)];
        sum.currency = currency(row, 1);
        sum.debited.high += integer(row, 2);
        sum.debited.low += integer(row, 3);
        sum.postings += static_cast<std::size_t>(integer(row, 4));
    }
    return sums;
}

std::map<AccountNumber, Turnover> readTurnovers(SQLite::Database const& database)
{
    std::map<AccountNumber, Turnover> turnovers;
    for (auto const& [number, sum] : readSums(database)) {
        turnovers.emplace_hint(
            turnovers.end(), number,
            Turnover{.debited = Money::fromAmount(sum.currency, sum.debited.whole()), .postings = sum.postings});
    }
    return turnovers;
}

Posting readPosting(SQLite::Statement const& row)
{
    return {.occurredOn = date(row, 1),
            .debiting = accountNumber(row, 2),
            .crediting = accountNumber(row, 3),
            .amount = Money::fromAmount(currency(row, 5), integer(row, 4)),
            .description = text(row, 6),
            .status = names::toStatus(word(row, 7)),
            .madeFrom = optionalNumber(row, 8)};
}
}

Books readBooks(SQLite::Database const& database)
{
    return {.accounts = readAccounts(database), .banks = readBanks(database), .turnovers = readTurnovers(database)};
}

std::map<PostingId, Posting> readPostings(SQLite::Database const& database, AccountNumber number)
{
    std::map<PostingId, Posting> postings;
    SQLite::Statement row(database, std::string(postingRows) +
                                        " WHERE debiting = (SELECT id FROM accounts WHERE number = ?1) "
                                        "OR crediting = (SELECT id FROM accounts WHERE number = ?1)");
    row.bind(1, number.integer());
    while (row.executeStep()) {
        postings.emplace(PostingId{integer(row, 0)}, readPosting(row));
    }
    return postings;
}
}
