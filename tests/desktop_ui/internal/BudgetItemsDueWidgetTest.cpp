#include "BudgetItemsDueFixture.h"
#include "ShowActive.h"
#include "support/MessageLog.h"

#include <QLineEdit>

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

using ::testing::ElementsAre;
using tlm::budgeting::BudgetItemAmountDue;
using tlm::testing::BudgetItemsDueFixture;
using tlm::testing::dueIn;
using tlm::testing::dueOn;
using tlm::testing::MessageLog;
using tlm::testing::showActive;
using tlm::testing::today;

namespace {

class BudgetItemsDueWidgetTest : public BudgetItemsDueFixture
{};
}

TEST_F(BudgetItemsDueWidgetTest, ShowsNoRowWhenNothingIsDue)
{
    update({}, 14);

    EXPECT_EQ(table.rowCount(), 0);
    EXPECT_EQ(table.columnCount(), 2);
}

TEST_F(BudgetItemsDueWidgetTest, ShowsEachItemWithItsDate)
{
    auto const first = today();

    update({dueOn("Rent", first), dueOn("Wage", first.addDays(3))}, 14);

    EXPECT_EQ(table.item(0, 0)->text(), "Rent");
    EXPECT_EQ(table.item(0, 1)->text(), first.toString(Qt::TextDate));
    EXPECT_EQ(table.item(1, 0)->text(), "Wage");
    EXPECT_EQ(table.item(1, 1)->text(), first.addDays(3).toString(Qt::TextDate));
}

TEST_F(BudgetItemsDueWidgetTest, SetsOverdueItemsInBoldAgainstTheirDarkGround)
{
    update({dueOn("Rent", today().addDays(-1)), dueOn("Wage", today())}, 14);

    EXPECT_TRUE(table.item(0, 0)->font().bold());
    EXPECT_TRUE(table.item(0, 1)->font().bold());
    EXPECT_FALSE(table.item(1, 0)->font().bold());
}

TEST_F(BudgetItemsDueWidgetTest, KeepsTheGivenOrderUntilThePersonSorts)
{
    update({dueOn("B", today().addDays(2)), dueOn("D", today()), dueOn("A", today().addDays(9)),
            dueOn("C", today().addDays(-5))},
           14);

    EXPECT_EQ(names(), QStringList({"B", "D", "A", "C"}));
    EXPECT_TRUE(table.isSortingEnabled());
    EXPECT_EQ(table.horizontalHeader()->sortIndicatorSection(), -1);
}

TEST_F(BudgetItemsDueWidgetTest, SortsDueDatesByDate)
{
    std::vector<BudgetItemAmountDue> items;
    for (auto left = -7; left <= 14; ++left) {
        items.push_back(dueIn(left));
    }
    std::shuffle(items.begin(), items.end(), std::mt19937(1)); // NOLINT(cert-msc51-cpp): the same each time
    update(items, 14);
    showActive(widget);

    clickHeader(1);

    for (auto row = 0; row < table.rowCount(); ++row) {
        EXPECT_EQ(table.item(row, 0)->text(), QString::number(row - 7));
        EXPECT_EQ(table.item(row, 1)->text(), today().addDays(row - 7).toString(Qt::TextDate));
    }
}

TEST_F(BudgetItemsDueWidgetTest, SortsWholeRowsByName)
{
    update({dueOn("Rent", today().addDays(2)), dueOn("Car", today()), dueOn("Water", today().addDays(-1))}, 14);
    showActive(widget);

    clickHeader(0);

    EXPECT_EQ(names(), QStringList({"Car", "Rent", "Water"}));
    EXPECT_EQ(table.item(0, 1)->text(), today().toString(Qt::TextDate));
    EXPECT_EQ(table.item(2, 1)->text(), today().addDays(-1).toString(Qt::TextDate));
    EXPECT_EQ(background(0), QColor(Qt::red));
    EXPECT_EQ(background(1), QColor(Qt::yellow));
    EXPECT_EQ(background(2), QColor(Qt::darkRed));
}

TEST_F(BudgetItemsDueWidgetTest, SortsBlankRowsToTheEndEitherWay)
{
    update({dueIn(20), dueIn(3), dueIn(30), dueIn(1)}, 14);
    showActive(widget);

    clickHeader(1);
    auto const ascending = names();
    clickHeader(1);
    auto const descending = names();

    EXPECT_EQ(ascending, QStringList({"1", "3", "", ""}));
    EXPECT_EQ(descending, QStringList({"3", "1", "", ""}));
}

TEST_F(BudgetItemsDueWidgetTest, ListsANewFillInItsOwnOrder)
{
    update({dueIn(3), dueIn(1), dueIn(2)}, 14);
    showActive(widget);
    clickHeader(1);

    update({dueIn(2), dueIn(40), dueIn(1), dueIn(5)}, 14);

    EXPECT_EQ(names(), QStringList({"2", "", "1", "5"}));
}

TEST_F(BudgetItemsDueWidgetTest, LogsHowManyDaysEachItemHas)
{
    update({dueOn("Rent", today().addDays(3)), dueOn("The \"old\" car", today()), dueOn("Water", today().addDays(-1)),
            dueOn("Late", today().addDays(99))},
           14);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Updating the budget items due", "The budget item Rent is due within 3 days.",
                            "The budget item The \"old\" car is due within 0 days.",
                            "The budget item Water is due within -1 days.",
                            "The budget item Late is due within 99 days."));
}

TEST_F(BudgetItemsDueWidgetTest, SharesItsWidthTwoToOne)
{
    showActive(widget);

    for (auto const width : {250, 500, 667, 1000, 1001, 1919}) {
        widget.resize(width, 400);
        QCoreApplication::processEvents();

        EXPECT_EQ(table.columnWidth(0), width * 2 / 3);
        EXPECT_EQ(table.columnWidth(1), width / 3);
    }
}

TEST_F(BudgetItemsDueWidgetTest, SelectsOneWholeRowAndEditsNothing)
{
    update({dueIn(0), dueIn(1), dueIn(2)}, 14);
    showActive(widget);

    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(1, 1)).center());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      table.visualItemRect(table.item(2, 0)).center());
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(2, 0)).center());

    ASSERT_EQ(table.selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(table.selectionModel()->selectedRows().first().row(), 2);
    EXPECT_EQ(table.findChild<QLineEdit*>(), nullptr);
}

TEST_F(BudgetItemsDueWidgetTest, KeepsTheNameInSightWhenTheDateBecomesCurrent)
{
    std::vector<BudgetItemAmountDue> const many(40, dueIn(1)); // scrolls, which narrows the view
    update(many, 14);
    showActive(widget);

    QTest::keyClick(&table, Qt::Key_Right);

    EXPECT_EQ(table.currentColumn(), 1);
    EXPECT_GT(table.visualItemRect(table.item(0, 0)).right(), table.columnWidth(0) / 2);
}
