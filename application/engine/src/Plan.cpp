#include "Plan.h"

using tlm::accounting::AccountNumber;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

Plan::Addition::Addition(PlannedItem const& item)
{
    auto const place = items_.emplace(item.identifier, item).first;
    auto const name = names_.emplace(rules::tidied(item.identifier), place).first;
    owners_.emplace(item.account, name);
}

Plan::Plan(PlannedItems& items) : items_(items)
{
    for (auto item = items_.begin(); item != items_.end(); ++item) {
        auto const name = names_.emplace(rules::tidied(item->first), item).first;
        owners_.emplace(item->second.account, name);
    }
}

PlannedItem const* Plan::find(BudgetItemIdentifier const& identifier) const
{
    auto const found = names_.find(rules::tidied(identifier));
    return found == names_.end() ? nullptr : &found->second->second;
}

PlannedItem const* Plan::ownerOf(AccountNumber const& number) const
{
    auto const found = owners_.find(number);
    return found == owners_.end() ? nullptr : &found->second->second->second;
}

bool Plan::isOfGoal(AccountNumber const& number) const
{
    auto const* const owner = ownerOf(number);
    return owner != nullptr && owner->identifier.type == BudgetItemTypes::Goal;
}

void Plan::take(Addition& addition) noexcept
{
    items_.merge(addition.items_);
    names_.merge(addition.names_);
    owners_.merge(addition.owners_);
}

void Plan::drop(AccountNumber const& account) noexcept
{
    auto const owner = owners_.find(account);
    auto const name = owner->second;
    owners_.erase(owner);
    items_.erase(name->second);
    names_.erase(name);
}
}
