#pragma once

#include <engine/BudgetContent.h>
#include <engine/Posting.h>

#include <vector>

namespace tallymere::engine {

/// Gives each item of \a content that has no account yet its own, in the order of the items.
///
/// An account is called as its item. Where an account can't be, control characters and blanks of unusual width become
/// plain blanks, and an item whose name has nothing else lends its type's name.
/// \return the opening postings of the debts among them, in the same order, dated as their items are anchored; the
///         turnovers count them
/// \throws foundation::Error when the sums borrowed add up to more than can be counted; \a content then holds a part
std::vector<Posting> openBooks(BudgetContent& content);
}
