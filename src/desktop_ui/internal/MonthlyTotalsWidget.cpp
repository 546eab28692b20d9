#include "internal/MonthlyTotalsWidget.h"

#include <tlm/foundation/PresentationText.h>

#include <QDebug>
#include <QHeaderView>
#include <QShortcut>

#include <algorithm>
#include <array>

namespace tlm::desktop_ui::internal {

namespace {

using budgeting::BudgetItemTypes;

struct Row
{
    BudgetItemTypes type;
    char const* selected; // logged when the row is opened
};

// As the form's row headers stand, from the top.
constexpr std::array rows{
    Row{BudgetItemTypes::Wage, "Selected wages total."},        //
    Row{BudgetItemTypes::Nontrack, "Selected nontrack total."}, //
    Row{BudgetItemTypes::Goal, "Selected goals total."},        //
    Row{BudgetItemTypes::Bill, "Selected bills total."},        //
    Row{BudgetItemTypes::Debt, "Selected debts total."},
};

// The name of a currency may be longer than the table is wide, and headers don't elide.
constexpr int wrapped = static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap);

int rowOf(BudgetItemTypes type)
{
    return static_cast<int>(std::ranges::find(rows, type, &Row::type) - rows.begin());
}
}

MonthlyTotalsWidget::MonthlyTotalsWidget(foundation::QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
}

void MonthlyTotalsWidget::updateTotals(budgeting::BudgetTotals const& bt,
                                       navigation::CurrencyDisplayOptions const& displayAs,
                                       fiscora::Currency const& preferred)
{
    qInfo() << "Updating monthly budget totals";
    showHeader(preferred, displayAs);
    showTotal(BudgetItemTypes::Wage, bt.wages);
    showTotal(BudgetItemTypes::Goal, bt.goals);
    showTotal(BudgetItemTypes::Bill, bt.bills);
    showTotal(BudgetItemTypes::Debt, bt.debts);
    showTotal(BudgetItemTypes::Nontrack, bt.nontracks);
    connect(monthlyTotalsTblwdgt, &QTableWidget::itemDoubleClicked, this, &MonthlyTotalsWidget::onItemDoubleClicked);
    openRowsByKey();
}

void MonthlyTotalsWidget::showHeader(fiscora::Currency const& preferred,
                                     navigation::CurrencyDisplayOptions const& displayAs)
{
    auto* const header = monthlyTotalsTblwdgt->horizontalHeaderItem(0);
    header->setText(tr("Monthly Total (%1)").arg(navigation::toDisplayable(preferred, displayAs)));
    header->setData(Qt::TextAlignmentRole, wrapped);
    header->setSizeHint(headerSize(header->text()));
}

QSize MonthlyTotalsWidget::headerSize(QString const& text) const
{
    auto const* const names = monthlyTotalsTblwdgt->verticalHeader();
    auto const* const header = monthlyTotalsTblwdgt->horizontalHeader();
    auto const margins = 2 * (header->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header) + 1);
    auto const width = monthlyTotalsTblwdgt->maximumWidth() - names->sizeHint().width() - margins;
    auto const lines = header->fontMetrics().boundingRect({0, 0, width, QWIDGETSIZE_MAX}, wrapped, text);
    return lines.size() + QSize(margins, margins);
}

void MonthlyTotalsWidget::showTotal(BudgetItemTypes type, fiscora::Money const& total)
{
    auto* const item = new QTableWidgetItem(foundation::presentationText(total));
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    monthlyTotalsTblwdgt->setItem(rowOf(type), 0, item);
}

void MonthlyTotalsWidget::openRowsByKey()
{
    // A current cell gives the keyboard its start, and screen readers a cell to tell of.
    monthlyTotalsTblwdgt->setCurrentCell(0, 0, QItemSelectionModel::NoUpdate);
    // Not the table's signal activated(): most styles emit that at a double click as well.
    for (auto const key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const shortcut = new QShortcut(key, monthlyTotalsTblwdgt);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this,
                [this] { onItemDoubleClicked(monthlyTotalsTblwdgt->currentItem()); });
    }
}

void MonthlyTotalsWidget::onItemDoubleClicked(foundation::ObserverPtr<QTableWidgetItem> item)
{
    auto const row = item->row();
    qInfo() << "Selected monthly total budget row" << row;
    if (row < 0 || row >= static_cast<int>(rows.size())) {
        return;
    }
    auto const& opened = rows[static_cast<std::size_t>(row)];
    qInfo() << opened.selected;
    emit selectedBudgetType(opened.type);
}
}
