#include "BooksAudit.h"

#include <presenter/Session.h>
#include <tlm/foundation/PresentationText.h>

#include <QFile>

#include <cstdint>
#include <map>

namespace tallymere {

namespace {

using fiscora::Currency;
using tlm::accounting::AccountNumber;
using tlm::foundation::presentationText;

/// Wraps, so that it is right in the end even where it leaves 64 bits on the way.
using Sum = std::uint64_t;

Sum wrapped(fiscora::Money const& money)
{
    return static_cast<Sum>(money.amount());
}

QStringList currenciesOutOfBalance(engine::Books const& books)
{
    std::map<Currency, Sum> sums;
    for (auto const& [number, turnover] : books.turnovers) {
        sums[turnover.debited.code()] += wrapped(turnover.debited);
    }
    QStringList found;
    for (auto const& [currency, sum] : sums) {
        if (sum != 0) {
            found << QStringLiteral("the books are out of balance in ") + presentationText(currency);
        }
    }
    return found;
}

Sum debited(std::map<engine::PostingId, engine::Posting> const& postings, AccountNumber const& number)
{
    Sum sum = 0;
    for (auto const& [id, posting] : postings) {
        sum += posting.debiting == number ? wrapped(posting.amount) : Sum() - wrapped(posting.amount);
    }
    return sum;
}

/// \param document holds the postings
QStringList accountsOutOfStep(engine::Books const& books, storage::Document const& document)
{
    QStringList found;
    for (auto const& [number, account] : books.accounts) {
        auto const postings = document.postingsOf(number);
        auto const turnover = books.turnovers.find(number);
        auto const told = turnover == books.turnovers.end() ? engine::Turnover() : turnover->second;
        if (postings.size() != told.postings || debited(postings, number) != wrapped(told.debited)) {
            found << QStringLiteral("the postings don't come to the turnover of ") + presentationText(account.code);
        }
    }
    return found;
}
}

QStringList complaintsAboutBooks(presenter::Session const& session)
{
    auto const& content = session.household().content();
    auto found = currenciesOutOfBalance(content.books) + accountsOutOfStep(content.books, session.document());
    if (session.document().content() != content) {
        found << QStringLiteral("the working copy differs from what is on screen");
    }
    return found;
}

QStringList complaintsAboutFile(presenter::Session& session, QString const& copyPath)
{
    try {
        session.save();
        QFile::copy(session.document().filePathName(), copyPath);
        auto const saved = storage::Document::open(session.places(), copyPath);
        engine::Household const household(saved->content(), *saved);
        if (household.content() != session.household().content()) {
            return {QStringLiteral("the saved file differs from what was saved")};
        }
        return accountsOutOfStep(household.content().books, *saved);
    } catch (std::exception const& failure) {
        return {QStringLiteral("the budget can't be saved and opened again: ") + QString::fromUtf8(failure.what())};
    }
}
}
