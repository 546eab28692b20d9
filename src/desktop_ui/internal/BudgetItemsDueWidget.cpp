#include "internal/BudgetItemsDueWidget.h"

#include <QDateTime>
#include <QDebug>
#include <QHeaderView>
#include <QTableWidgetItem>

namespace tlm::desktop_ui::internal {

namespace {

using std::chrono::days;

constexpr Qt::GlobalColor overdue = Qt::darkRed;

enum Column : int
{
    itemColumn,
    dueOnColumn
};

/// A cell of the list. Without a colour of its own it follows the table's palette, which may turn dark at dusk.
class DueCell : public QTableWidgetItem
{
public:
    DueCell(QString const& text, std::optional<QColor> const& pressing) : QTableWidgetItem(text)
    {
        if (pressing) {
            setBackground(*pressing);
            setForeground(Qt::black);
        }
        if (pressing == QColor(overdue)) {
            auto bold = font();
            bold.setBold(true); // black on dark red is hard to read
            setFont(bold);
        }
    }

    QVariant data(int role) const override
    {
        auto own = QTableWidgetItem::data(role);
        if (role == Qt::BackgroundRole && !own.isValid() && tableWidget() != nullptr) {
            return tableWidget()->palette().brush(QPalette::Base);
        }
        return own;
    }
};

/// Sorts by its date, which its text doesn't.
class DueOnCell : public DueCell
{
public:
    DueOnCell(QDate const& dueOn, std::optional<QColor> const& pressing)
        : DueCell(dueOn.toString(Qt::TextDate), pressing), dueOn_(dueOn)
    {}

    bool operator<(QTableWidgetItem const& other) const override
    {
        return dueOn_ < static_cast<DueOnCell const&>(other).dueOn_;
    }

private:
    QDate dueOn_;
};

/// \return none for an item that isn't pressing yet
std::optional<QColor> pressingColour(days const& left, days const& dueWithin)
{
    if (left < days(0)) {
        return overdue;
    }
    if (left == days(0)) {
        return Qt::red;
    }
    if (left <= dueWithin / 4) {
        return Qt::yellow;
    }
    if (left <= dueWithin / 2) {
        return Qt::green;
    }
    return std::nullopt;
}
}

BudgetItemsDueWidget::BudgetItemsDueWidget(foundation::QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
}

void BudgetItemsDueWidget::updateItems(std::vector<budgeting::BudgetItemAmountDue> const& items, days const& dueWithin)
{
    qInfo() << "Updating the budget items due";
    startList(static_cast<int>(items.size()));
    auto const now = QDateTime::currentDateTime();
    for (auto row = 0; auto const& item : items) {
        days const left(now.daysTo(item.dueOn.startOfDay()));
        qInfo().nospace().noquote() << "The budget item " << item.source.name() << " is due within " << left.count()
                                    << " days.";
        if (left <= dueWithin) {
            showItem(row, item, pressingColour(left, dueWithin));
        }
        ++row;
    }
    // A screen reader asks for the current cell.
    budgetItemsDueTblwdgt->setCurrentCell(0, 0, QItemSelectionModel::NoUpdate);
}

void BudgetItemsDueWidget::startList(int rows)
{
    // With a sort indicator on a column, each row would move away as soon as that column of it is filled.
    budgetItemsDueTblwdgt->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    budgetItemsDueTblwdgt->clearContents();
    budgetItemsDueTblwdgt->setRowCount(rows);
}

void BudgetItemsDueWidget::showItem(int row, budgeting::BudgetItemAmountDue const& item,
                                    std::optional<QColor> const& pressing)
{
    budgetItemsDueTblwdgt->setItem(row, itemColumn, new DueCell(item.source.name(), pressing));
    budgetItemsDueTblwdgt->setItem(row, dueOnColumn, new DueOnCell(item.dueOn, pressing));
}

void BudgetItemsDueWidget::resizeEvent(QResizeEvent* event)
{
    budgetItemsDueTblwdgt->setColumnWidth(itemColumn, width() * 2 / 3);
    budgetItemsDueTblwdgt->setColumnWidth(dueOnColumn, width() / 3);
    QWidget::resizeEvent(event);
}
}
