#include "BudgetedGoalEntryFixture.h"
#include "support/Typing.h"

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using tlm::testing::BudgetedGoalEntryFixture;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;
using tlm::testing::typeOver;

namespace {

constexpr char const* reckoning = "Calculating Monthly Total Wages Percentage";

/// The share of the wages that a goal takes.
class BudgetedGoalEntryWagesTest : public BudgetedGoalEntryFixture
{
protected:
    void loadWith(Money const& setAside)
    {
        wages = euros(2000);
        expectMissingPeriod();
        row.setBudgetedMoney(goal("Holiday", setAside));
        hear(row);
    }

    static qsizetype reckonings() { return MessageLog::texts(QtInfoMsg).count(reckoning); }
};
}

TEST_F(BudgetedGoalEntryWagesTest, IsNothingWithoutWages)
{
    row.setBudgetedMoney(goal("Holiday"));

    EXPECT_EQ(percentage.text(), "0.00%");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(reckoning));
}

TEST_F(BudgetedGoalEntryWagesTest, IsShownForALoadedGoalWhichStaysClean)
{
    loadWith(euros(100));

    EXPECT_EQ(percentage.text(), "5.00%");
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedGoalEntryWagesTest, IsAllWhereMoreIsSetAsideThanIsEarned)
{
    loadWith(euros(2001));

    EXPECT_EQ(percentage.text(), "100.00%");
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedGoalEntryWagesTest, IsNothingWhereMoneyIsTakenBack)
{
    loadWith(euros(-100));

    EXPECT_EQ(percentage.text(), "0.00%");
}

TEST_F(BudgetedGoalEntryWagesTest, FollowsTheAmountAndTurnsTheRowDirty)
{
    loadWith(euros(100));
    showIn(row, entries.amount());

    typeOver(entries.amount(), "50");
    QTest::keyClick(&entries.amount(), Qt::Key_Tab);

    EXPECT_EQ(percentage.text(), "2.50%");
    EXPECT_THAT(events(), ElementsAreArray({"dirty", "valueChanged", "dirty", "valueChanged"}));
    EXPECT_EQ(reckonings(), 1);
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedGoalEntryWagesTest, ThatDoesNotMoveIsNotTold)
{
    loadWith(euros(100));
    showIn(row, entries.amount());

    QTest::keyClick(&entries.amount(), Qt::Key_Tab);

    EXPECT_THAT(events(), ElementsAreArray(edited));
    EXPECT_EQ(reckonings(), 1);
}

TEST_F(BudgetedGoalEntryWagesTest, FollowsTheFrequency)
{
    loadWith(euros(100));

    auto const picked =
        eventsOf([&] { entries.period().setCurrentText(presentationText(tlm::budgeting::EventFrequency::Yearly)); });

    EXPECT_EQ(percentage.text(), "0.42%");
    EXPECT_THAT(picked, ElementsAreArray({"dirty", "valueChanged", "dirty", "valueChanged"}));
    EXPECT_EQ(reckonings(), 1);
}

TEST_F(BudgetedGoalEntryWagesTest, IsNothingWithoutAFrequencyAsTheLogTells)
{
    loadWith(euros(100));

    entries.period().setCurrentIndex(0);

    EXPECT_EQ(percentage.text(), "0.00%");
}

TEST_F(BudgetedGoalEntryWagesTest, IsNothingInAnotherCurrencyAsTheLogTells)
{
    loadWith(euros(100));
    MessageLog::clear();
    expectMessage(QtWarningMsg, ".");

    entries.currency().setCurrentIndex(1);

    EXPECT_EQ(percentage.text(), "0.00%");
    EXPECT_THAT(MessageLog::texts(QtWarningMsg), ::testing::SizeIs(1));
}

TEST_F(BudgetedGoalEntryWagesTest, IsNothingWhereTheAmountCannotBeRead)
{
    loadWith(euros(100));
    showIn(row, entries.amount());
    expectMessage(QtWarningMsg, "^The changed money value does not create a valid money type\\.");
    expectMessage(QtWarningMsg, "^The value, 1-2, is not valid for the \"currency\" entry\\.");

    typeOver(entries.amount(), "1-2");
    QTest::keyClick(&entries.amount(), Qt::Key_Tab);

    EXPECT_EQ(percentage.text(), "0.00%");
}

TEST_F(BudgetedGoalEntryWagesTest, IsReckonedByTheWagesOfTheMoment)
{
    loadWith(euros(100));

    wages = euros(400);
    showIn(row, entries.amount());
    QTest::keyClick(&entries.amount(), Qt::Key_Tab);

    EXPECT_EQ(percentage.text(), "25.00%");
}

TEST_F(BudgetedGoalEntryWagesTest, ThatIsTypedMovesNothingElse)
{
    loadWith(euros(100));
    showIn(row, percentage);

    typeOver(percentage, "7");

    EXPECT_EQ(percentage.value(), 7.0);
    EXPECT_EQ(row.amount(), euros(100));
    EXPECT_EQ(row.finalTotal(), euros(1500));
    EXPECT_EQ(reckonings(), 0);
    EXPECT_THAT(events().mid(0, 2), ElementsAreArray(edited));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedGoalEntryWagesTest, IsNotMovedByTheTotal)
{
    loadWith(euros(100));
    showIn(row, entries.finalTotal());

    typeOver(entries.finalTotal(), "3000");
    QTest::keyClick(&entries.finalTotal(), Qt::Key_Tab);

    EXPECT_EQ(percentage.text(), "5.00%");
    EXPECT_EQ(reckonings(), 0);
}
