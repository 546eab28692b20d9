#pragma once

#include <engine/BudgetContent.h>
#include <engine/Posting.h>

#include <vector>

namespace tallymere::engine {

/// A budget that no document holds yet, with the postings that its turnovers count.
struct NewBudget
{
    BudgetContent content;
    std::vector<Posting> postings; ///< in the order in which they were made

    friend bool operator==(NewBudget const&, NewBudget const&) = default;
};
}
