#include "FullDisk.h"
#include "LedgersFixture.h"

namespace tallymere::presenter {
namespace {

using tlm::testing::expectMessage;

class LedgersChangesTest : public LedgersTest
{};

TEST_F(LedgersChangesTest, AnAddedTransactionIsPostedAsItIs)
{
    emit window.addedTransaction(record(dollars(7), TransactionStatuses::Cleared));

    ASSERT_TRUE(posted);
    expectAccepted({}, posted);
    EXPECT_EQ(posting(*posted), (Posting{QDate(2026, 4, 2), food, everyday, dollars(7), "Bread",
                                         TransactionStatuses::Cleared, std::nullopt}));
}

TEST_F(LedgersChangesTest, AnAddedTransactionCanBeChangedByTheNumberThatItGot)
{
    emit window.addedTransaction(record(dollars(7)));
    auto const number = posted.value();
    forget();

    emit window.updatedTransaction(number, record(dollars(8)));

    expectAccepted(number, number);
    EXPECT_EQ(posting(number).amount, dollars(8));
}

TEST_F(LedgersChangesTest, AnUpdatedTransactionIsReplacedAndNotClearedAnyMore)
{
    auto const number = postAndLoad(12);
    emit window.markCleared({number});
    forget();

    emit window.updatedTransaction(number, record(dollars(13)));

    expectAccepted(number, number);
    EXPECT_EQ(posting(number), (Posting{QDate(2026, 4, 2), food, everyday, dollars(13), "Bread",
                                        TransactionStatuses::NotCleared, std::nullopt}));
}

TEST_F(LedgersChangesTest, ATransactionIsMarkedUpAndDown)
{
    auto const number = postAndLoad(12);

    emit window.markCleared({number});
    expectAccepted(number, number);
    EXPECT_EQ(posting(number).status, TransactionStatuses::Cleared);
    forget();
    emit window.markReconciled(number);
    expectAccepted(number, number);
    EXPECT_EQ(posting(number).status, TransactionStatuses::Reconciled);
    forget();
    emit window.markUnreconciled({number});
    expectAccepted(number, number);
    EXPECT_EQ(posting(number).status, TransactionStatuses::Cleared);
}

TEST_F(LedgersChangesTest, SeveralAreMarkedTogetherAndAnsweredOnceByTheLeastNumber)
{
    auto const first = postAndLoad(12);
    auto const second = postAndLoad(13);

    emit window.markCleared({second, first});

    expectAccepted(first, first);
    EXPECT_EQ(posting(first).status, TransactionStatuses::Cleared);
    EXPECT_EQ(posting(second).status, TransactionStatuses::Cleared);
}

TEST_F(LedgersChangesTest, OfSeveralNoneIsMarkedWhenOneHasGone)
{
    auto const first = postAndLoad(12);
    auto const second = postAndLoad(13);
    emit window.removedTransaction(second);
    auto const sentence =
        sentenceOf([&](Household& household) { household.markCleared({PostingId{second.integer()}}); });

    expectRefused([&] { emit window.markCleared({first, second}); }, sentence, first);
}

TEST_F(LedgersChangesTest, ARemovedTransactionIsGone)
{
    auto const number = postAndLoad(12);

    emit window.removedTransaction(number);

    expectAccepted(number, {});
    EXPECT_TRUE(load(food).empty());
}

TEST_F(LedgersChangesTest, EachRefusalIsAnsweredWithTheSentenceOfTheHousehold)
{
    auto const number = postAndLoad(12);
    PostingId const id{number.integer()};
    auto const mixed = Transaction(QDate(2026, 4, 2), code(food), code(abroad), dollars(1), {}, {}, {});
    auto const same = made(food, abroad, dollars(1));
    expectRefused([&] { emit window.addedTransaction(mixed); },
                  sentenceOf([&](Household& household) { household.post(same); }), {});
    expectRefused([&] { emit window.updatedTransaction(number, mixed); },
                  sentenceOf([&](Household& household) { household.changePosting(id, same); }), number);
    session.change([&](Household& household) { household.markReconciled(id); });
    expectRefused([&] { emit window.updatedTransaction(number, record(dollars(1))); },
                  sentenceOf([&](Household& household) { household.changePosting(id, posting(number)); }), number);
    expectRefused([&] { emit window.removedTransaction(number); },
                  sentenceOf([&](Household& household) { household.removePosting(id); }), number);
}

TEST_F(LedgersChangesTest, AnAccountThatIsClosedIsRefused)
{
    auto const number = postAndLoad(12);
    session.change([](Household& household) { household.closeAccount(fun); });
    Transaction const told(QDate(2026, 4, 2), code(food), code(fun), dollars(1), {}, {}, {});
    auto const same = made(food, fun, dollars(1), QDate(2026, 4, 2));

    expectRefused([&] { emit window.addedTransaction(told); },
                  sentenceOf([&](Household& household) { household.post(same); }), {});
    expectRefused([&] { emit window.updatedTransaction(number, told); },
                  sentenceOf([&](Household& household) { household.changePosting(PostingId{number.integer()}, same); }),
                  number);
}

TEST_F(LedgersChangesTest, ABlankOtherAccountIsRefusedOnEitherSide)
{
    auto const number = postAndLoad(12);
    auto const sentence =
        "The other account of this transaction isn't chosen. Choose where the money came from or went to.";
    Transaction const fromNowhere(QDate(2026, 4, 2), code(food), AccountCode(), dollars(1), {}, {}, {});
    Transaction const toNowhere(QDate(2026, 4, 2), AccountCode(), code(food), dollars(1), {}, {}, {});

    expectRefused([&] { emit window.addedTransaction(fromNowhere); }, sentence, {});
    expectRefused([&] { emit window.updatedTransaction(number, toNowhere); }, sentence, number);
}

TEST_F(LedgersChangesTest, ANumberThatMeansNothingIsAnsweredToo)
{
    auto const number = postAndLoad(12);
    showAnew();
    auto const sentence = "This transaction isn't shown any more. Open the ledgers anew, and change it there.";

    expectRefused([&] { emit window.updatedTransaction(number, record(dollars(1))); }, sentence, number);
    showAnew(); // what was refused is forgotten
    expectRefused([&] { emit window.markCleared({number}); }, sentence, number);
    expectRefused([&] { emit window.markReconciled(number); }, sentence, number);
    expectRefused([&] { emit window.markUnreconciled({number}); }, sentence, number);
    expectRefused([&] { emit window.removedTransaction(number); }, sentence, number);
}

TEST_F(LedgersChangesTest, ANumberOfAnotherBudgetMeansNothing)
{
    auto const number = postAndLoad(12);

    session.open(writeSample("sample.budget"));
    forget();
    emit window.removedTransaction(number);

    ASSERT_EQ(answers.size(), 1U);
    EXPECT_NE(answers.front().refusal, std::nullopt);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(LedgersChangesTest, AMarkOfNothingIsAnsweredToo)
{
    auto const sentence = "No transaction is chosen. Choose those that are to be marked.";

    expectRefused([&] { emit window.markCleared({}); }, sentence, {});
    expectRefused([&] { emit window.markUnreconciled({}); }, sentence, {});
}

TEST_F(LedgersChangesTest, AFullDiskIsAnsweredAndLosesNothing)
{
    auto const number = postAndLoad(12);
    auto const before = content();
    auto const postings = session.household().latestPostingsOf(food, 9);
    auto const attempts = {
        std::function<void()>([&] { emit window.addedTransaction(record(dollars(1))); }),
        std::function<void()>([&] { emit window.updatedTransaction(number, record(dollars(1))); }),
        std::function<void()>([&] { emit window.markReconciled(number); }),
        std::function<void()>([&] { emit window.removedTransaction(number); }),
        std::function<void()>([&] { emit window.transferRequested(everyday, card, dollars(1), {}); })};
    for (auto const& attempt : attempts) {
        forget();
        {
            FullDisk const full;
            attempt();
        }
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_FALSE(answers.front().refusal.value_or(QString()).isEmpty());
        EXPECT_EQ(content(), before);
        EXPECT_EQ(session.household().latestPostingsOf(food, 9), postings);
    }
    forget();

    emit window.updatedTransaction(number, record(dollars(1)));

    expectAccepted(number, number);
}

/// A view changes a transaction and marks it right afterwards.
class LedgersStepsTest : public LedgersTest
{
protected:
    LedgersStepsTest() : number(postAndLoad(12)) {}

    /// Refused, since both accounts differ in their currency.
    void updateInVain()
    {
        emit window.updatedTransaction(
            number, Transaction(QDate(2026, 4, 2), code(food), code(abroad), dollars(1), {}, {}, {}));
    }

    TransactionNumber const number;
};

TEST_F(LedgersStepsTest, BothStepsAreAnswered)
{
    emit window.updatedTransaction(number, record(dollars(13)));
    emit window.markCleared({number});

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(0).refusal, std::nullopt);
    EXPECT_EQ(answers.at(1).refusal, std::nullopt);
    EXPECT_EQ(posting(number).status, TransactionStatuses::Cleared);
}

TEST_F(LedgersStepsTest, AMarkAfterARefusedUpdateIsRefusedWithTheSameSentence)
{
    auto const before = posting(number);

    updateInVain();
    emit window.markCleared({number});
    emit window.markReconciled(number);

    ASSERT_EQ(answers.size(), 3U);
    EXPECT_NE(answers.at(0).refusal, std::nullopt);
    EXPECT_EQ(answers.at(1).refusal, answers.at(0).refusal);
    EXPECT_EQ(answers.at(1).displayed, number);
    EXPECT_EQ(answers.at(2).refusal, answers.at(0).refusal);
    EXPECT_EQ(posting(number), before);
}

TEST_F(LedgersStepsTest, AMarkOfAnotherTransactionIsMadeAllTheSame)
{
    auto const other = postAndLoad(5);
    updateInVain();
    forget();

    emit window.markCleared({other});

    expectAccepted(other, other);
}

TEST_F(LedgersStepsTest, ARefusedUpdateIsForgottenInTheNextWalk)
{
    updateInVain();
    rest();
    forget();

    emit window.markCleared({number});

    expectAccepted(number, number);
}

TEST_F(LedgersStepsTest, TheNextUpdateThatIsAcceptedCanBeMarked)
{
    updateInVain();
    emit window.markCleared({number});
    forget();

    emit window.updatedTransaction(number, record(dollars(13)));
    emit window.markReconciled(number);

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(1).refusal, std::nullopt);
    EXPECT_EQ(posting(number).status, TransactionStatuses::Reconciled);
}

TEST_F(LedgersStepsTest, ARefusedMarkAfterTheViewClosedOverTheUpdateIsToldOverAFreshView)
{
    expectMessage(QtWarningMsg, "Not Everything Was Changed");
    closeOn(&MainWindow::transactionSaveSucceeded);

    emit window.updatedTransaction(number, record(dollars(13)));
    auto const* const dashboardView = window.centralWidget();
    {
        FullDisk const full;
        emit window.markCleared({number});
    }
    rest();

    ASSERT_EQ(answers.size(), 2U);
    ASSERT_NE(answers.at(1).refusal, std::nullopt);
    EXPECT_NE(window.centralWidget(), dashboardView) << "the ledgers are shown afresh";
    EXPECT_EQ(readMessage(), QStringLiteral("TXN %1 was changed, but it was not marked as cleared or reconciled: %2")
                                 .arg(number.integer())
                                 .arg(*answers.at(1).refusal));
    EXPECT_EQ(posting(number).amount, dollars(13));
}
}
}
