#include "internal/DashboardWidget.h"

namespace tlm::desktop_ui::internal {

DashboardWidget::DashboardWidget(budgeting::BudgetTotals const& bt,
                                 std::vector<budgeting::BudgetItemAmountDue> const& due,
                                 adviser::BudgetHealth const& bh, std::chrono::days const& dueWithin,
                                 fiscora::Currency const& preferred,
                                 navigation::CurrencyDisplayOptions const& displayAs,
                                 foundation::QtPtr<QWidget> const& parent)
    : QWidget(parent.get())
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    connect(budgetHealth, &BudgetHealthWidget::displayBudgetInterface, this, &DashboardWidget::displayBudgetInterface);
    budgetHealth->updateTotals(bt, displayAs, preferred);
    itemsDue->updateItems(due, dueWithin);
    budgetHealth->updateHealth(bh);
}
}
