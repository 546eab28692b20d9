#include "PostingChanges.h"

#include "Openings.h"
#include "PostingRules.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <stdexcept>

using tlm::foundation::presentationText;
using tlm::foundation::WithCurrency;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("PostingChanges", text);
}

Posting known(Store const& store, PostingId const& id)
{
    auto const found = store.posting(id);
    if (!found) {
        refuse(tr("This posting isn't in the books any more. Open the ledger again to see what is."));
    }
    return *found;
}
}

void PostingChanges::add(Posting const& posting)
{
    if (auto const& item = posting.madeFrom;
        item && (plan_.ownerOf(*item) == nullptr || (*item != posting.debiting && *item != posting.crediting))) {
        throw std::invalid_argument("A posting is made from an item whose account it goes to or comes from.");
    }
    draft_.post(posting);
}

void PostingChanges::change(Store const& store, PostingId const& id, Posting after)
{
    auto const before = changeable(store, id);
    auto const* const debt = Openings(chart_, plan_).debtOf(before);
    if (debt != nullptr && !rules::tellTheSame(before, after)) {
        refuse(tr("This posting is the sum of %2 that was borrowed for %1, so its accounts and its amount stay. Post "
                  "what was borrowed since by itself.")
                   .arg(debt->identifier.source.name(), presentationText(before.amount, WithCurrency())));
    }
    auto const& item = before.madeFrom;
    auto const staysMade = item && (*item == after.debiting || *item == after.crediting);
    after.madeFrom = staysMade ? item : std::nullopt;
    draft_.change(id, before, after);
}

void PostingChanges::drop(Store const& store, PostingId const& id)
{
    auto const before = changeable(store, id);
    if (auto const* const debt = Openings(chart_, plan_).debtOf(before)) {
        refuse(tr("This posting is the sum of %2 that was borrowed for %1, so it stays. Remove the debt, and it goes "
                  "with it.")
                   .arg(debt->identifier.source.name(), presentationText(before.amount, WithCurrency())));
    }
    draft_.takeBack(id, before);
}

void PostingChanges::mark(Store const& store, std::set<PostingId> const& ids,
                          std::function<Status(Status const&)> const& marked)
{
    for (auto const& id : ids) {
        auto posting = known(store, id);
        auto const status = marked(posting.status);
        if (status != posting.status) {
            posting.status = status;
            draft_.note(id, posting);
        }
    }
}

/// \return the posting of \a id
/// \throws foundation::Error when it has to stay as it is
Posting PostingChanges::changeable(Store const& store, PostingId const& id) const
{
    auto found = known(store, id);
    if (found.status == Status::Reconciled) {
        refuse(tr("This posting of %1 is reconciled, so it stays as it is. Post the difference as another one.")
                   .arg(presentationText(found.occurredOn)));
    }
    for (auto const& number : {found.debiting, found.crediting}) {
        if (auto const& account = chart_.account(number); account.isClosed) {
            refuse(tr("%1 is closed, so its postings stay as they are. Open it again before you change them.")
                       .arg(account.code.name()));
        }
    }
    return found;
}
}
