#pragma once

#include "ui_MonthlyTotalsWdgt.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetTotals.h>
#include <tlm/foundation/ObserverPtr.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QSize>
#include <QTableWidgetItem>
#include <QWidget>

namespace tlm::desktop_ui::internal {

/// Shows what each budget item type comes to per month.
class MonthlyTotalsWidget : public QWidget, private Ui::MonthlyTotalsWdgt
{
    Q_OBJECT

public:
    explicit MonthlyTotalsWidget(foundation::QtPtr<QWidget> const& parent);

    /// Shows \a bt, each total in \a preferred, and lets its rows be opened from then on.
    ///
    /// To be called once: each call would tell of a double click once more.
    void updateTotals(budgeting::BudgetTotals const& bt, navigation::CurrencyDisplayOptions const& displayAs,
                      fiscora::Currency const& preferred);

signals:
    /// The person opened the row of \a type.
    void selectedBudgetType(tlm::budgeting::BudgetItemTypes type);

private slots:
    void onItemDoubleClicked(tlm::foundation::ObserverPtr<QTableWidgetItem> item);

private:
    void showHeader(fiscora::Currency const& preferred, navigation::CurrencyDisplayOptions const& displayAs);
    QSize headerSize(QString const& text) const;
    void showTotal(budgeting::BudgetItemTypes type, fiscora::Money const& total);
    void openRowsByKey();
};
}
