#pragma once

#include <tlm/budgeting/BudgetItemIdentifier.h>

#include <QDate>
#include <QDebug>

#include <compare>

namespace tlm::budgeting {

/// Names one occurrence of a budget item.
struct BudgetItemDueIdentifier : BudgetItemIdentifier
{
    QDate dueOn; ///< invalid when the occurrence was not scheduled

    friend bool operator==(BudgetItemDueIdentifier const&, BudgetItemDueIdentifier const&) = default;
    friend std::strong_ordering operator<=>(BudgetItemDueIdentifier const&, BudgetItemDueIdentifier const&) = default;
};

QDebug operator<<(QDebug debug, BudgetItemDueIdentifier const& identifier);
}
