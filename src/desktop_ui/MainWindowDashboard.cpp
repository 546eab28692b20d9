#include "internal/CentralView.h"
#include "internal/DashboardWidget.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <QDebug>

namespace tlm::desktop_ui {

using budgeting::BudgetItemTypes;
using foundation::QtPtr;

void MainWindow::onShowDashboard(budgeting::BudgetTotals const& bt,
                                 std::vector<budgeting::BudgetItemAmountDue> const& due,
                                 adviser::BudgetHealth const& bh, std::chrono::days dueWithin,
                                 fiscora::Currency preferred, navigation::CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing dashboard.";
    QtPtr<internal::DashboardWidget> const view =
        new internal::DashboardWidget(bt, due, bh, dueWithin, preferred, displayAs, this);
    connect(view.get(), &internal::DashboardWidget::displayBudgetInterface, this,
            &MainWindow::onDisplayBudgetInterface);
    internal::showCentral(*this, *view);
}

void MainWindow::onDisplayBudgetInterface(BudgetItemTypes type)
{
    qInfo() << "Displaying selected budget type" << presentationText(type);
    switch (type) {
    case BudgetItemTypes::Bill:
        emit prepareShowBills();
        break;
    case BudgetItemTypes::Debt:
        emit prepareShowDebts();
        break;
    case BudgetItemTypes::Goal:
        emit prepareShowGoals();
        break;
    case BudgetItemTypes::Nontrack:
        emit prepareShowNontracks();
        break;
    case BudgetItemTypes::Wage:
        emit prepareShowWages();
        break;
    case BudgetItemTypes::None:
        break;
    }
}
}
