#include "BudgetedEntryFixture.h"
#include "support/Typing.h"

#include <tlm/budgeting/Bill.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using tlm::budgeting::Bill;
using tlm::testing::BudgetedEntryFixture;
using tlm::testing::pasteOver;
using tlm::testing::PlanningRow;
using tlm::testing::type;
using tlm::testing::typeOver;

namespace {

/// What each entry of a row does when a person edits it.
class BudgetedMoneyEntryEditTest : public BudgetedEntryFixture
{
protected:
    BudgetedMoneyEntryEditTest()
    {
        row.setBudgetedMoney(Bill(Source("Rent"), euros(950), monthly, mayDay));
        hear(row);
    }

    Row row{usable, asCode, nullptr};
    PlanningRow const entries{row};
};
}

TEST_F(BudgetedMoneyEntryEditTest, TypingTheSourceOnlyTurnsItDirty)
{
    auto const typed = eventsOf([&] { type(entries.source(), "s"); });

    EXPECT_THAT(typed, ElementsAre("dirty"));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryEditTest, PastingTheSourceTurnsItDirty)
{
    EXPECT_THAT(eventsOf([&] { pasteOver(entries.source(), QStringLiteral("家賃")); }), ElementsAre("dirty"));

    EXPECT_EQ(row.source(), Source(QStringLiteral("家賃")));
}

TEST_F(BudgetedMoneyEntryEditTest, ASourceSetByTheProgramDoesNotTurnItDirty)
{
    EXPECT_THAT(eventsOf([&] { entries.source().setText("Flat"); }), IsEmpty());
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryEditTest, ATypedAmountCountsOnceItIsComplete)
{
    showIn(row, entries.amount());

    auto const typing = eventsOf([&] { typeOver(entries.amount(), "12.5"); });
    auto const leaving = eventsOf([&] { QTest::keyClick(&entries.amount(), Qt::Key_Tab); });

    EXPECT_THAT(typing, IsEmpty());
    EXPECT_THAT(leaving, ElementsAreArray(edited));
    EXPECT_EQ(row.amount(), Money(Currency::EUR, 12, 50, 0));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryEditTest, LeavingTheAmountCountsAsAnEdit)
{
    showIn(row, entries.amount());

    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&entries.amount(), Qt::Key_Tab); }), ElementsAreArray(edited));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryEditTest, AnEmptiedAmountCountsToo)
{
    showIn(row, entries.amount());

    auto const emptied = eventsOf([&] {
        typeOver(entries.amount(), "");
        QTest::keyClick(&entries.amount(), Qt::Key_Return);
    });

    EXPECT_THAT(emptied, ElementsAreArray(edited));
}

TEST_F(BudgetedMoneyEntryEditTest, PickingACurrencyMovesTheTotal)
{
    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&entries.currency(), Qt::Key_Up); }), ElementsAreArray(edited));

    EXPECT_EQ(row.amount(), Money(Currency::USD, 950, 0, 0));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryEditTest, PickingAPeriodMovesTheTotal)
{
    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&entries.period(), Qt::Key_Home); }), ElementsAreArray(edited));

    EXPECT_EQ(row.period(), tlm::budgeting::EventFrequency::None);
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryEditTest, MarkingForRemovalAndBackMovesTheTotalEachTime)
{
    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&entries.remove(), Qt::Key_Space); }), ElementsAreArray(edited));
    EXPECT_TRUE(row.isMarkedForRemoval());

    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&entries.remove(), Qt::Key_Space); }), ElementsAreArray(edited));
    EXPECT_FALSE(row.isMarkedForRemoval());
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryEditTest, AnotherDateOnlyTurnsItDirty)
{
    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&entries.dueNext(), Qt::Key_Up); }), ElementsAre("dirty"));

    EXPECT_NE(row.nextOccurOn(), mayDay);
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryEditTest, APastedAmountMayBeNegative)
{
    showIn(row, entries.amount());

    pasteOver(entries.amount(), "-7.25");

    EXPECT_EQ(row.amount(), -Money(Currency::EUR, 7, 25, 0));
}

TEST_F(BudgetedMoneyEntryEditTest, APastedAmountWithGroupsIsRefused)
{
    showIn(row, entries.amount());

    pasteOver(entries.amount(), "1,234.50");

    EXPECT_EQ(row.amount(), euros(950));
}

TEST_F(BudgetedMoneyEntryEditTest, AnAmountTooLongStaysAsTypedAndCannotBeRead)
{
    showIn(row, entries.amount());
    tlm::testing::expectMessage(QtWarningMsg, "^The changed money value does not create a valid money type\\.");

    typeOver(entries.amount(), "99999999999999999999");
    QTest::keyClick(&entries.amount(), Qt::Key_Tab);

    EXPECT_EQ(entries.amount().text(), "99999999999999999999");
    EXPECT_ANY_THROW(row.amount());
    EXPECT_EQ(events(), edited);
}
