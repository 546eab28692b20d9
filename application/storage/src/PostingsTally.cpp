#include "PostingsTally.h"

#include "Days.h"
#include "Names.h"
#include "OrUnsound.h"
#include "PostingWords.h"
#include "Rows.h"
#include "Scrambled.h"
#include "Walk.h"

#include <fiscora/Money.h>

#include <cstring>
#include <limits>
#include <tuple>

using fiscora::Money;
using tallymere::engine::Turnover;
using tlm::accounting::AccountNumber;

namespace tallymere::storage {

using rows::require;

namespace {

constexpr int halfOfBits = 32;
constexpr std::int64_t lowHalf = std::numeric_limits<std::uint32_t>::max();

std::uint64_t unsignedOf(std::int64_t number)
{
    return static_cast<std::uint64_t>(number);
}

/// \return a number that is another one for each day, and 0 for none
std::uint64_t numberOfDay(std::string_view day)
{
    if (day.empty()) {
        return 0;
    }
    require(day.size() == days::length, "an index with something else than days");
    std::uint64_t start = 0;
    std::uint16_t rest = 0;
    std::memcpy(&start, day.data(), sizeof start);
    std::memcpy(&rest, day.data() + sizeof start, sizeof rest);
    return scrambled(start) + rest;
}
}

void PostingsTally::WideSum::add(std::int64_t amount)
{
    high += amount >> halfOfBits;
    low += amount & lowHalf;
}

/// \throws UnsoundBudget when the sum leaves 64 bits
std::int64_t PostingsTally::WideSum::whole() const
{
    using Part = std::numeric_limits<std::int32_t>;
    auto const carried = high + (low >> halfOfBits);
    require(carried >= Part::min() && carried <= Part::max(), "more than an account can hold");
    return carried * (std::int64_t{1} << halfOfBits) + (low & lowHalf);
}

void PostingsTally::Entries::add(std::int64_t account, std::string_view day, std::int64_t id)
{
    sum += scrambled(scrambled(scrambled(unsignedOf(account)) + numberOfDay(day)) + unsignedOf(id));
    ++count;
}

PostingsTally::PostingsTally(SQLite::Database const& database) : database_(database)
{
    readAccounts();
    Walk row(database, "SELECT id, occurred_on, debiting, crediting, amount, currency, description, status, made_from "
                       "FROM postings NOT INDEXED");
    row.begin();
    orUnsound([this, &row] {
        while (row.next()) {
            add(row);
        }
    });
}

void PostingsTally::readAccounts()
{
    Walk row(database_, "SELECT id, number, currency FROM accounts");
    row.begin();
    while (row.next()) {
        auto& account = accounts_[row.integer(0)];
        account.number = row.integer(1);
        account.currency = row.text(2);
    }
}

void PostingsTally::add(Walk const& row)
{
    auto const id = row.integer(0);
    auto const debiting = row.integer(2);
    auto const crediting = row.integer(3);
    PostingWords words{.day = row.text(1),
                       .amount = row.integer(4),
                       .currency = row.text(5),
                       .description = row.text(6),
                       .status = row.text(7)};
    require(id > 0 && words.amount > 0 && debiting != crediting && days::isDay(words.day), "a posting breaks a rule");
    names::toStatus(words.status);
    words.debiting = turnOver(debiting, words.currency, words.amount);
    words.crediting = turnOver(crediting, words.currency, -words.amount);
    debits_.add(debiting, words.day, id);
    credits_.add(crediting, words.day, id);
    if (!row.isNull(8)) {
        words.madeFrom = find(row.integer(8)).number;
        origins_.add(row.integer(8), {}, id);
    }
    digest_.add(words);
}

/// Counts a posting in the account of \a id.
/// \return the account's number
std::int64_t PostingsTally::turnOver(std::int64_t id, std::string_view currency, std::int64_t debited)
{
    auto& account = find(id);
    require(account.currency == currency, "a posting in another currency than its account's");
    account.debited.add(debited);
    ++account.postings;
    return account.number;
}

PostingsTally::Account& PostingsTally::find(std::int64_t id)
{
    auto const found = accounts_.find(id);
    require(found != accounts_.end(), "a posting refers to no account");
    return found->second;
}

std::map<AccountNumber, Turnover> PostingsTally::turnovers() const
{
    std::map<AccountNumber, Turnover> turnovers;
    for (auto const& [id, account] : accounts_) {
        if (account.postings > 0) {
            turnovers.emplace(
                AccountNumber(static_cast<unsigned int>(account.number)),
                Turnover{.debited = Money::fromAmount(fiscora::toCurrency(account.currency), account.debited.whole()),
                         .postings = account.postings});
        }
    }
    return turnovers;
}

void PostingsTally::requireIndexed() const
{
    // Each query finds all that it asks for in its index, and so never looks at the table.
    auto const isIndexed =
        entriesOf("SELECT debiting, occurred_on, id FROM postings INDEXED BY postings_debiting") == debits_ &&
        entriesOf("SELECT crediting, occurred_on, id FROM postings INDEXED BY postings_crediting") == credits_ &&
        entriesOf("SELECT made_from, NULL, id FROM postings INDEXED BY postings_made_from "
                  "WHERE made_from IS NOT NULL") == origins_;
    require(isIndexed, "an index lists other postings");
}

/// \throws UnsoundBudget when they aren't in order
PostingsTally::Entries PostingsTally::entriesOf(std::string const& query) const
{
    Entries entries;
    auto lastAccount = std::numeric_limits<std::int64_t>::min();
    std::string lastDay;
    std::int64_t lastId = 0;
    Walk row(database_, query);
    row.begin();
    while (row.next()) {
        auto const account = row.integer(0);
        auto const day = row.text(1);
        auto const id = row.integer(2);
        require(row.isInteger(0) && (row.isText(1) || row.isNull(1)), "an index with other values");
        require(std::tuple(lastAccount, std::string_view(lastDay), lastId) < std::tuple(account, day, id),
                "an index without order");
        entries.add(account, day, id);
        lastAccount = account;
        lastDay = day;
        lastId = id;
    }
    return entries;
}
}
