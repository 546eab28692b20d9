#include "PostingsTally.h"

#include "Days.h"
#include "Names.h"
#include "OrUnsound.h"
#include "PostingWords.h"
#include "Rows.h"
#include "Scrambled.h"
#include "Stored.h"
#include "Sweep.h"
#include "Walk.h"

#include <fiscora/Money.h>

#include <QtEndian>

#include <limits>

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
}

void PostingsTally::WideSum::add(std::int64_t amount)
{
    high += amount >> halfOfBits;
    low += amount & lowHalf;
}

/// \throws UnsoundBudget when the sum, or what the other side would tell of it, leaves 64 bits
std::int64_t PostingsTally::WideSum::whole() const
{
    using Part = std::numeric_limits<std::int32_t>;
    auto const carried = high + (low >> halfOfBits);
    auto const rest = low & lowHalf;
    auto const hasNoCounterpart = carried == Part::min() && rest == 0;
    require(carried >= Part::min() && carried <= Part::max() && !hasNoCounterpart, "more than an account can hold");
    return carried * (std::int64_t{1} << halfOfBits) + rest;
}

PostingsTally::Day PostingsTally::Day::of(std::string_view text)
{
    if (text.empty()) {
        return {};
    }
    require(text.size() == days::length, "an index with something else than days");
    return {qFromBigEndian<std::uint64_t>(text.data()),
            qFromBigEndian<std::uint16_t>(text.data() + sizeof(std::uint64_t))};
}

/// The factors are any odd numbers: entries that differ little then give sums that differ in all.
void PostingsTally::Entries::add(Entry const& entry)
{
    sum += scrambled(unsignedOf(entry.account) * 0x9E37'79B9'7F4A'7C15 + unsignedOf(entry.id) * 0xC2B2'AE3D'27D4'EB4F +
                     entry.day.start * 0xD6E8'FEB8'6659'FD93 + entry.day.rest);
    ++count;
}

PostingsTally::PostingsTally(SQLite::Database const& database) : database_(database)
{
    readAccounts();
    orUnsound([this] {
        sweep(database_, "id, occurred_on, debiting, crediting, amount, currency, description, status, made_from",
              "FROM postings NOT INDEXED", [this](SweptRow const& row) { add(row); });
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

void PostingsTally::add(SweptRow const& row)
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
    require(isStorable(words.description), "no text");
    names::toStatus(words.status);
    words.debiting = turnOver(debiting, words.currency, words.amount);
    words.crediting = turnOver(crediting, words.currency, -words.amount);
    auto const day = Day::of(words.day);
    debits_.add({debiting, day, id});
    credits_.add({crediting, day, id});
    if (!row.isNull(8)) {
        words.madeFrom = find(row.integer(8)).number;
        origins_.add({row.integer(8), {}, id});
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
        entriesOf("debiting, occurred_on, id", "FROM postings INDEXED BY postings_debiting") == debits_ &&
        entriesOf("crediting, occurred_on, id", "FROM postings INDEXED BY postings_crediting") == credits_ &&
        entriesOf("made_from, NULL, id", "FROM postings INDEXED BY postings_made_from WHERE made_from IS NOT NULL") ==
            origins_;
    require(isIndexed, "an index lists other postings");
}

/// \throws UnsoundBudget when they aren't in order
PostingsTally::Entries PostingsTally::entriesOf(std::string const& columns, std::string const& source) const
{
    Entries entries;
    Entry last{.account = std::numeric_limits<std::int64_t>::min(), .day = {}, .id = 0};
    sweep(database_, columns, source, [&](SweptRow const& row) {
        require(row.isInteger(0) && (row.isText(1) || row.isNull(1)), "an index with other values");
        Entry const entry{.account = row.integer(0), .day = Day::of(row.text(1)), .id = row.integer(2)};
        require(last < entry, "an index without order");
        entries.add(entry);
        last = entry;
    });
    return entries;
}
}
