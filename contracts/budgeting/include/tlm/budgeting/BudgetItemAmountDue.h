#pragma once

#include <fiscora/Money.h>
#include <tlm/budgeting/BudgetItemDueIdentifier.h>

#include <QDebug>

#include <compare>

namespace tlm::budgeting {

/// What falls due with one occurrence of a budget item.
struct BudgetItemAmountDue : BudgetItemDueIdentifier
{
    fiscora::Money amount;

    friend bool operator==(BudgetItemAmountDue const&, BudgetItemAmountDue const&) = default;
    friend std::strong_ordering operator<=>(BudgetItemAmountDue const&, BudgetItemAmountDue const&) = default;
};

QDebug operator<<(QDebug debug, BudgetItemAmountDue const& due);
}
