#include "TransactionsFixture.h"

#include <tlm/foundation/Error.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// Answers that come inside the emission, for whom they are, and what may end meanwhile.
class TransactionsAnswerTest : public tlm::testing::TransactionsFixture
{
protected:
    void add(int count)
    {
        view->add(cash, postings(count));
        for (auto* const each : rows()) {
            describe(*each, "Rolls");
        }
    }

    /// Runs \a act when \a what is told.
    void when(QString const& what, std::function<void()> const& act)
    {
        answer = [this, what, act](auto const& /*which*/) {
            if (sent.constLast() == what) {
                act();
            }
        };
    }
};

using TransactionsAnswerDeathTest = TransactionsAnswerTest;

TEST_F(TransactionsAnswerDeathTest, ASuccessOfNoEntryEndsTheProgram)
{
    view->add(cash, posting(1));

    EXPECT_DEATH(view->saveSucceeded(number(2), number(2)),
                 "Didn't locate the transaction that succeeded to be saved.\n");
    EXPECT_DEATH(view->saveSucceeded({}, number(2)), "Didn't locate the transaction that succeeded to be saved.\n");
}

TEST_F(TransactionsAnswerDeathTest, AFailureOfNoEntryEndsTheProgramWithTheSameSentence)
{
    view->add(cash, posting(1));

    EXPECT_DEATH(view->saveFailed(number(2), "Closed."), "Didn't locate the transaction that succeeded to be saved.\n");
    EXPECT_DEATH(view->saveFailed({}, "Closed."), "Didn't locate the transaction that succeeded to be saved.\n");
}

TEST_F(TransactionsAnswerTest, AllAreSavedInOneWalk)
{
    add(3);
    acceptAll();

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "updated 2", "updated 3"));
    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsAnswerTest, ARefusalInsideTheEmissionStandsInItsEntry)
{
    add(2);
    expectMessage(QtWarningMsg, "^Failure saving");
    answer = [this](auto const& which) { view->saveFailed(which, "Closed."); };
    view->saveFailed(number(2), "");

    view->save();

    EXPECT_EQ(error(row(1)), "Closed.");
    EXPECT_EQ(error(row(2)), "Closed.");
    EXPECT_TRUE(view->anyDirty());
}

TEST_F(TransactionsAnswerTest, AnEmptyMessageClearsTheErrorAndLeavesTheEntryDirty)
{
    view->add(cash, posting(1));
    expectMessage(QtWarningMsg, "^Failure saving TransactionNumber\\(1\\) \"\"$");
    expectMessage(QtWarningMsg, "^Failure saving TransactionNumber\\(1\\) \"Closed.\"$");
    view->saveFailed(number(1), "Closed.");

    view->saveFailed(number(1), "");

    EXPECT_EQ(error(row(1)), "none");
    EXPECT_TRUE(row(1).isDirty());
}

TEST_F(TransactionsAnswerTest, TheMarkIsToldAlthoughTheEntryEndsInsideItsUpdate)
{
    view->add(cash, {posting(1), posting(2)});
    check(row(1), Qt::PartiallyChecked);
    check(row(2), Qt::Checked);
    when("updated 1", [this] { delete &row(1); });

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "cleared 1", "updated 2", "reconciled 2"));
}

TEST_F(TransactionsAnswerTest, NothingIsToldOnceTheListHasEnded)
{
    add(2);
    check(row(1), Qt::PartiallyChecked);
    when("updated 1", [this] { delete view.data(); });

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1"));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).constLast(), "Processed all ledger transactions.");
}

TEST_F(TransactionsAnswerTest, TheListMayEndInsideTheLastMark)
{
    add(2);
    check(row(1), Qt::Checked);
    when("reconciled 1", [this] { delete view.data(); });

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "reconciled 1"));
}

TEST_F(TransactionsAnswerTest, AnEntryThatOthersHaveEndedIsSkippedAndItsLedgerStaysLoaded)
{
    add(3);
    when("updated 1", [this] { delete &row(2); });

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "updated 3"));
    EXPECT_EQ(view->find(number(2)), std::nullopt);
    delete &row(1);
    delete &row(3);
    EXPECT_TRUE(view->isLoaded(cash));
    EXPECT_FALSE(view->anyDirty());
    view->showLedger(cash);
    view->hideLedger(cash);
    view->save();
}

TEST_F(TransactionsAnswerTest, EntriesThatComeInsideAWalkWaitForTheNext)
{
    add(1);
    when("updated 1", [this] {
        view->add(bank, postings(1'000));
        view->add(bank, Transaction());
        describe(newRow(), "Rolls");
    });

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1"));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).filter("Examining").size(), 1);
}

TEST_F(TransactionsAnswerTest, ARefusalThatIsThrownStandsInItsEntry)
{
    add(2);
    expectMessage(QtWarningMsg, "^Failure saving TransactionNumber\\(1\\) \"Closed.\"$");
    when("updated 1", [] { throw tlm::foundation::Error("Closed."); });

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "updated 2"));
    EXPECT_EQ(error(row(1)), "Closed.");
}

TEST_F(TransactionsAnswerTest, ARefusalThatIsThrownAfterTheEntryHasEndedIsLogged)
{
    add(2);
    expectMessage(QtWarningMsg, "^Failure saving TransactionNumber\\(1\\) \"Closed.\"$");
    when("updated 1", [this] {
        delete &row(1);
        throw tlm::foundation::Error("Closed.");
    });

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "updated 2"));
}

TEST_F(TransactionsAnswerTest, AnotherFaultLeavesTheWalkAndLosesNothing)
{
    add(2);
    when("updated 1", [] { throw std::logic_error("broken"); });
    EXPECT_THROW(view->save(), std::logic_error);
    EXPECT_TRUE(row(1).isDirty());
    sent.clear();
    acceptAll();

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "updated 2"));
    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsAnswerTest, AnAnswerFindsTheEntryThatIsSentAndNotItsCleanTwin)
{
    view->add(cash, posting(1));
    view->add(food, posting(1));
    auto& clean = *rows().constFirst();
    auto& changed = *rows().constLast();
    describe(changed, "Rolls");
    expectMessage(QtWarningMsg, "^Failure saving");
    answer = [this](auto const& which) { view->saveFailed(which, "Closed."); };

    view->save();

    EXPECT_EQ(error(clean), "none");
    EXPECT_EQ(error(changed), "Closed.");
}

TEST_F(TransactionsAnswerTest, TwoChangedTwinsGetAnAnswerEach)
{
    view->add(cash, posting(1));
    view->add(food, posting(1));
    describe(*rows().constFirst(), "Rolls");
    describe(*rows().constLast(), "Buns");
    acceptAll();

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "updated 1"));
    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsAnswerTest, ALateAnswerFindsTheDirtyTwin)
{
    view->add(cash, posting(1));
    view->add(food, posting(1));
    describe(*rows().constLast(), "Rolls");
    view->save();

    view->saveSucceeded(number(1), number(1));

    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsAnswerTest, ARemovedTwinLeavesTheOther)
{
    view->add(cash, posting(1));
    view->add(food, posting(1));
    markForRemoval(*rows().constLast());
    acceptAll();

    view->save();

    EXPECT_TRUE(view->isLoaded(cash));
    EXPECT_FALSE(view->isLoaded(food));
    EXPECT_TRUE(view->find(number(1)));
}

TEST_F(TransactionsAnswerTest, TheAnswerToAMarkFindsItsEntryUnderTheNumberThatItWasSentUnder)
{
    view->add(cash, posting(1));
    check(row(1), Qt::PartiallyChecked);
    answer = [this](auto const& which) { view->saveSucceeded(which, number(8)); };

    view->save();

    EXPECT_THAT(sent, ElementsAre("updated 1", "cleared 1"));
    EXPECT_EQ(row(8).description(), "Bread 1");
    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsAnswerTest, NewEntriesAreAnsweredOneAfterTheOther)
{
    view->add(cash, Transaction());
    view->add(bank, Transaction());
    auto& first = *rows().constFirst();
    auto& second = *rows().constLast();
    for (auto* const each : rows()) {
        markForRemoval(*each);
        markForRemoval(*each); // dirty all the same
    }

    view->saveSucceeded({}, number(3));
    view->saveSucceeded({}, number(4));

    EXPECT_EQ(first.number(), number(3));
    EXPECT_EQ(second.number(), number(4));
    EXPECT_FALSE(view->hasNewEntry());
}

TEST_F(TransactionsAnswerTest, AnAnswerReachesAnEntryThatNobodyHasScrolledTo)
{
    view->add(cash, postings(2'000));
    expectMessage(QtWarningMsg, "^Failure saving TransactionNumber\\(1500\\) \"Closed.\"$");

    view->saveFailed(number(1'500), "Closed.");

    EXPECT_EQ(error(row(1'500)), "Closed.");
    EXPECT_TRUE(view->anyDirty());
    view->save();
    EXPECT_THAT(sent, ElementsAre("updated 1500"));
}
