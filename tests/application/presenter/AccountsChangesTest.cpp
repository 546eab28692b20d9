#include "AccountsFixture.h"
#include "FullDisk.h"

namespace tallymere::presenter {
namespace {

class AccountsChangesTest : public AccountsTest
{};

TEST_F(AccountsChangesTest, AnAddedAccountOpensTodayWithItsBalance)
{
    auto const added = expense(610, "Garden", dollars(25));

    emit window.addedAct(added);

    expectAccepted(added.code());
    EXPECT_EQ(account(AccountNumber(610)).type, AccountTypes::Expense);
    EXPECT_EQ(session.household().balance(AccountNumber(610)), dollars(25));
    auto const postings = session.household().latestPostingsOf(AccountNumber(610), 9);
    ASSERT_EQ(postings.size(), 1U);
    EXPECT_EQ(postings.begin()->second.occurredOn, QDate::currentDate());
}

TEST_F(AccountsChangesTest, ANameIsAnsweredAsItWasSent)
{
    auto const added = expense(610, "  Garden ");

    emit window.addedAct(added);

    expectAccepted(added.code());
    EXPECT_EQ(code(AccountNumber(610)).name(), "Garden");
}

TEST_F(AccountsChangesTest, ARecodedAccountTakesNumberNameAndParent)
{
    AccountCode const changed(AccountNumber(620), "Groceries", fun);

    emit window.recoded(code(food), changed);

    expectAccepted(changed);
    EXPECT_FALSE(hasAccount(food));
    EXPECT_EQ(code(AccountNumber(620)), changed);
}

TEST_F(AccountsChangesTest, AClosedAccountIsAnsweredWithItsStoredCodeSoThatARenameIsStillToldAfterwards)
{
    session.change([](Household& household) { household.recode(food, AccountCode(food, "Food", fun)); });
    forget();

    emit window.closed(typed(food, "Groceries"));

    expectAccepted(AccountCode(food, "Food", fun));
    EXPECT_TRUE(account(food).isClosed);
}

TEST_F(AccountsChangesTest, AnOpenedAccountIsAnsweredWithItsStoredCode)
{
    session.change([](Household& household) { household.closeAccount(food); });
    forget();

    emit window.opened(typed(food, "Groceries"));

    expectAccepted(code(food));
    EXPECT_EQ(code(food).name(), "Food");
    EXPECT_FALSE(account(food).isClosed);
}

TEST_F(AccountsChangesTest, ARemovedAccountIsGone)
{
    emit window.removedAct(typed(food, "Typed over"));

    expectAccepted(typed(food, "Typed over"));
    EXPECT_FALSE(hasAccount(food));
}

TEST_F(AccountsChangesTest, EachRefusalIsAnsweredWithTheSentenceOfTheHousehold)
{
    auto const twin = expense(610, "food");
    expectRefused([&] { emit window.addedAct(twin); },
                  [&](Household& household) { household.addAccount(twin, QDate::currentDate()); }, {}, twin.code());
    AccountCode const taken(fun, "Food", std::nullopt);
    expectRefused([&] { emit window.recoded(code(food), taken); },
                  [&](Household& household) { household.recode(food, taken); }, code(food), taken);
    auto const told = typed(everyday, "Typed over");
    expectRefused([&] { emit window.closed(told); }, [&](Household& household) { household.closeAccount(everyday); },
                  code(everyday), told);
    post(food, everyday, dollars(5));
    expectRefused([&] { emit window.removedAct(typed(food, "Food")); },
                  [](Household& household) { household.removeAccount(food); }, code(food), code(food));
}

TEST_F(AccountsChangesTest, AnAccountBelowAClosedOneIsNotOpened)
{
    session.change([](Household& household) {
        household.recode(food, AccountCode(food, "Food", fun));
        household.closeAccount(food);
        household.closeAccount(fun);
    });

    expectRefused([&] { emit window.opened(typed(food, "Food")); },
                  [](Household& household) { household.reopenAccount(food); }, code(food), typed(food, "Food"));
}

TEST_F(AccountsChangesTest, AnAccountThatHasGoneMeanwhileIsAnsweredToo)
{
    AccountNumber const gone(999);
    auto const told = typed(gone, "Gone");

    expectRefused([&] { emit window.recoded(told, typed(gone, "Still gone")); },
                  [&](Household& household) { household.recode(gone, typed(gone, "Still gone")); }, told,
                  typed(gone, "Still gone"));
    expectRefused([&] { emit window.closed(told); }, [&](Household& household) { household.closeAccount(gone); }, told,
                  told);
    expectRefused([&] { emit window.opened(told); }, [&](Household& household) { household.reopenAccount(gone); }, told,
                  told);
    expectRefused([&] { emit window.removedAct(told); }, [&](Household& household) { household.removeAccount(gone); },
                  told, told);
}

TEST_F(AccountsChangesTest, AFullDiskIsAnsweredAndLosesNothing)
{
    auto const before = content();
    auto const attempts = {std::function<void()>([&] { emit window.addedAct(expense(610, "Garden")); }),
                           std::function<void()>([&] { emit window.recoded(code(food), typed(food, "Groceries")); }),
                           std::function<void()>([&] { emit window.closed(code(food)); }),
                           std::function<void()>([&] { emit window.removedAct(code(food)); })};
    for (auto const& attempt : attempts) {
        forget();
        {
            FullDisk const full;
            attempt();
        }
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_FALSE(answers.front().refusal.value_or(QString()).isEmpty());
        EXPECT_EQ(content(), before);
        EXPECT_EQ(changes.count(), 0);
        rest();
    }
    forget();

    emit window.addedAct(expense(610, "Garden"));

    expectAccepted(expense(610, "Garden").code());
}

/// A view tells an entry in two steps: whether it is closed, then its new code or its removal.
class AccountsStepsTest : public AccountsTest
{
protected:
    /// Leaves \a food without a balance, and with postings that keep it from being removed.
    void postToAndFro()
    {
        post(food, everyday, dollars(5));
        post(everyday, food, dollars(5));
        forget();
    }
};

TEST_F(AccountsStepsTest, BothStepsOfAnEntryAreAnswered)
{
    emit window.closed(typed(food, "Groceries"));
    emit window.recoded(code(food), typed(food, "Groceries"));

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(0).refusal, std::nullopt);
    EXPECT_EQ(answers.at(1).refusal, std::nullopt);
    EXPECT_EQ(code(food).name(), "Groceries");
    EXPECT_TRUE(account(food).isClosed);
}

TEST_F(AccountsStepsTest, ACodeAfterARefusedClosingIsRefusedWithTheSameSentence)
{
    auto const before = content();

    emit window.closed(typed(everyday, "Daily"));
    emit window.recoded(code(everyday), typed(everyday, "Daily"));

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_NE(answers.at(0).refusal, std::nullopt);
    EXPECT_EQ(answers.at(1).refusal, answers.at(0).refusal);
    EXPECT_EQ(content(), before);
}

TEST_F(AccountsStepsTest, AnotherEntryAfterARefusedClosingIsRecodedAllTheSame)
{
    emit window.closed(code(everyday));
    forget();

    emit window.recoded(code(food), typed(food, "Groceries"));

    expectAccepted(typed(food, "Groceries"));
}

TEST_F(AccountsStepsTest, ARefusedClosingIsForgottenInTheNextWalk)
{
    emit window.closed(code(everyday));
    rest();
    forget();

    emit window.recoded(code(everyday), typed(everyday, "Daily"));

    expectAccepted(typed(everyday, "Daily"));
}

TEST_F(AccountsStepsTest, ARemovalAfterARefusedClosingIsJudgedOnItsOwn)
{
    AccountNumber const garden(610);
    emit window.addedAct(expense(610, "Garden", dollars(25)));
    forget();

    emit window.closed(code(garden));
    emit window.removedAct(typed(garden, "Garden"));

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_NE(answers.at(0).refusal, std::nullopt);
    EXPECT_EQ(answers.at(1).refusal, std::nullopt);
    EXPECT_FALSE(hasAccount(garden));
    rest();
    EXPECT_EQ(readMessage(), QString());
}

TEST_F(AccountsStepsTest, ARefusedCodeAfterTheViewClosedOverTheClosingIsToldOverAFreshView)
{
    tlm::testing::expectMessage(QtWarningMsg, "Not Everything Was Changed");
    auto const sentence =
        sentenceOf([](Household& household) { household.recode(food, AccountCode(food, "fun", std::nullopt)); });
    closeOn(&MainWindow::accountSaveSucceeded);
    QSignalSpy shown(&window, &MainWindow::prepareShowDashboard);

    emit window.closed(typed(food, "fun"));
    ASSERT_EQ(shown.count(), 1);
    emit window.recoded(code(food), typed(food, "fun"));
    auto* const closed = window.centralWidget();
    rest();

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(1).refusal, sentence);
    EXPECT_NE(window.centralWidget(), closed) << "the accounts are shown afresh";
    EXPECT_EQ(readMessage(),
              QStringLiteral("Food is closed now. What else was changed about it was refused: %1").arg(sentence));
}

TEST_F(AccountsStepsTest, ARefusedRemovalAfterTheViewClosedOverTheClosingIsToldOverAFreshView)
{
    tlm::testing::expectMessage(QtWarningMsg, "Not Everything Was Changed");
    postToAndFro();
    auto const sentence = sentenceOf([](Household& household) { household.removeAccount(food); });
    closeOn(&MainWindow::accountSaveSucceeded);

    emit window.closed(code(food));
    emit window.removedAct(code(food));
    rest();

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers.at(1).refusal, sentence);
    EXPECT_EQ(readMessage(),
              QStringLiteral("Food is closed now. What else was changed about it was refused: %1").arg(sentence));
}

TEST_F(AccountsStepsTest, NothingIsToldOfAnAccountWhoseFirstStepWasRefusedToo)
{
    AccountNumber const gone(999);
    closeOn(&MainWindow::accountSaveSucceeded);

    emit window.addedAct(expense(610, "Garden"));
    emit window.closed(typed(gone, "Gone"));
    emit window.recoded(typed(gone, "Gone"), typed(gone, "Still gone"));
    rest();

    ASSERT_EQ(answers.size(), 3U);
    EXPECT_NE(answers.at(2).refusal, std::nullopt);
    EXPECT_EQ(readMessage(), QString());
}

TEST_F(AccountsStepsTest, ARefusalInAViewThatIsStillThereIsLeftToTheView)
{
    postToAndFro();

    emit window.closed(code(food));
    emit window.removedAct(code(food));
    rest();

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_NE(answers.at(1).refusal, std::nullopt);
    EXPECT_EQ(readMessage(), QString());
}

TEST_F(AccountsStepsTest, NothingIsToldWhenBothStepsAreAcceptedAndTheViewWentAway)
{
    closeOn(&MainWindow::accountSaveSucceeded);

    emit window.closed(code(food));
    emit window.recoded(code(food), typed(food, "Groceries"));
    rest();

    EXPECT_EQ(readMessage(), QString());
    EXPECT_EQ(code(food).name(), "Groceries");
}
}
}
