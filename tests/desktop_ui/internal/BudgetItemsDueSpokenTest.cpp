#include "BudgetItemsDueFixture.h"
#include "ShowActive.h"

#include <QAccessible>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using tlm::testing::BudgetItemsDueFixture;
using tlm::testing::dueIn;
using tlm::testing::showActive;
using tlm::testing::today;

namespace {

/// Visits all that a screen reader could ask a table for.
/// \return text of the current cell, then name and date of each row
QStringList readAloud(QTableWidget& table)
{
    auto* const spoken = QAccessible::queryAccessibleInterface(&table);
    auto* const focus = spoken->focusChild();
    QStringList texts{focus != nullptr ? focus->text(QAccessible::Name) : QStringLiteral("nothing")};
    for (auto index = 0; index < spoken->childCount(); ++index) {
        auto* const part = spoken->child(index);
        EXPECT_EQ(spoken->indexOfChild(part), index);
        EXPECT_TRUE(part->isValid());
        part->rect();
        part->state();
    }
    auto* const cells = spoken->tableInterface();
    for (auto row = 0; row < cells->rowCount(); ++row) {
        texts.append(cells->cellAt(row, 0)->text(QAccessible::Name) + '|' +
                     cells->cellAt(row, 1)->text(QAccessible::Name));
    }
    return texts;
}

QString spokenRow(qint64 dayCount)
{
    return QString::number(dayCount) + '|' + today().addDays(dayCount).toString(Qt::TextDate);
}

class BudgetItemsDueSpokenTest : public BudgetItemsDueFixture
{
protected:
    BudgetItemsDueSpokenTest() { QAccessible::setActive(true); }
    ~BudgetItemsDueSpokenTest() override { QAccessible::setActive(false); }
};
}

TEST_F(BudgetItemsDueSpokenTest, TellsNamesAndDates)
{
    update({dueIn(0), dueIn(99), dueIn(1)}, 14);
    showActive(widget);

    EXPECT_THAT(readAloud(table), ElementsAre("0", spokenRow(0), "|", spokenRow(1)));
}

TEST_F(BudgetItemsDueSpokenTest, HasACurrentCellThatIsNotSelected)
{
    update({dueIn(99), dueIn(0)}, 14);

    EXPECT_EQ(table.currentRow(), 0);
    EXPECT_FALSE(table.selectionModel()->hasSelection());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&table)->text(QAccessible::Name), "Budget items due");
}

TEST_F(BudgetItemsDueSpokenTest, SurvivesAnEmptyList)
{
    update({}, 14);
    showActive(widget);
    table.setFocus();

    EXPECT_THAT(readAloud(table), ElementsAre("nothing"));
}

TEST_F(BudgetItemsDueSpokenTest, KeepsTheCurrentItemWhenThePersonSorts)
{
    update({dueIn(3), dueIn(99), dueIn(1)}, 14);
    showActive(widget);

    clickHeader(1);

    EXPECT_THAT(readAloud(table), ElementsAre("3", spokenRow(1), spokenRow(3), "|"));
}

TEST_F(BudgetItemsDueSpokenTest, SurvivesAnEmptyListAfterALongOne)
{
    update({dueIn(3), dueIn(99), dueIn(1)}, 14);
    showActive(widget);
    readAloud(table);

    update({}, 14);

    EXPECT_THAT(readAloud(table), ElementsAre("nothing"));
}
