#pragma once

#include "internal/BudgetItemsDueWidget.h"
#include "support/Widgets.h"

#include <tlm/budgeting/BudgetItemAmountDue.h>

#include <QHeaderView>
#include <QTableWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace tlm::testing {

/// \return the present day; waits for the next one when it is about to end, since a day that turns within a test spoils it
inline QDate today()
{
    constexpr auto quiet = 10'000;
    auto const left = QTime::currentTime().msecsTo(QTime(23, 59, 59, 999));
    if (left < quiet) {
        QTest::qSleep(left + 1);
    }
    return QDate::currentDate();
}

inline budgeting::BudgetItemAmountDue dueOn(QString const& name, QDate const& date)
{
    return {{{budgeting::BudgetItemTypes::Bill, budgeting::BudgetSource(name)}, date},
            fiscora::Money(fiscora::Currency::USD)};
}

inline budgeting::BudgetItemAmountDue dueIn(qint64 dayCount)
{
    return dueOn(QString::number(dayCount), today().addDays(dayCount));
}

/// A list of items due to look at as a person does.
class BudgetItemsDueFixture : public ::testing::Test
{
protected:
    void update(std::vector<budgeting::BudgetItemAmountDue> const& items, int dueWithin)
    {
        widget.updateItems(items, std::chrono::days(dueWithin));
    }

    QColor background(int row, int column = 0) const { return table.item(row, column)->background().color(); }

    bool isBlank(int row) const { return table.item(row, 0) == nullptr && table.item(row, 1) == nullptr; }

    QStringList names() const
    {
        QStringList found;
        for (auto row = 0; row < table.rowCount(); ++row) {
            found.append(isBlank(row) ? QString() : table.item(row, 0)->text());
        }
        return found;
    }

    void clickHeader(int column)
    {
        auto* const header = table.horizontalHeader();
        QTest::mouseClick(
            header->viewport(), Qt::LeftButton, {},
            {header->sectionViewportPosition(column) + header->sectionSize(column) / 2, header->height() / 2});
    }

    desktop_ui::internal::BudgetItemsDueWidget widget{nullptr};
    QTableWidget& table = child<QTableWidget>(widget, "budgetItemsDueTblwdgt");
};
}
