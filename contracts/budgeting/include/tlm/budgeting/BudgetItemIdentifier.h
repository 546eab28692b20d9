#pragma once

#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetSource.h>

#include <QDebug>
#include <QString>

#include <compare>

namespace tlm::budgeting {

/// Names a budget item. The source may be empty while it hasn't been chosen.
struct BudgetItemIdentifier
{
    BudgetItemTypes type = BudgetItemTypes::None;
    BudgetSource source;

    friend bool operator==(BudgetItemIdentifier const&, BudgetItemIdentifier const&) = default;
    friend std::strong_ordering operator<=>(BudgetItemIdentifier const&, BudgetItemIdentifier const&) = default;
};

/// \return type and source, "Bill: Rent"; only the one that is chosen when the other isn't
QString presentationText(BudgetItemIdentifier const& identifier);

QDebug operator<<(QDebug debug, BudgetItemIdentifier const& identifier);
}
