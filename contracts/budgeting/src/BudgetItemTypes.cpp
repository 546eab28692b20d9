#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/foundation/NamedValues.h>

namespace tlm::budgeting {

namespace {

constexpr foundation::NamedValues<BudgetItemTypes, 6>
    names("tlm::budgeting", {{{BudgetItemTypes::None, ""},
                              {BudgetItemTypes::Bill, QT_TRANSLATE_NOOP("tlm::budgeting", "Bill")},
                              {BudgetItemTypes::Debt, QT_TRANSLATE_NOOP("tlm::budgeting", "Debt")},
                              {BudgetItemTypes::Goal, QT_TRANSLATE_NOOP("tlm::budgeting", "Goal")},
                              {BudgetItemTypes::Nontrack, QT_TRANSLATE_NOOP("tlm::budgeting", "Nontrack")},
                              {BudgetItemTypes::Wage, QT_TRANSLATE_NOOP("tlm::budgeting", "Wage")}}});
}

QString presentationText(BudgetItemTypes const& type)
{
    return names.text(type);
}

BudgetItemTypes toBudgetItemTypes(QString const& text)
{
    return names.read(text);
}

QDebug operator<<(QDebug debug, BudgetItemTypes const& type)
{
    return names.log(debug, "BudgetItemTypes", type);
}
}
