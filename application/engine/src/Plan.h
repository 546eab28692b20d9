#pragma once

#include "HouseholdRules.h"

#include <engine/BudgetContent.h>

#include <map>

namespace tallymere::engine {

/// The planned items, found by name and by account.
class Plan
{
    using Names = std::map<tlm::budgeting::BudgetItemIdentifier, PlannedItems::iterator, rules::ByName>;
    using Owners = std::map<tlm::accounting::AccountNumber, Names::iterator>;

public:
    /// An item ready to be taken over, so that nothing can fail any more once it is stored.
    class Addition
    {
    public:
        explicit Addition(PlannedItem const& item);

    private:
        friend class Plan;
        PlannedItems items_;
        Names names_;
        Owners owners_;
    };

    /// \param items outlive the plan, keep the rules, and change through it alone
    explicit Plan(PlannedItems& items);

    /// \return the item of that name, without regard to case and surrounding blanks; none when there is none
    PlannedItem const* find(tlm::budgeting::BudgetItemIdentifier const& identifier) const;

    /// \return the item whose own account it is, none when it is no item's
    PlannedItem const* ownerOf(tlm::accounting::AccountNumber const& number) const;

    bool isOfGoal(tlm::accounting::AccountNumber const& number) const;

    void take(Addition& addition) noexcept;

    /// Drops the item whose own account is \a account.
    void drop(tlm::accounting::AccountNumber const& account) noexcept;

private:
    PlannedItems& items_;
    Names names_;
    Owners owners_;
};
}
