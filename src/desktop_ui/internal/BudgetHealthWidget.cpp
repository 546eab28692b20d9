#include "internal/BudgetHealthWidget.h"

#include <QDebug>
#include <QPalette>

#include <stdexcept>

namespace tlm::desktop_ui::internal {

namespace {

Qt::GlobalColor colourOf(adviser::HealthStatuses status)
{
    switch (status) {
    case adviser::HealthStatuses::Healthy:
        return Qt::green;
    case adviser::HealthStatuses::Cautious:
        return Qt::yellow;
    case adviser::HealthStatuses::Unhealthy:
        return Qt::red;
    }
    throw std::logic_error("The budget health widget did not handle the health status.");
}
}

BudgetHealthWidget::BudgetHealthWidget(foundation::QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    connect(monthlyTotals, &MonthlyTotalsWidget::selectedBudgetType, this, &BudgetHealthWidget::displayBudgetInterface);
}

void BudgetHealthWidget::updateTotals(budgeting::BudgetTotals const& bt,
                                      navigation::CurrencyDisplayOptions const& displayAs,
                                      fiscora::Currency const& preferred)
{
    qInfo() << "Updating to the calculated budget totals";
    monthlyTotals->updateTotals(bt, displayAs, preferred);
}

void BudgetHealthWidget::updateHealth(adviser::BudgetHealth const& bh)
{
    qInfo() << "Updating budget health information";
    budgetHealthDl->setPalette(QPalette(colourOf(bh.status())));
    budgetHealthStatusLbl->setText(tr("Status: %1").arg(presentationText(bh.status())));
    budgetHealthDl->setValue(static_cast<int>(bh.percent()));
    infoTxtdt->setPlainText(bh.information().join(QStringLiteral("\n\n")));
}
}
