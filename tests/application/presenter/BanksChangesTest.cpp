#include "BanksFixture.h"
#include "FullDisk.h"

namespace tallymere::presenter {
namespace {

class BanksChangesTest : public BanksTest
{};

TEST_F(BanksChangesTest, ABankIsAddedWithItsNewAccounts)
{
    emit window.addedBankAccount("Nest egg", BankAccountTypes::Savings, dollars(70));
    ASSERT_EQ(accountAnswers.size(), 1U);
    auto const number = numberOf("Nest egg");
    EXPECT_EQ(accountAnswers.front().refusal, std::nullopt);
    EXPECT_EQ(accountAnswers.front().displayed, AccountCode(number, "Nest egg", std::nullopt));
    EXPECT_EQ(session.household().balance(number), dollars(70));
    forget();
    BankName const cedar("Cedar Bank");

    emit window.bankAdded(Bank(cedar, {{number, BankAccountTypes::Savings}}, false));

    expectAccepted(answers, cedar);
    EXPECT_EQ(listedAt(cedar), (Listed{{number, BankAccountTypes::Savings}}));
}

TEST_F(BanksChangesTest, NamesAreAnsweredAsTheyWereSent)
{
    emit window.addedBankAccount("  Nest egg ", BankAccountTypes::Savings, dollars(70));
    EXPECT_EQ(accountAnswers.at(0).displayed, AccountCode(numberOf("Nest egg"), "  Nest egg ", std::nullopt));
    forget();

    emit window.bankRenamed(otherBank, BankName(" Cedar Bank "));

    expectAccepted(answers, BankName(" Cedar Bank "));
    EXPECT_TRUE(hasBank("Cedar Bank"));
}

TEST_F(BanksChangesTest, ABankIsRenamedWithItsAccounts)
{
    auto const before = listedAt(bank);

    emit window.bankRenamed(bank, BankName("Cedar Bank"));

    expectAccepted(answers, BankName("Cedar Bank"));
    EXPECT_EQ(listedAt(BankName("Cedar Bank")), before);
}

TEST_F(BanksChangesTest, ABankIsClosedAndOpened)
{
    emit window.bankClosed(otherBank);
    expectAccepted(answers, otherBank);
    EXPECT_TRUE(isClosed(otherBank));
    forget();

    emit window.bankOpened(otherBank);

    expectAccepted(answers, otherBank);
    EXPECT_FALSE(isClosed(otherBank));
}

TEST_F(BanksChangesTest, AnUpdateOfAClosedBankLeavesItClosed)
{
    emit window.bankClosed(otherBank);
    forget();

    emit window.bankUpdated(Bank(otherBank, {}, false));

    expectAccepted(answers, otherBank);
    EXPECT_TRUE(isClosed(otherBank));
}

TEST_F(BanksChangesTest, AnUpdateListsWhatItTells)
{
    emit window.addedBankAccount("Nest egg", BankAccountTypes::Savings, dollars(70));
    auto const number = numberOf("Nest egg");
    forget();

    emit window.bankUpdated(Bank(otherBank, {{number, BankAccountTypes::Savings}}, false));

    expectAccepted(answers, otherBank);
    EXPECT_EQ(listedAt(otherBank), (Listed{{number, BankAccountTypes::Savings}}));
}

TEST_F(BanksChangesTest, ABankIsRemoved)
{
    emit window.bankRemoved(otherBank);

    expectAccepted(answers, otherBank);
    EXPECT_FALSE(hasBank("Birch Bank"));
}

TEST_F(BanksChangesTest, AnAccountIsRenamedAndKeepsItsPlace)
{
    emit window.renamedBankAccount(code(everyday), AccountCode(everyday, "Daily", std::nullopt));

    expectAccepted(accountAnswers, AccountCode(everyday, "Daily", std::nullopt));
    EXPECT_EQ(code(everyday).name(), "Daily");
    EXPECT_TRUE(listedAt(bank).contains(everyday));
}

TEST_F(BanksChangesTest, AnAccountIsRemovedFromItsBankToo)
{
    auto const removed = code(card);

    emit window.removedBankAccount(removed);

    expectAccepted(accountAnswers, removed);
    EXPECT_FALSE(hasAccount(card));
    EXPECT_EQ(listedAt(bank).size(), 1U);
}

TEST_F(BanksChangesTest, EachRefusalOfABankIsAnsweredWithTheSentenceOfTheHousehold)
{
    BankName const twin("aspen bank");
    BankName const gone("Gone Bank");
    using Change = std::function<void(Household&)>;
    auto const refused = [this](std::function<void()> const& attempt, Change const& same,
                                std::optional<BankName> const& original, BankName const& displayed) {
        expectRefused(answers, attempt, sentenceOf(same), original, displayed);
    };
    refused([&] { emit window.bankAdded(Bank(twin, {}, false)); },
            [&](Household& household) { household.addBank(Bank(twin, {}, false)); }, {}, twin);
    refused([&] { emit window.bankAdded(Bank()); }, [](Household& household) { household.addBank(Bank()); }, {},
            BankName());
    refused([&] { emit window.bankRenamed(otherBank, twin); },
            [&](Household& household) { household.renameBank(otherBank, twin); }, otherBank, twin);
    refused([&] { emit window.bankClosed(bank); }, [&](Household& household) { household.closeBank(bank); }, bank,
            bank);
    refused([&] { emit window.bankRemoved(bank); }, [&](Household& household) { household.removeBank(bank); }, bank,
            bank);
    refused([&] { emit window.bankUpdated(updated(otherBank)); },
            [&](Household& household) { household.listAccounts(otherBank, listedAt(bank)); }, otherBank, otherBank);
    refused([&] { emit window.bankOpened(gone); }, [&](Household& household) { household.reopenBank(gone); }, gone,
            gone);
    refused([&] { emit window.bankUpdated(Bank(gone, {}, false)); },
            [&](Household& household) { household.listAccounts(gone, {}); }, gone, gone);
}

TEST_F(BanksChangesTest, EachRefusalOfAnAccountIsAnsweredWithTheSentenceOfTheHousehold)
{
    auto const today = QDate::currentDate();
    auto const savings = BankAccountTypes::Savings;
    AccountCode const gone(AccountNumber(999), "Gone", std::nullopt);
    expectRefused(
        accountAnswers, [&] { emit window.addedBankAccount("  ", savings, dollars(1)); },
        sentenceOf([&](Household& household) { household.addBankAccount("  ", savings, dollars(1), today); }), {},
        AccountCode());
    expectRefused(
        accountAnswers, [&] { emit window.addedBankAccount("Nest egg", savings, Money()); },
        sentenceOf([&](Household& household) { household.addBankAccount("Nest egg", savings, Money(), today); }), {},
        AccountCode("Nest egg", std::nullopt));
    AccountCode const twin(card, "everyday", std::nullopt);
    expectRefused(
        accountAnswers, [&] { emit window.renamedBankAccount(code(card), twin); },
        sentenceOf([&](Household& household) { household.recode(card, twin); }), std::optional(code(card)), twin);
    expectRefused(
        accountAnswers, [&] { emit window.renamedBankAccount(gone, gone); },
        sentenceOf([&](Household& household) { household.recode(gone.number(), gone); }), std::optional(gone), gone);
    expectRefused(
        accountAnswers, [&] { emit window.removedBankAccount(gone); },
        sentenceOf([&](Household& household) { household.removeAccount(gone.number()); }), std::optional(gone), gone);
}

TEST_F(BanksChangesTest, AFullDiskIsAnsweredAndLosesNothing)
{
    auto const before = content();
    auto const attempts = {
        std::function<void()>([&] { emit window.bankAdded(Bank(BankName("Cedar Bank"), {}, false)); }),
        std::function<void()>([&] { emit window.bankRenamed(bank, BankName("Cedar Bank")); }),
        std::function<void()>([&] { emit window.bankClosed(otherBank); }),
        std::function<void()>([&] { emit window.bankRemoved(otherBank); }),
        std::function<void()>([&] {
            emit window.bankUpdated(Bank(bank, {{everyday, BankAccountTypes::Checking}}, {}));
        }),
        std::function<void()>([&] { emit window.addedBankAccount("New", BankAccountTypes::Savings, dollars(1)); }),
        std::function<void()>(
            [&] { emit window.renamedBankAccount(code(card), AccountCode(card, "Plastic", std::nullopt)); }),
        std::function<void()>([&] { emit window.removedBankAccount(code(card)); })};
    for (auto const& attempt : attempts) {
        forget();
        {
            FullDisk const full;
            attempt();
        }
        ASSERT_EQ(answers.size() + accountAnswers.size(), 1U);
        auto const& refusal = answers.empty() ? accountAnswers.front().refusal : answers.front().refusal;
        EXPECT_FALSE(refusal.value_or(QString()).isEmpty());
        EXPECT_EQ(content(), before);
        EXPECT_EQ(changes.count(), 0);
        rest();
    }
}

/// A view tells a bank in steps: its new name, that it is open again, and then that it is closed or which accounts it has.
class BanksStepsTest : public BanksTest
{
protected:
    BankName const cedar{"Cedar Bank"};
};

TEST_F(BanksStepsTest, AllStepsOfABankAreAnswered)
{
    emit window.bankClosed(otherBank);
    rest();
    forget();

    emit window.bankRenamed(otherBank, cedar);
    emit window.bankOpened(cedar);
    emit window.bankUpdated(Bank(cedar, {}, false));

    ASSERT_EQ(answers.size(), 3U);
    for (auto const& answer : answers) {
        EXPECT_EQ(answer.refusal, std::nullopt);
        EXPECT_EQ(answer.displayed, cedar);
    }
    EXPECT_FALSE(isClosed(cedar));
}

TEST_F(BanksStepsTest, WhatFollowsARefusedNameLeavesTheBankOfThatNameAlone)
{
    auto const before = content();

    emit window.bankRenamed(otherBank, bank);
    emit window.bankUpdated(Bank(bank, {}, false));
    emit window.bankRenamed(otherBank, bank);
    emit window.bankClosed(bank);
    emit window.bankRenamed(otherBank, bank);
    emit window.bankOpened(bank);
    emit window.bankUpdated(Bank(bank, {}, false));

    ASSERT_EQ(answers.size(), 7U);
    for (auto const& answer : answers) {
        EXPECT_NE(answer.refusal, std::nullopt);
        EXPECT_EQ(answer.refusal, answers.front().refusal);
        EXPECT_EQ(answer.original, otherBank);
        EXPECT_EQ(answer.displayed, bank);
    }
    EXPECT_EQ(content(), before);
}

TEST_F(BanksStepsTest, TheBankThatHasTheRefusedNameIsUpdatedAllTheSame)
{
    emit window.bankRenamed(otherBank, bank);
    emit window.bankUpdated(Bank(bank, {}, false));
    forget();

    emit window.bankUpdated(Bank(bank, {{everyday, BankAccountTypes::Checking}}, false));

    expectAccepted(answers, bank);
    EXPECT_EQ(listedAt(bank).size(), 1U);
}

TEST_F(BanksStepsTest, AnUpdateAfterARefusedOpeningIsRefusedWithTheSameSentence)
{
    emit window.bankClosed(otherBank);
    rest();
    forget();
    auto const before = content();

    {
        FullDisk const full;
        emit window.bankOpened(otherBank);
    }
    emit window.bankUpdated(Bank(otherBank, {}, false));

    ASSERT_EQ(answers.size(), 2U);
    EXPECT_NE(answers.at(0).refusal, std::nullopt);
    EXPECT_EQ(answers.at(1).refusal, answers.at(0).refusal);
    EXPECT_EQ(answers.at(1).original, otherBank);
    EXPECT_EQ(content(), before);
}

TEST_F(BanksStepsTest, ARefusalAfterTheViewClosedOverTheNameIsToldOverAFreshView)
{
    tlm::testing::expectMessage(QtWarningMsg, "Not Everything Was Changed");
    closeOn(&MainWindow::bankSaveSucceeded);

    emit window.bankRenamed(bank, cedar);
    auto const* const dashboardView = window.centralWidget();
    emit window.bankClosed(cedar);
    rest();

    ASSERT_EQ(answers.size(), 2U);
    ASSERT_NE(answers.at(1).refusal, std::nullopt) << "an account holds money";
    EXPECT_NE(window.centralWidget(), dashboardView) << "the banks are shown afresh";
    EXPECT_EQ(
        readMessage(),
        QStringLiteral("Not all that was changed about Cedar Bank could be saved: %1").arg(*answers.at(1).refusal));
    EXPECT_FALSE(isClosed(cedar));
}
}
}
