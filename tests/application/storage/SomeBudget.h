#pragma once

#include <engine/NewBudget.h>

#include <map>
#include <optional>

/// Budgets as RapidCheck makes them up, within a property alone.
namespace tallymere::storage::testing {

engine::NewBudget someBudget();

/// \return a posting between two of \a accounts, none where those that were picked don't go together
std::optional<engine::Posting>
somePosting(std::map<tlm::accounting::AccountNumber, engine::BookAccount> const& accounts);
}
