#include "BudgetedDebtEntryFixture.h"
#include "support/Typing.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using tlm::testing::BudgetedDebtEntryFixture;
using tlm::testing::typeOver;

namespace {

/// What each entry that a debt adds does when a person edits it.
class BudgetedDebtEntryEditTest : public BudgetedDebtEntryFixture
{
protected:
    BudgetedDebtEntryEditTest()
    {
        row.setBudgetedMoney(debt(""));
        hear(row);
    }
};
}

TEST_F(BudgetedDebtEntryEditTest, TheCurrencyOfTheSumFollowsThatOfThePayment)
{
    auto const picked = eventsOf([&] { QTest::keyClick(&entries.currency(), Qt::Key_Up); });

    EXPECT_THAT(picked, ElementsAre("dirty", "valueChanged", "dirty", "valueChanged"));
    EXPECT_EQ(row.borrowed(), Money(Currency::USD, 9000, 0, 0));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedDebtEntryEditTest, TheSumLosesItsCurrencyWithThePayment)
{
    QTest::keyClick(&entries.currency(), Qt::Key_Home);

    EXPECT_EQ(borrowedEntry().code(), Currency::XXX);
}

TEST_F(BudgetedDebtEntryEditTest, ACurrencyThatTheSumHasAlreadyIsToldTwiceStill)
{
    borrowedEntry().setCurrentIndex(1);

    auto const picked = eventsOf([&] { QTest::keyClick(&entries.currency(), Qt::Key_Up); });

    EXPECT_THAT(picked, ElementsAre("dirty", "valueChanged", "valueChanged"));
}

TEST_F(BudgetedDebtEntryEditTest, AnotherPaymentLeavesTheSumOfAStoredDebtAsItIs)
{
    row.setBudgetedMoney(debt("Car"));
    showIn(row, entries.amount());

    typeOver(entries.amount(), "300");
    QTest::keyClick(&entries.amount(), Qt::Key_Tab);

    EXPECT_THAT(events(), ElementsAreArray(edited));
    EXPECT_EQ(row.amount(), euros(300));
    EXPECT_EQ(row.borrowed(), euros(9000));
    EXPECT_TRUE(borrowedEntry().isReadOnly());
}

TEST_F(BudgetedDebtEntryEditTest, NobodyTypesOverTheSumOfAStoredDebt)
{
    row.setBudgetedMoney(debt("Car"));
    showIn(row, entries.borrowed());

    typeOver(entries.borrowed(), "1");

    EXPECT_EQ(row.borrowed(), euros(9000));
}

TEST_F(BudgetedDebtEntryEditTest, ATypedSumOnlyTurnsItDirty)
{
    showIn(row, entries.borrowed());

    auto const typing = eventsOf([&] { typeOver(entries.borrowed(), "8000"); });
    auto const leaving = eventsOf([&] { QTest::keyClick(&entries.borrowed(), Qt::Key_Tab); });

    EXPECT_THAT(typing, IsEmpty());
    EXPECT_THAT(leaving, ElementsAre("dirty"));
    EXPECT_EQ(row.borrowed(), euros(8000));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedDebtEntryEditTest, AnotherInterestMovesTheTotal)
{
    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&interest(), Qt::Key_Up); }), ElementsAreArray(edited));

    EXPECT_EQ(row.interest().rate(), 5.25);
    EXPECT_EQ(row.interest().precision(), 6);
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedDebtEntryEditTest, InterestAboveAllCannotBeTyped)
{
    showIn(row, interest());

    typeOver(interest(), "101");

    EXPECT_EQ(row.interest().rate(), 10.0);
}

TEST_F(BudgetedDebtEntryEditTest, AnotherBankMovesTheTotalAndAsksForNoAccounts)
{
    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&entries.bank(), Qt::Key_Down); }), ElementsAreArray(edited));

    EXPECT_EQ(row.bankAccount()->bank, aspen);
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedDebtEntryEditTest, AnotherTypeMovesTheTotal)
{
    QTest::keyClick(&entries.bank(), Qt::Key_Down);

    EXPECT_THAT(eventsOf([&] { QTest::keyClick(&entries.accountType(), Qt::Key_End); }), ElementsAreArray(edited));

    EXPECT_EQ(row.bankAccount()->type, Types::Loan);
}
