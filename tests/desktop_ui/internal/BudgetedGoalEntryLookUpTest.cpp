#include "BudgetedGoalEntryFixture.h"

#include <tlm/banking/BankError.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::banking::BankAccount;
using tlm::testing::BudgetedGoalEntryFixture;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;

namespace {

/// How a goal asks for the accounts of a bank, and takes the answer.
class BudgetedGoalEntryLookUpTest : public BudgetedGoalEntryFixture
{
protected:
    BudgetedGoalEntryLookUpTest() { hear(row); }

    static void answerAtOnce(GoalRow& asking, std::set<Account> const& accounts)
    {
        QObject::connect(&asking, &GoalRow::lookUpBankAccounts, &asking,
                         [&asking, accounts](auto const& bank) { asking.onLookedUpBankAccounts(bank, accounts); });
    }

    void pickBirch() { QTest::keyClick(&entries.bank(), Qt::Key_End); }

    /// \return whether the row acts on another answer
    bool isWaiting()
    {
        MessageLog::clear();
        row.onLookedUpBankAccounts(aspen, {});
        return !MessageLog::lines().isEmpty();
    }
};
}

TEST_F(BudgetedGoalEntryLookUpTest, AsksForTheAccountsOfABankThatIsPicked)
{
    row.setBudgetedMoney(goal("Holiday"));

    auto const picked = eventsOf([&] { pickBirch(); });

    EXPECT_THAT(picked, ElementsAre("dirty", "valueChanged", "dirty", "lookUpBankAccounts Birch Bank"));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedGoalEntryLookUpTest, OffersTheAccountsThatCanStoreAGoal)
{
    row.setBudgetedMoney(goal("Holiday"));
    pickBirch();
    row.clearDirty();
    MessageLog::clear();

    row.onLookedUpBankAccounts(birch, birchAccounts);

    EXPECT_THAT(itemTexts(entries.account()), ElementsAre("", presentationText(everyday), presentationText(rainyDays)));
    EXPECT_EQ(entries.bank().currentText(), "Birch Bank");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Processing looked up bank accounts for BankName(\"Birch Bank\") in goal \"Holiday\""));
    EXPECT_FALSE(row.isDirty());
    EXPECT_FALSE(isWaiting());
}

TEST_F(BudgetedGoalEntryLookUpTest, PickingAnAccountMovesTheTotalAndBringsItsType)
{
    answerAtOnce(row, birchAccounts);
    pickBirch();

    auto const picked = eventsOf([&] { QTest::keyClick(&entries.account(), Qt::Key_End); });

    EXPECT_THAT(picked, ElementsAre("dirty", "valueChanged"));
    EXPECT_EQ(row.bankAccount(), store);
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedGoalEntryLookUpTest, PickingNoBankEmptiesTheAccountsAndAsksForNone)
{
    answerAtOnce(row, birchAccounts);
    pickBirch();

    auto const picked = eventsOf([&] { QTest::keyClick(&entries.bank(), Qt::Key_Home); });

    EXPECT_FALSE(picked.contains("lookUpBankAccounts Birch Bank"));
    EXPECT_EQ(picked.mid(0, 2), edited);
    EXPECT_THAT(itemTexts(entries.account()), ElementsAre(""));
    EXPECT_EQ(row.bankAccount(), std::nullopt);
}

TEST_F(BudgetedGoalEntryLookUpTest, IsHeardAgainOnceAnAnswerIsTaken)
{
    answerAtOnce(row, birchAccounts);
    pickBirch();

    auto const picked = eventsOf([&] { QTest::keyClick(&entries.bank(), Qt::Key_Up); });

    EXPECT_TRUE(picked.contains("lookUpBankAccounts Aspen Bank"));
}

TEST_F(BudgetedGoalEntryLookUpTest, AsksForItsAccountWhileItLoadsAndIsClean)
{
    auto const loading = eventsOf([&] { row.setBudgetedMoney(goal("Bicycle")); });

    EXPECT_EQ(loading.mid(loading.size() - 2), QStringList({"dirty", "lookUpBankAccounts Birch Bank"}));
    EXPECT_FALSE(row.isDirty());
    EXPECT_EQ(row.bankAccount(), std::nullopt);
}

TEST_F(BudgetedGoalEntryLookUpTest, AsksAfterTheRecordIsShownAndBeforeItsShareIsReckoned)
{
    Money heardTotal;
    QObject::connect(&row, &GoalRow::lookUpBankAccounts, &row, [&] { heardTotal = row.finalTotal(); });

    row.setBudgetedMoney(goal("Bicycle"));

    EXPECT_EQ(heardTotal, euros(1500));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).last(), "Calculating Monthly Total Wages Percentage");
}

TEST_F(BudgetedGoalEntryLookUpTest, ShowsItsAccountWhenTheAnswerComesWhileItLoads)
{
    answerAtOnce(row, birchAccounts);

    row.setBudgetedMoney(goal("Bicycle"));

    EXPECT_EQ(row.bankAccount(), store);
    EXPECT_EQ(entries.account().currentText(), presentationText(rainyDays));
    EXPECT_TRUE(entries.bank().isEnabled());
    EXPECT_FALSE(entries.accountType().isEnabled());
    EXPECT_FALSE(row.isDirty());
    EXPECT_FALSE(isWaiting());
}

TEST_F(BudgetedGoalEntryLookUpTest, ShowsItsAccountWhenTheAnswerComesLaterWithoutAWord)
{
    row.setBudgetedMoney(goal("Bicycle"));

    auto const answered = eventsOf([&] { row.onLookedUpBankAccounts(birch, birchAccounts); });

    EXPECT_THAT(answered, IsEmpty());
    EXPECT_EQ(row.bankAccount(), store);
    EXPECT_FALSE(row.isDirty());
    EXPECT_FALSE(isWaiting());
}

TEST_F(BudgetedGoalEntryLookUpTest, ShowsAnAccountOfATypeThatIsNotOfferedToOthers)
{
    BankAccount const own{birch, bicycle.number(), Types::Goal};
    GoalRow other({birch}, wages, {{Source("Bicycle"), own}}, {bicycle, everyday, rainyDays}, usable, asCode, nullptr);
    answerAtOnce(other, birchAccounts);

    other.setBudgetedMoney(goal("Bicycle"));

    EXPECT_EQ(other.bankAccount(), own);
}

TEST_F(BudgetedGoalEntryLookUpTest, WarnsOfAnAccountThatHasVanished)
{
    row.setBudgetedMoney(goal("Bicycle"));
    expectMessage(QtWarningMsg, "^Requested bank account not found BankAccount\\(BankName\\(\"Birch Bank\"\\), .*200.*"
                                "Savings\\)\\)$");

    row.onLookedUpBankAccounts(birch, {{everyday.number(), Types::Checking}});

    EXPECT_EQ(row.source(), Source("Bicycle"));
    EXPECT_EQ(row.finalTotal(), euros(1500));
    EXPECT_EQ(row.bankAccount(), std::nullopt);
    EXPECT_FALSE(row.isDirty());
    EXPECT_FALSE(isWaiting());
}

TEST_F(BudgetedGoalEntryLookUpTest, TakesAnAccountOfAnotherTypeForVanished)
{
    row.setBudgetedMoney(goal("Bicycle"));
    expectMessage(QtWarningMsg, "^Requested bank account not found ");

    row.onLookedUpBankAccounts(birch, {{rainyDays.number(), Types::Checking}});

    EXPECT_EQ(row.bankAccount(), std::nullopt);
}

TEST_F(BudgetedGoalEntryLookUpTest, LeavesTheAnswerToTheRowThatAsked)
{
    auto const idle = makeRow({everyday, rainyDays});
    idle->setBudgetedMoney(goal("Holiday"));
    row.setBudgetedMoney(goal("Bicycle"));
    MessageLog::clear();

    idle->onLookedUpBankAccounts(birch, birchAccounts);

    EXPECT_THAT(MessageLog::lines(), IsEmpty());
    EXPECT_THAT(itemTexts(child<QComboBox>(*idle, "accountCmbbx")), ElementsAre(""));
    row.onLookedUpBankAccounts(birch, birchAccounts);
    EXPECT_EQ(row.bankAccount(), store);
}

TEST_F(BudgetedGoalEntryLookUpTest, WaitsForNoMoreAfterAnAnswerThatItCannotShow)
{
    auto const unknowing = makeRow({everyday});
    unknowing->setBudgetedMoney(goal("Bicycle"));

    EXPECT_THROW(unknowing->onLookedUpBankAccounts(birch, birchAccounts), tlm::banking::BankError);

    MessageLog::clear();
    unknowing->onLookedUpBankAccounts(birch, birchAccounts);
    EXPECT_THAT(MessageLog::lines(), IsEmpty());
}
