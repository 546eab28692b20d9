#include "TransactionsFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::toAccountCode;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// The same acts in a short list and in a long one.
class TransactionsLengthTest : public tlm::testing::TransactionsFixture, public ::testing::WithParamInterface<int>
{
protected:
    TransactionsLengthTest()
    {
        view->add(cash, postings(count));
        showOnScreen();
        view->showLedger(cash);
        turnEventLoop();
        step = row(count).y() - row(count - 1).y();
        MessageLog::clear();
    }

    /// Scrolls until the entry stands at the top. \return its form
    Row& scrollTo(int number) const
    {
        bar().setValue(row(1).y() + (number - 1) * step);
        return row(number);
    }

    /// Looks at so many places that nothing untouched of earlier ones is left of a long list.
    void lookAround() const
    {
        for (auto each = 1; each < count; each += 25) {
            scrollTo(each);
            if (each % 500 == 1) {
                turnEventLoop();
            }
        }
        turnEventLoop();
    }

    int const count = GetParam();
    int const middle = count / 2;
    int step = 0;
};

INSTANTIATE_TEST_SUITE_P(ShortAndLong, TransactionsLengthTest, ::testing::Values(40, 2'000));

TEST_P(TransactionsLengthTest, TheScrollRangeIsThatOfAllRows)
{
    EXPECT_EQ(bar().maximum(),
              2 * row(1).y() + count * step - (step - row(1).height()) - scroller().viewport()->height());
    EXPECT_EQ(bar().value(), bar().maximum());
    EXPECT_EQ(row(count).y() - row(1).y(), (count - 1) * step);
}

TEST_P(TransactionsLengthTest, ARowInTheMiddleStandsInItsPlace)
{
    auto const& found = scrollTo(middle);

    EXPECT_EQ(placeOf(found).y(), 0);
    EXPECT_EQ(found.description(), QStringLiteral("Bread %1").arg(middle));
    EXPECT_EQ(found.occurredOn(), QDate(2031, 1, 1).addDays(middle / 5));
    EXPECT_EQ(found.otherAccount(), toAccountCode(presentationText(food)));
    EXPECT_EQ(found.amount(), euros(middle % 50 + 1));
    EXPECT_EQ(found.height(), row(1).height());
    EXPECT_EQ(found.width(), row(1).width());
}

TEST_P(TransactionsLengthTest, AnEditOutlivesScrollingAwayAndIsSaved)
{
    describe(scrollTo(middle), "Rolls");
    lookAround();
    EXPECT_EQ(scrollTo(middle).description(), "Rolls");
    scrollTo(1);
    acceptAll();

    view->save();

    EXPECT_THAT(sent, ElementsAre(QStringLiteral("updated %1").arg(middle)));
    EXPECT_EQ(told.front().description(), "Rolls");
    EXPECT_FALSE(view->anyDirty());
    lookAround();
    EXPECT_EQ(scrollTo(middle).description(), "Rolls");
    EXPECT_FALSE(row(middle).isDirty());
}

TEST_P(TransactionsLengthTest, AWalkExaminesEachEntryInOrder)
{
    describe(scrollTo(middle), "Rolls");
    MessageLog::clear();

    view->save();

    auto const examined = MessageLog::texts(QtInfoMsg).filter("Examining");
    ASSERT_EQ(examined.size(), count);
    EXPECT_EQ(examined.at(0), "Examining Transaction: TransactionNumber(1) \"Bread 1\"");
    EXPECT_EQ(examined.at(middle - 1),
              QStringLiteral("Examining Transaction: TransactionNumber(%1) \"Rolls\"").arg(middle));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).filter("Transaction Not Changed").size(), count - 1);
}

TEST_P(TransactionsLengthTest, ARefusalStandsUntilTheNextAnswer)
{
    describe(scrollTo(middle), "Rolls");
    expectMessage(QtWarningMsg, "^Failure saving");
    answer = [this](auto const& which) { view->saveFailed(which, "Closed."); };
    view->save();
    lookAround();
    EXPECT_EQ(error(scrollTo(middle)), "Closed.");
    acceptAll();

    view->save();

    EXPECT_EQ(error(row(middle)), "none");
    EXPECT_FALSE(view->anyDirty());
}

TEST_P(TransactionsLengthTest, ARemovedEntryLeavesNoGap)
{
    auto const range = bar().maximum();
    markForRemoval(scrollTo(middle));
    lookAround();
    acceptAll();

    view->save();
    turnEventLoop();

    EXPECT_THAT(sent, ElementsAre(QStringLiteral("removed %1").arg(middle)));
    EXPECT_EQ(bar().maximum(), range - step);
    EXPECT_EQ(view->find(number(middle)), std::nullopt);
    auto const& next = scrollTo(middle - 1);
    EXPECT_EQ(placeOf(next).y(), 0);
    EXPECT_EQ(descriptionsOnScreen().mid(0, 2),
              (QStringList{QStringLiteral("Bread %1").arg(middle - 1), QStringLiteral("Bread %1").arg(middle + 1)}));
}

TEST_P(TransactionsLengthTest, HidingAndShowingComesBackToTheLatest)
{
    auto const range = bar().maximum();
    describe(scrollTo(middle), "Rolls");

    view->hideLedger(cash);
    turnEventLoop();
    EXPECT_EQ(bar().maximum(), 0);
    EXPECT_THAT(rowsOnScreen(), IsEmpty());
    view->showLedger(cash);

    EXPECT_EQ(bar().maximum(), range);
    EXPECT_EQ(bar().value(), range);
    EXPECT_EQ(descriptionsOnScreen().constLast(), QStringLiteral("Bread %1").arg(count));
    EXPECT_EQ(scrollTo(middle).description(), "Rolls");
}

TEST_P(TransactionsLengthTest, ASecondLedgerStandsBelowTheFirstAndAloneOnceThatIsHidden)
{
    auto const range = bar().maximum();
    view->add(bank, {posting(10'001), posting(10'002)});
    turnEventLoop();
    EXPECT_EQ(bar().maximum(), range + 2 * step);

    view->hideLedger(cash);
    view->showLedger(bank);
    turnEventLoop();

    EXPECT_THAT(descriptionsOnScreen(), ElementsAre("Bread 10001", "Bread 10002"));
    EXPECT_EQ(bar().maximum(), 0);
}

TEST_P(TransactionsLengthTest, SelectionsAreMadeOneAtATimeAndOutliveScrolling)
{
    view->setSelectionMode(1);
    select(scrollTo(middle));
    lookAround();
    EXPECT_EQ(view->selectedTransactions().front().number(), number(middle));

    select(scrollTo(1));

    EXPECT_THAT(sent, ElementsAre(QStringLiteral("selected %1").arg(middle),
                                  QStringLiteral("deselected %1").arg(middle), "selected 1"));
    ASSERT_EQ(view->selectedTransactions().size(), 1);
    EXPECT_EQ(view->selectedTransactions().front(), view->find(number(1)));
}

TEST_P(TransactionsLengthTest, ReadOnlyReachesEveryRow)
{
    view->setReadOnly(true);
    EXPECT_TRUE(scrollTo(middle).isReadOnly());

    view->setReadOnly(false);

    EXPECT_FALSE(row(middle).isReadOnly());
    EXPECT_FALSE(scrollTo(middle - 7).isReadOnly());
}

TEST_P(TransactionsLengthTest, ALaterAccountComesLastInEveryRow)
{
    auto const attic = account(50, "Attic", {}); // ahead of all others by its number

    view->addAccount(attic);

    EXPECT_EQ(offered(scrollTo(middle)).constLast(), presentationText(attic));
    EXPECT_EQ(offered(row(1)), offered(row(middle)));
    EXPECT_EQ(row(middle).otherAccount(), toAccountCode(presentationText(food)));
    EXPECT_FALSE(view->anyDirty());
}

TEST_P(TransactionsLengthTest, FindReadsAnEntryWithoutMovingTheList)
{
    scrollTo(1);
    auto const range = bar().maximum();

    auto const found = view->find(number(middle));

    auto const readFood = toAccountCode(presentationText(food));
    EXPECT_EQ(found, Transaction(QDate(2031, 1, 1).addDays(middle / 5), readFood, cash, euros(middle % 50 + 1),
                                 QStringLiteral("Bread %1").arg(middle), number(middle), Statuses::NotCleared));
    turnEventLoop();
    EXPECT_EQ(placeOf(row(1)).y(), 0);
    EXPECT_EQ(bar().maximum(), range);
    EXPECT_EQ(placeOf(scrollTo(middle)).y(), 0);
}

TEST_P(TransactionsLengthTest, ANewEntryComesLastAndIsScrolledTo)
{
    scrollTo(1);
    view->add(cash, Transaction());

    view->showLedger(cash);

    EXPECT_EQ(newRow().y() - row(1).y(), count * step);
    EXPECT_TRUE(scroller().viewport()->rect().contains(placeOf(newRow())));
    EXPECT_TRUE(view->hasNewEntry());
    lookAround();
    EXPECT_TRUE(newRow().isVisible());
}

TEST_P(TransactionsLengthTest, WhatWasPostedIsTakenOverWhereverItIs)
{
    view->saveSucceeded(number(middle), number(20'000));
    lookAround();

    EXPECT_EQ(view->find(number(middle)), std::nullopt);
    EXPECT_EQ(view->find(number(20'000))->description(), QStringLiteral("Bread %1").arg(middle));
    scrollTo(middle - 1);
    EXPECT_EQ(descriptionsOnScreen().at(1), QStringLiteral("Bread %1").arg(middle));
}
