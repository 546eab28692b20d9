#pragma once

#include <QDebug>

namespace tlm::navigation {

/// Whom a new budget is made for; decides which budget items the wizard plans beforehand.
enum class BudgetWizardTemplates : unsigned char
{
    None = 0,
    Child = 1, ///< never offered
    Teenager = 2,
    AdultSingle = 3,
    AdultMarriedSingleIncome = 4,
    AdultMarriedDualIncome = 5
};

QDebug operator<<(QDebug debug, BudgetWizardTemplates budgetTemplate);
}
