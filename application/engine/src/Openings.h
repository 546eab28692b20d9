#pragma once

#include "Chart.h"
#include "Plan.h"

#include <engine/Posting.h>
#include <engine/Store.h>

#include <map>
#include <optional>
#include <utility>

namespace tallymere::engine {

/// Tells the postings with which accounts opened.
class Openings
{
public:
    /// More postings than these aren't counted for a sentence.
    static constexpr std::size_t mostTold_ = 100;

    /// Both outlive this.
    Openings(Chart const& chart, Plan const& plan) : chart_(chart), plan_(plan) {}

    /// \return the debt that opened with \a posting, none when that is any other posting
    PlannedItem const* debtOf(Posting const& posting) const;

    /// \param name by which the person knows the account
    /// \return the posting that the account of \a number opened with, none when it has no posting
    /// \throws foundation::Error when it has any other posting, which says how many
    std::optional<std::pair<PostingId, Posting>> only(tlm::accounting::AccountNumber const& number, QString const& name,
                                                      Store const& store) const;

private:
    bool isOf(tlm::accounting::AccountNumber const& number, Posting const& posting) const;

    Chart const& chart_;
    Plan const& plan_;
};
}
