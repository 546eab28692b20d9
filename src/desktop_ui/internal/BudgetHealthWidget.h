#pragma once

#include "ui_BudgetHealthWdgt.h"

#include <fiscora/Currency.h>
#include <tlm/adviser/BudgetHealth.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetTotals.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QWidget>

namespace tlm::desktop_ui::internal {

/// Shows the health of a budget on a dial, with the advice on it, beside the monthly totals that it was judged by.
class BudgetHealthWidget : public QWidget, private Ui::BudgetHealthWdgt
{
    Q_OBJECT

public:
    explicit BudgetHealthWidget(foundation::QtPtr<QWidget> const& parent);

    /// Shows \a bt, each total in \a preferred. To be called once, see MonthlyTotalsWidget::updateTotals().
    void updateTotals(budgeting::BudgetTotals const& bt, navigation::CurrencyDisplayOptions const& displayAs,
                      fiscora::Currency const& preferred);

    /// \throws std::logic_error when the status of \a bh is unknown; what was shown before then stays
    void updateHealth(adviser::BudgetHealth const& bh);

signals:
    /// The person wants to plan the budget items of \a type.
    void displayBudgetInterface(tlm::budgeting::BudgetItemTypes type);
};
}
