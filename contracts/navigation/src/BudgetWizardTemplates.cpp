#include <tlm/navigation/BudgetWizardTemplates.h>

namespace tlm::navigation {

namespace {

char const* nameOf(BudgetWizardTemplates budgetTemplate)
{
    switch (budgetTemplate) {
    case BudgetWizardTemplates::None:
        return "None";
    case BudgetWizardTemplates::Child:
        return "Child";
    case BudgetWizardTemplates::Teenager:
        return "Teenager";
    case BudgetWizardTemplates::AdultSingle:
        return "AdultSingle";
    case BudgetWizardTemplates::AdultMarriedSingleIncome:
        return "AdultMarriedSingleIncome";
    case BudgetWizardTemplates::AdultMarriedDualIncome:
        return "AdultMarriedDualIncome";
    }
    return "unknown";
}
}

QDebug operator<<(QDebug debug, BudgetWizardTemplates budgetTemplate)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "BudgetWizardTemplates(" << nameOf(budgetTemplate) << ')';
    return debug;
}
}
