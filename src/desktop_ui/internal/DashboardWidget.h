#pragma once

#include "ui_DashboardWdgt.h"

#include <fiscora/Currency.h>
#include <tlm/adviser/BudgetHealth.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetTotals.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QWidget>

#include <chrono>
#include <vector>

namespace tlm::desktop_ui::internal {

/// The home view of an open budget: what falls due, how healthy the budget is, and what each type comes to per month.
///
/// Shows what it was built with; a fresh dashboard stands in for a refresh.
class DashboardWidget : public QWidget, private Ui::DashboardWdgt
{
    Q_OBJECT

public:
    /// \param bt totals per month, each in \a preferred
    /// \param due in the order in which they are listed; may be empty
    /// \param dueWithin how many days ahead an item is worth telling of
    /// \throws std::logic_error when the status of \a bh is unknown
    DashboardWidget(budgeting::BudgetTotals const& bt, std::vector<budgeting::BudgetItemAmountDue> const& due,
                    adviser::BudgetHealth const& bh, std::chrono::days const& dueWithin,
                    fiscora::Currency const& preferred, navigation::CurrencyDisplayOptions const& displayAs,
                    foundation::QtPtr<QWidget> const& parent);

signals:
    /// The person wants to plan the budget items of \a type.
    void displayBudgetInterface(tlm::budgeting::BudgetItemTypes type);
};
}
