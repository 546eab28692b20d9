#include "PostingsReader.h"

#include "Days.h"
#include "Names.h"
#include "PostingWords.h"

#include <tlm/foundation/ScopeExecutor.h>

#include <QString>

#include <algorithm>
#include <limits>
#include <string>

using fiscora::Money;
using tallymere::engine::Posting;
using tallymere::engine::PostingId;
using tlm::accounting::AccountNumber;
using tlm::foundation::ScopeExecutor;

namespace tallymere::storage {

namespace {

// Each half comes out of its index in order already, so that the two are merged, and reading ends with the last one wanted.
std::string latestOfBothSides()
{
    auto const side = [](std::string const& column) {
        return "SELECT postings.id AS id, occurred_on, d.number, c.number, amount, postings.currency, description, "
               "status, "
               "m.number FROM postings INDEXED BY postings_" +
               column +
               " CROSS JOIN accounts AS d ON d.id = debiting CROSS JOIN accounts AS c ON c.id = crediting "
               "LEFT JOIN accounts AS m ON m.id = made_from "
               "WHERE " +
               column + " = (SELECT id FROM accounts WHERE number = ?1) ";
    };
    return side("debiting") + "UNION ALL " + side("crediting") + "ORDER BY occurred_on DESC, id DESC LIMIT ?2";
}

AccountNumber accountNumber(std::int64_t number)
{
    return AccountNumber(static_cast<unsigned int>(number));
}

QString toText(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

Posting postingOf(PostingWords const& words)
{
    return {.occurredOn = days::toDay(words.day),
            .debiting = accountNumber(words.debiting),
            .crediting = accountNumber(words.crediting),
            .amount = Money::fromAmount(fiscora::toCurrency(std::string(words.currency)), words.amount),
            .description = toText(words.description),
            .status = names::toStatus(words.status),
            .madeFrom = words.madeFrom == 0 ? std::nullopt : std::optional(accountNumber(words.madeFrom))};
}
}

PostingsReader::PostingsReader(SQLite::Database const& database)
    : one_(database, std::string(postingRows) + " WHERE postings.id = ?1"), latest_(database, latestOfBothSides())
{}

std::optional<Posting> PostingsReader::posting(PostingId const& id)
{
    ScopeExecutor const ready([this] { one_.end(); });
    one_.begin({id.value});
    return one_.next() ? std::optional(postingOf(wordsOf(one_))) : std::nullopt;
}

std::map<PostingId, Posting> PostingsReader::latest(AccountNumber const& number, std::size_t most)
{
    constexpr auto all = std::numeric_limits<std::int64_t>::max();
    std::map<PostingId, Posting> postings;
    ScopeExecutor const ready([this] { latest_.end(); });
    latest_.begin({number.integer(), static_cast<std::int64_t>(std::min<std::uint64_t>(most, all))});
    while (latest_.next()) {
        postings.emplace(PostingId{latest_.integer(0)}, postingOf(wordsOf(latest_)));
    }
    return postings;
}
}
