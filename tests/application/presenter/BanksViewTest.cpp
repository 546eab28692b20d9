#include "BanksViewFixture.h"

namespace tallymere::presenter {
namespace {

using tlm::foundation::presentationText;
using tlm::testing::expectMessage;

TEST_F(BanksViewTest, ABankWithTwoAccountsIsAddedAndFoundInTheFileAgain)
{
    show();
    addBank("Cedar Bank");
    addAccount("Daily", BankAccountTypes::Checking, "120");
    bankForm("Cedar Bank");
    addAccount("Nest egg", BankAccountTypes::Savings, "30");

    save();

    EXPECT_TRUE(isDashboardShown());
    saveAndReopen();
    auto const daily = numberOf("Daily");
    auto const nestEgg = numberOf("Nest egg");
    EXPECT_EQ(listedAt(BankName("Cedar Bank")),
              (Listed{{daily, BankAccountTypes::Checking}, {nestEgg, BankAccountTypes::Savings}}));
    EXPECT_EQ(session.household().balance(daily), dollars(120));
    EXPECT_EQ(session.household().balance(nestEgg), dollars(30));
}

TEST_F(BanksViewTest, TwoNewBanksMayEachGetAnAccountOfTheSameNameAtOnce)
{
    show();
    addBank("Cedar Bank");
    addAccount("Daily", BankAccountTypes::Checking, "120");
    bankForm("Cedar Bank");
    addBank("Dogwood Bank");
    addAccount("Daily", BankAccountTypes::Savings, "30");

    save();

    EXPECT_TRUE(isDashboardShown());
    auto const cedar = listedAt(BankName("Cedar Bank"));
    auto const dogwood = listedAt(BankName("Dogwood Bank"));
    ASSERT_EQ(cedar.size(), 1U);
    ASSERT_EQ(dogwood.size(), 1U);
    EXPECT_EQ(cedar.begin()->second, BankAccountTypes::Checking);
    EXPECT_EQ(session.household().balance(cedar.begin()->first), dollars(120));
    EXPECT_EQ(dogwood.begin()->second, BankAccountTypes::Savings);
    EXPECT_EQ(session.household().balance(dogwood.begin()->first), dollars(30));
}

TEST_F(BanksViewTest, ABankIsRenamedWithItsAccountsAndANewOne)
{
    show();
    enter(bankForm("Aspen Bank"), "nameLndt", "Cedar Bank");
    enter(accountForm(code(everyday)), "nameLndt", "Daily");
    bankForm("Cedar Bank");
    addAccount("Nest egg", BankAccountTypes::Savings, "30");
    click(bankForm("Birch Bank"), "removeChckbx");

    save();

    EXPECT_TRUE(isDashboardShown());
    saveAndReopen();
    EXPECT_FALSE(hasBank("Birch Bank"));
    EXPECT_EQ(code(everyday).name(), "Daily");
    EXPECT_EQ(listedAt(BankName("Cedar Bank")), (Listed{{everyday, BankAccountTypes::Checking},
                                                        {card, BankAccountTypes::CreditCard},
                                                        {numberOf("Nest egg"), BankAccountTypes::Savings}}));
}

TEST_F(BanksViewTest, TheNameOfAnotherBankIsRefusedAndLeavesThatBankAlone)
{
    expectMessage(QtCriticalMsg, "Bank entry save error for");
    auto const before = content();
    auto const sentence = sentenceOf([this](Household& household) { household.renameBank(otherBank, bank); });
    show();
    enter(bankForm("Birch Bank"), "nameLndt", "Aspen Bank");

    save();

    ASSERT_FALSE(isDashboardShown());
    EXPECT_EQ(error(shownForm("BankEntryWdgt")), sentence);
    EXPECT_EQ(content(), before);
}

TEST_F(BanksViewTest, TheAccountOfAGoalIsShownBelowWhereItIsStoredAndIsNoneOfTheBanks)
{
    auto const bicycle = storeGoal();
    auto const listed = listedAt(bank);
    show();
    auto const& goal = row(tlm::accounting::presentationText(code(bicycle)));
    ASSERT_NE(goal.parent(), nullptr);
    EXPECT_EQ(goal.parent()->text(0), tlm::accounting::presentationText(code(everyday)));
    EXPECT_EQ(goal.parent()->text(1), presentationText(dollars(500), tlm::foundation::WithCurrency()));
    enter(bankForm("Aspen Bank"), "nameLndt", "Cedar Bank");

    save();

    EXPECT_TRUE(isDashboardShown());
    EXPECT_EQ(listedAt(BankName("Cedar Bank")), listed);
    EXPECT_EQ(code(bicycle).parent(), everyday);
}

TEST_F(BanksViewTest, SubAccountsAreShownWhateverTheirNumbers)
{
    AccountNumber const fund(9'000);
    AccountNumber const part(8'000); // placed ahead of its parent
    session.change([&](Household& household) {
        QDate const opened(2026, 1, 2);
        household.addAccount({AccountTypes::Asset, AccountCode(fund, "Fund", everyday), dollars(0), false}, opened);
        household.addAccount({AccountTypes::Asset, AccountCode(part, "Part", fund), dollars(0), false}, opened);
    });

    show();

    auto const whole = tlm::accounting::presentationText(code(everyday));
    EXPECT_EQ(row(tlm::accounting::presentationText(code(fund))).parent()->text(0), whole);
    EXPECT_EQ(row(tlm::accounting::presentationText(code(part))).parent()->text(0), whole);
}

TEST_F(BanksViewTest, ClosedAccountsAndBanksStayWhatTheyAreWhenTheirBankIsSaved)
{
    session.change([&](Household& household) {
        household.closeAccount(card);
        household.closeBank(otherBank);
    });
    auto const listed = listedAt(bank);
    show();
    enter(bankForm("Aspen Bank"), "nameLndt", "Cedar Bank");
    enter(bankForm("Birch Bank"), "nameLndt", "Dogwood Bank");

    save();

    EXPECT_TRUE(isDashboardShown());
    EXPECT_EQ(listedAt(BankName("Cedar Bank")), listed);
    EXPECT_TRUE(account(card).isClosed);
    EXPECT_TRUE(isClosed(BankName("Dogwood Bank")));
}

TEST_F(BanksViewTest, ANewAccountIsTakenBackWhenTheViewGoesBeforeItsBankIsSaved)
{
    expectMessage(QtWarningMsg, "Not Everything Was Changed");
    auto const before = content();
    show();
    bankForm("Birch Bank");
    addAccount("Nest egg", BankAccountTypes::Savings, "30");
    press(QDialogButtonBox::Save);
    ASSERT_EQ(session.household().balance(numberOf("Nest egg")), dollars(30));

    emit window.prepareShowDashboard();
    rest();

    EXPECT_EQ(readMessage(),
              "The new account Nest egg was taken back, since its bank wasn't saved. Add it to a bank again.");
    EXPECT_EQ(content().books.accounts.size(), before.books.accounts.size());
    EXPECT_EQ(content().books.banks, before.books.banks);
}

TEST_F(BanksViewTest, ANewAccountWhoseBankIsRefusedIsTakenBackOnDiscard)
{
    expectMessage(QtWarningMsg, "Not Everything Was Changed");
    expectMessage(QtCriticalMsg, "Bank entry save error for");
    show();
    addBank("aspen bank");
    addAccount("Nest egg", BankAccountTypes::Savings, "30");
    save();
    ASSERT_FALSE(isDashboardShown());
    auto const made = numberOf("Nest egg");

    press(QDialogButtonBox::Discard);
    rest();

    EXPECT_TRUE(readMessage().startsWith("The new account Nest egg was taken back"));
    EXPECT_FALSE(hasAccount(made));
}

TEST_F(BanksViewTest, ANewAccountThatCannotBeTakenBackIsTold)
{
    expectMessage(QtWarningMsg, "Not Everything Was Changed");
    show();
    bankForm("Birch Bank");
    addAccount("Nest egg", BankAccountTypes::Savings, "30");
    press(QDialogButtonBox::Save);
    auto const made = numberOf("Nest egg");
    post(food, made, dollars(5));
    auto const sentence = sentenceOf([&](Household& household) { household.removeAccount(made); });

    emit window.prepareShowDashboard();
    rest();

    EXPECT_EQ(readMessage(),
              QStringLiteral("No bank has the new account Nest egg, and it could not be taken back: %1").arg(sentence));
    EXPECT_TRUE(hasAccount(made));
}

TEST_F(BanksViewTest, ANewAccountStaysThatItsBankListsWhenTheViewGoes)
{
    show();
    bankForm("Birch Bank");
    addAccount("Nest egg", BankAccountTypes::Savings, "30");

    save();
    rest();

    EXPECT_TRUE(isDashboardShown());
    EXPECT_EQ(readMessage(), QString());
    EXPECT_TRUE(listedAt(otherBank).contains(numberOf("Nest egg")));
}

TEST_F(BanksViewTest, AnotherBudgetLosesNoAccountToTheViewOfTheOneBefore)
{
    show();
    bankForm("Birch Bank");
    addAccount("Nest egg", BankAccountTypes::Savings, "30");
    press(QDialogButtonBox::Save);
    session.saveAs(home.path("half.budget"));

    emit window.loadBudgetFile(home.path("half.budget"));
    rest();

    EXPECT_EQ(readMessage(), QString());
    EXPECT_EQ(session.household().balance(numberOf("Nest egg")), dollars(30));
}
}
}
