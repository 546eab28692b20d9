#include "TransactionsFixture.h"

#include <tlm/foundation/PresentationText.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::toAccountCode;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;
using tlm::testing::typeOver;

/// What Save sends, with answers that come later or never.
class TransactionsSaveTest : public tlm::testing::TransactionsFixture
{
protected:
    /// Fills \a row in as a posting of 12 euros from the cash to the food.
    static void fillIn(Row& row, QString const& about)
    {
        describe(row, about);
        child<QRadioButton>(row, "debitRdbttn").click();
        auto& other = child<QComboBox>(row, "accountCmbbx");
        other.setCurrentIndex(other.findText("Food", Qt::MatchContains));
        typeEuros(row, "12");
    }

    static void typeEuros(Row& row, QString const& amount)
    {
        auto& currency = child<QComboBox>(row, "codeCmbbx");
        currency.setCurrentIndex(currency.findText("EUR"));
        typeAmount(row, amount);
    }

    static void typeAmount(Row& row, QString const& amount)
    {
        auto& field = child<QLineEdit>(row, "amountLndt");
        typeOver(field, amount);
        QTest::keyClick(&field, Qt::Key_Return);
    }
};

TEST_F(TransactionsSaveTest, NothingDirtySendsNothing)
{
    view->add(cash, {posting(1), posting(2, QDate(2031, 1, 1), Statuses::Reconciled)});
    MessageLog::clear();

    view->save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Saving Transactions", "Examining Transaction: TransactionNumber(1) \"Bread 1\"",
                            "Transaction Not Changed", "Examining Transaction: TransactionNumber(2) \"Bread 2\"",
                            "Transaction Not Changed", "Processed all ledger transactions."));
}

TEST_F(TransactionsSaveTest, AChangedEntryIsSentAndStaysDirtyUntilItsAnswer)
{
    view->add(cash, {posting(1), posting(2)});
    describe(row(2), "  Rolls  ");
    MessageLog::clear();

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 2"));
    auto const readFood = toAccountCode(presentationText(food));
    EXPECT_EQ(told.front(),
              Transaction(QDate(2031, 1, 1), readFood, cash, euros(3), "Rolls", {}, Statuses::NotCleared));
    EXPECT_TRUE(view->anyDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Saving Transactions", "Examining Transaction: TransactionNumber(1) \"Bread 1\"",
                            "Transaction Not Changed", "Examining Transaction: TransactionNumber(2) \"  Rolls  \"",
                            "Transaction to be Updated: TransactionNumber(2)", "Processed all ledger transactions."));
    view->saveSucceeded(number(2), number(2));
    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsSaveTest, ABlankDescriptionIsSentAsNone)
{
    view->add(cash, posting(1));
    describe(row(1), "   ");

    view->save();

    EXPECT_EQ(told.front().description(), std::nullopt);
}

TEST_F(TransactionsSaveTest, TheMarkOfAChangedEntryFollowsItsUpdate)
{
    view->add(cash, {posting(1), posting(2), posting(3, QDate(2031, 1, 1), Statuses::Cleared)});
    check(row(1), Qt::PartiallyChecked);
    check(row(2), Qt::Checked);
    check(row(3), Qt::Unchecked);

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "cleared 1", "updated 2", "reconciled 2", "updated 3"));
    for (auto const& txn : told) {
        EXPECT_EQ(txn.status(), Statuses::NotCleared);
        EXPECT_EQ(txn.number(), std::nullopt);
    }
}

TEST_F(TransactionsSaveTest, ANewEntryIsAddedWithItsMark)
{
    for (auto const state : {Qt::Unchecked, Qt::PartiallyChecked, Qt::Checked}) {
        view->add(cash, Transaction());
        fillIn(*rows().constLast(), "Rolls");
        check(*rows().constLast(), state);
    }
    MessageLog::clear();

    view->save();

    EXPECT_THAT(sent, ElementsAre("added new", "added new", "added new"));
    EXPECT_EQ(told.at(0).status(), Statuses::NotCleared);
    EXPECT_EQ(told.at(1).status(), Statuses::Cleared);
    EXPECT_EQ(told.at(2).status(), Statuses::Reconciled);
    auto const readFood = toAccountCode(presentationText(food));
    EXPECT_EQ(told.at(0),
              Transaction(QDate::currentDate(), readFood, cash, euros(12), "Rolls", {}, Statuses::NotCleared));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).filter("to be Added").size(), 3);
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).filter("to be Added").constFirst(), "Transaction to be Added \"Rolls\"");
}

TEST_F(TransactionsSaveTest, APostedEntryIsRemovedByItsNumber)
{
    view->add(cash, {posting(1), posting(2)});
    markForRemoval(row(1));
    MessageLog::clear();

    view->save();

    EXPECT_THAT(sent, ElementsAre("removed 1"));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).at(2), "Transaction to be Removed");
    EXPECT_EQ(rows().size(), 2);
    view->saveSucceeded(number(1), number(1));
    EXPECT_TRUE(view->isLoaded(cash));
    turnEventLoop();
    EXPECT_EQ(rows().size(), 1);
    EXPECT_EQ(view->find(number(1)), std::nullopt);
}

TEST_F(TransactionsSaveTest, TheLedgerOfTheLastRemovedEntryIsNotLoaded)
{
    view->add(toAccountCode(presentationText(cash)), {posting(1), posting(2)});
    markForRemoval(row(1));
    markForRemoval(row(2));
    acceptAll();

    view->save();

    EXPECT_FALSE(view->isLoaded(cash));
    EXPECT_FALSE(view->anyDirty());
    view->add(cash, posting(1));
    EXPECT_TRUE(view->isLoaded(cash));
}

TEST_F(TransactionsSaveTest, ANewEntryThatIsMarkedForRemovalGoesWithoutASignal)
{
    view->add(cash, Transaction());
    markForRemoval(newRow());

    view->save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_FALSE(view->isLoaded(cash));
    EXPECT_FALSE(view->hasNewEntry());
    turnEventLoop();
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(TransactionsSaveTest, HiddenLedgersAreSavedTooInTheOrderOfAdding)
{
    view->add(cash, posting(1));
    view->add(bank, posting(2));
    view->add(cash, posting(3));
    for (auto const each : {1, 2, 3}) {
        describe(row(each), "Rolls");
    }
    view->hideLedger(cash);

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "updated 2", "updated 3"));
}

TEST_F(TransactionsSaveTest, AnAmountThatCanNotBeReadIsRefusedAndTheOthersAreSent)
{
    view->add(cash, {posting(1), posting(2)});
    typeAmount(row(1), "");
    describe(row(2), "Rolls");
    expectMessage(QtWarningMsg, "^Failure saving TransactionNumber\\(1\\) \"");

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 2"));
    EXPECT_NE(error(row(1)), "none");
    EXPECT_EQ(error(row(2)), "none");
    EXPECT_TRUE(row(1).isDirty());
}

TEST_F(TransactionsSaveTest, ANewEntryAsItStandsIsRefusedSinceBothItsSidesAreTheLedger)
{
    view->add(cash, Transaction());
    describe(newRow(), "Rolls");
    typeEuros(newRow(), "12");
    EXPECT_EQ(newRow().debiting(), cash);
    EXPECT_EQ(newRow().crediting(), cash);
    expectMessage(QtWarningMsg, "^Failure saving .*comes from the account that it goes to");

    view->save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_TRUE(error(newRow()).startsWith("The money comes from the account that it goes to."));
}

TEST_F(TransactionsSaveTest, ARefusedEntryIsSentAgain)
{
    view->add(cash, posting(1));
    describe(row(1), "Rolls");
    view->save();
    expectMessage(QtWarningMsg, "^Failure saving TransactionNumber\\(1\\) \"Closed.\"$");
    view->saveFailed(number(1), "Closed.");
    EXPECT_EQ(error(row(1)), "Closed.");
    EXPECT_TRUE(view->anyDirty());

    view->save();
    view->saveSucceeded(number(1), number(1));

    EXPECT_THAT(sent, ElementsAre("updated 1", "updated 1"));
    EXPECT_EQ(error(row(1)), "none");
    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsSaveTest, APostedNewEntryIsUpdatedNextTime)
{
    view->add(cash, Transaction());
    fillIn(newRow(), "Rolls");
    view->save();
    MessageLog::clear();

    view->saveSucceeded(std::nullopt, number(9));

    EXPECT_EQ(MessageLog::texts(QtInfoMsg).constFirst(), "Succeeded to save transaction TransactionNumber(0)");
    EXPECT_EQ(child<QLabel>(row(9), "numberLbl").text(), "TXN 9");
    EXPECT_FALSE(view->hasNewEntry());
    describe(row(9), "Bread");
    view->save();
    EXPECT_THAT(sent, ElementsAre("added new", "updated 9"));
    view->saveSucceeded(number(9), {});
    EXPECT_EQ(row(9).number(), number(9));
}
