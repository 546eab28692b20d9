#pragma once

#include <QDebug>
#include <QString>

namespace tlm::budgeting {

/// The five kinds of budget items.
enum class BudgetItemTypes : unsigned char
{
    None = 0,     ///< no kind has been chosen
    Bill = 1,     ///< paid from an account
    Debt = 2,     ///< paid from an account until what was borrowed is paid off
    Goal = 3,     ///< stored in an account until its total is reached
    Nontrack = 4, ///< paid from an account, spent in many small sums that nobody writes down
    Wage = 5      ///< stored in an account
};

/// \return the type's translated name, empty for `None`
QString presentationText(BudgetItemTypes const& type);

/// Reads back what presentationText() gives, the empty text included.
/// \throws foundation::Error when \a text names no type
BudgetItemTypes toBudgetItemTypes(QString const& text);

QDebug operator<<(QDebug debug, BudgetItemTypes const& type);
}
