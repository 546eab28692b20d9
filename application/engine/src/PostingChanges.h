#pragma once

#include "BooksDraft.h"
#include "Chart.h"
#include "Plan.h"

#include <engine/Posting.h>
#include <engine/Store.h>
#include <tlm/accounting/TransactionStatuses.h>

#include <functional>
#include <set>

namespace tallymere::engine {

/// Drafts what a person does to the postings.
///
/// What is refused throws a foundation::Error that says what, why and what to do. The operations are those of Household.
class PostingChanges
{
public:
    using Status = tlm::accounting::TransactionStatuses;

    /// All outlive this.
    PostingChanges(Chart const& chart, Plan const& plan, BooksDraft& draft) : chart_(chart), plan_(plan), draft_(draft)
    {}

    /// \throws std::invalid_argument when \a posting is made from an item that has no part in it
    void add(Posting const& posting);
    void change(Store const& store, PostingId const& id, Posting after);
    void drop(Store const& store, PostingId const& id);

    /// Gives each of \a ids the status that \a marked makes of its present one.
    void mark(Store const& store, std::set<PostingId> const& ids, std::function<Status(Status const&)> const& marked);

private:
    Posting changeable(Store const& store, PostingId const& id) const;

    Chart const& chart_;
    Plan const& plan_;
    BooksDraft& draft_;
};
}
