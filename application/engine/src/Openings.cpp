#include "Openings.h"

#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <algorithm>

using tlm::accounting::AccountNumber;
using tlm::accounting::TransactionStatuses;
using tlm::foundation::presentationText;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("Openings", text);
}

/// \param others number of postings beside the one that the account opened with
[[noreturn]] void refuseUsed(QString const& name, std::size_t others, QDate const& latest)
{
    auto const day = presentationText(latest);
    if (others == 1) {
        refuse(tr("%1 can't be removed, since a posting of %2 needs it. Delete that posting first, or keep %1.")
                   .arg(name, day));
    }
    refuse((others > Openings::mostTold_
                ? tr("%1 can't be removed, since more than %2 postings need it, the latest of %3. Delete them first, "
                     "or keep %1.")
                : tr("%1 can't be removed, since %2 postings need it, the latest of %3. Delete them first, or keep "
                     "%1."))
               .arg(name, QString::number(std::min(others, Openings::mostTold_)), day));
}
}

PlannedItem const* Openings::debtOf(Posting const& posting) const
{
    auto const* const owner = plan_.ownerOf(posting.crediting);
    return owner != nullptr && owner->debt && isOf(posting.crediting, posting) ? owner : nullptr;
}

std::optional<std::pair<PostingId, Posting>> Openings::only(AccountNumber const& number, QString const& name,
                                                            Store const& store) const
{
    auto const* const turnover = chart_.turnoverOf(number);
    if (turnover == nullptr) {
        return std::nullopt;
    }
    auto const postings = store.latestPostingsOf(number, mostTold_ + 1);
    auto const opening = std::ranges::find_if(postings, [&](auto const& entry) { return isOf(number, entry.second); });
    auto const others = turnover->postings - (opening == postings.end() ? 0 : 1);
    if (others == 0) {
        return *opening;
    }
    QDate latest;
    for (auto place = postings.begin(); place != postings.end(); ++place) {
        latest = place == opening ? latest : std::max(latest, place->second.occurredOn);
    }
    refuseUsed(name, others, latest);
}

/// A debt opens with all that was borrowed. What a person made from an item or reconciled since is none of it.
bool Openings::isOf(AccountNumber const& number, Posting const& posting) const
{
    auto const against = posting.debiting == number ? posting.crediting : posting.debiting;
    if (posting.madeFrom || posting.status == TransactionStatuses::Reconciled ||
        chart_.account(against).purpose != AccountPurposes::OpeningBalances) {
        return false;
    }
    auto const* const owner = plan_.ownerOf(number);
    return owner == nullptr || (owner->debt && posting.crediting == number && posting.amount == owner->debt->borrowed);
}
}
