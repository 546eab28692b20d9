#include "AccountFixture.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::navigation::AllowSubAccounts;

namespace tallymere::engine {

namespace {

class BankChangesTest : public AccountTest
{
protected:
    using Accounts = std::map<AccountNumber, BankAccountTypes>;

    Bank const& bank(BankName const& name) const { return household.content().books.banks.at(name); }

    /// Expects that Riverside can't list \a number as \a kind.
    void refuseListing(AccountNumber const& number, BankAccountTypes kind, QString const& sentence)
    {
        expectRefused([&] { household.listAccounts(river, {{number, kind}}); }, sentence);
        expectRefused(
            [&] {
                household.addBank(Bank(hill, {{number, kind}}, false));
            },
            QString(sentence).replace("Riverside", "Hill"));
    }

    BankName const hill{"Hill"};
    BankName const unknown{"Lake"};
};

TEST_F(BankChangesTest, ABankKeepsItsAccountsUnderAnotherName)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(5));

    household.renameBank(river, BankName(" Riverbank "));

    EXPECT_THAT(household.openBanks(), ElementsAre(BankName("Riverbank")));
    EXPECT_THAT(household.bankAccounts(BankName("riverbank"), AllowSubAccounts::No),
                ElementsAre(tlm::banking::AccountNumberBankType{checking, BankAccountTypes::Checking}));
    EXPECT_EQ(store.kept(), household.content());
    EXPECT_NO_THROW(household.addBank(river));
}

TEST_F(BankChangesTest, ABankMayWriteItsOwnNameOtherwise)
{
    household.renameBank(BankName(" riverside"), BankName("RIVERSIDE"));
    auto const transactions = store.transactions();

    household.renameBank(BankName("RIVERSIDE"), BankName("RIVERSIDE "));

    EXPECT_THAT(household.openBanks(), ElementsAre(BankName("RIVERSIDE")));
    EXPECT_EQ(store.transactions(), transactions);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(BankChangesTest, NamesThatABankCanNotTake)
{
    household.addBank(hill);
    auto const refuse = [&](QString const& name, QString const& sentence) {
        expectRefused([&] { household.renameBank(river, BankName(name)); }, sentence);
    };

    refuse(" ", "This bank has no name. Give it one by which you will know it.");
    refuse("River\nside", "The name of this bank holds signs that can't be shown, such as a line break, or a blank of "
                          "unusual width. Type the name anew.");
    refuse("hILL ", "There is a bank called Hill already. Use that one, or give this one another name.");
}

TEST_F(BankChangesTest, WhatIsAskedOfAnUnknownBank)
{
    QString const sentence("There is no bank called Lake. Add it as a new one.");

    expectRefused([&] { household.renameBank(unknown, hill); }, sentence);
    expectRefused([&] { household.closeBank(unknown); }, sentence);
    expectRefused([&] { household.reopenBank(unknown); }, sentence);
    expectRefused([&] { household.removeBank(unknown); }, sentence);
    expectRefused([&] { household.listAccounts(unknown, {}); }, sentence);
}

TEST_F(BankChangesTest, AnEmptyBankIsClosedAndOpenedAgain)
{
    open("Checking", BankAccountTypes::Checking, dollars(0));

    household.closeBank(river);
    household.closeBank(river);
    EXPECT_THAT(household.openBanks(), IsEmpty());
    EXPECT_EQ(store.kept(), household.content());

    household.reopenBank(river);
    auto const transactions = store.transactions();
    household.reopenBank(river);
    EXPECT_THAT(household.openBanks(), ElementsAre(river));
    EXPECT_EQ(store.transactions(), transactions);
}

TEST_F(BankChangesTest, ABankStaysOpenWhileItsAccountsHoldMoney)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(0));
    auto const till = addEmpty(1'300, "Till", checking);
    auto const savings = open("Savings", BankAccountTypes::Savings, dollars(-5));
    QString const sentence("%1 has a balance of %2 USD, so Riverside can't be closed. Bring it to zero, and then close "
                           "the bank.");

    expectRefused([&] { household.closeBank(river); }, sentence.arg("Savings", "-5.00"));

    household.post(posting(savings, till, dollars(5)));
    expectRefused([&] { household.closeBank(river); }, sentence.arg("Till", "-5.00"));
}

TEST_F(BankChangesTest, ABankWithoutAccountsIsRemoved)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(0));
    expectRefused([&] { household.removeBank(river); },
                  "Riverside can't be removed, since it has the account Checking. Remove its accounts first, or close "
                  "the bank.");

    household.removeAccount(checking);
    household.removeBank(BankName("RIVERSIDE"));

    EXPECT_THAT(household.content().books.banks, IsEmpty());
    EXPECT_EQ(store.kept(), household.content());
    EXPECT_NO_THROW(household.addBank(river));
}

TEST_F(BankChangesTest, AnAccountIsMadeFirstAndListedAfterwards)
{
    auto const savings = household.addBankAccount(" Savings ", BankAccountTypes::Savings, dollars(5), today);
    auto const card = household.addBankAccount("Card", BankAccountTypes::CreditCard, dollars(3), today);

    household.listAccounts(river, {{savings, BankAccountTypes::Savings}});
    household.addBank(Bank(hill, {{card, BankAccountTypes::CreditCard}}, false));

    EXPECT_EQ(account(savings).code, AccountCode(savings, "Savings", std::nullopt));
    EXPECT_EQ(household.balance(savings), dollars(5));
    EXPECT_EQ(household.balance(card), dollars(3));
    EXPECT_EQ(bank(river).accounts(), (Accounts{{savings, BankAccountTypes::Savings}}));
    EXPECT_EQ(bank(hill).accounts(), (Accounts{{card, BankAccountTypes::CreditCard}}));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(BankChangesTest, AccountsThatNoBankListsYetCanNotBeMadeAnyhow)
{
    auto const refuse = [&](QString const& name, BankAccountTypes kind, QString const& sentence) {
        expectRefused([&] { household.addBankAccount(name, kind, dollars(0), today); }, sentence);
    };

    refuse("", BankAccountTypes::Savings, "The account has no name. Type one, such as \"Groceries\".");
    refuse("Loan", BankAccountTypes::Unspecified, "It isn't chosen what kind of account Loan is. Choose its kind.");
    expectRefused([&] { household.addBankAccount("Loan", BankAccountTypes::Loan, fiscora::Money(), today); },
                  "The opening balance of Loan has no currency. Choose one.");
}

TEST_F(BankChangesTest, AnAccountThatNoBankListsYetMayBeCalledAsAnyOther)
{
    open("Checking", BankAccountTypes::Checking, dollars(0));
    add(planned(BudgetItemTypes::Goal, "Trip"));
    household.addBankAccount("Savings", BankAccountTypes::Savings, dollars(0), today);

    EXPECT_NO_THROW(household.addBankAccount("Checking", BankAccountTypes::Checking, dollars(0), today));
    EXPECT_NO_THROW(household.addBankAccount("Trip", BankAccountTypes::Savings, dollars(0), today));
    EXPECT_NO_THROW(household.addBankAccount("Savings", BankAccountTypes::Savings, dollars(0), today));
}

TEST_F(BankChangesTest, AnAccountThatABankListsNoLongerStaysInTheChart)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(5));

    household.listAccounts(river, {});

    EXPECT_THAT(bank(river).accounts(), IsEmpty());
    EXPECT_EQ(household.balance(checking), dollars(5));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(BankChangesTest, AccountsThatABankCanNotList)
{
    add(planned(BudgetItemTypes::Goal, "Trip"));
    auto const purse = addEmpty(1'200, "Purse");
    auto const pocket = addEmpty(1'300, "Pocket", purse);

    refuseListing(AccountNumber(), BankAccountTypes::Savings,
                  "An account of Riverside isn't in the books yet. Save that account first.");
    refuseListing(none, BankAccountTypes::Savings, "There is no account 77 in the books. Choose another account.");
    refuseListing(purse, BankAccountTypes::Unspecified,
                  "It isn't chosen what kind of account Purse is. Choose its kind.");
    refuseListing(purse, BankAccountTypes::Loan,
                  "Purse is an account of the type Asset, so it can't be at Riverside as Loan. Choose another kind.");
    refuseListing(accountOf(BudgetItemTypes::Goal, "Trip"), BankAccountTypes::Goal,
                  "Trip belongs to the goal of that name. Change the goal to tell where its money is kept.");
    refuseListing(pocket, BankAccountTypes::Savings,
                  "Pocket stands under Purse, so no bank lists it by itself. Give it no parent first.");
}

TEST_F(BankChangesTest, AnAccountIsAtOneBankOnly)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(5));

    expectRefused(
        [&] {
            household.addBank(Bank(hill, {{checking, BankAccountTypes::Checking}}, false));
        },
        "Checking is an account of Riverside already, and an account is kept at one bank only. Leave it "
        "there.");
}

TEST_F(BankChangesTest, TwoAccountsOfOneBankDoNotShareAName)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(5));
    auto const other = household.addBankAccount("checking", BankAccountTypes::Savings, dollars(5), today);

    expectRefused(
        [&] {
            household.listAccounts(river, {{checking, BankAccountTypes::Checking}, {other, BankAccountTypes::Savings}});
        },
        "Riverside would have two accounts called Checking. Give one of them another name.");
}

TEST_F(BankChangesTest, TheAccountOfADebtStaysWithTheBankThatLent)
{
    add(planned(BudgetItemTypes::Debt, "Car"), BankAccount{river, {}, BankAccountTypes::Loan});

    expectRefused(
        [&] { household.listAccounts(river, {}); },
        "Car is owed to Riverside, so its account stays there. Remove the debt, and its account goes with it.");
}

/// Files of old may hold an account whose kind nobody chose, which its form doesn't let anybody choose any more.
TEST_F(BankChangesTest, WhatABankListsAlreadyIsNotAskedAgain)
{
    auto const odd = open("Odd", BankAccountTypes::Unspecified, dollars(0));
    auto const savings = household.addBankAccount("Savings", BankAccountTypes::Savings, dollars(5), today);

    household.listAccounts(river, {{odd, BankAccountTypes::Unspecified}, {savings, BankAccountTypes::Savings}});

    EXPECT_EQ(bank(river).accounts().size(), 2U);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(BankChangesTest, AClosedBankListsNoMoreAndStaysClosed)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(0));
    auto const savings = household.addBankAccount("Savings", BankAccountTypes::Savings, dollars(5), today);
    household.closeBank(river);

    expectRefused(
        [&] {
            household.listAccounts(river,
                                   {{checking, BankAccountTypes::Checking}, {savings, BankAccountTypes::Savings}});
        },
        "Riverside is closed. Open it again before you keep Savings there.");
    household.listAccounts(river, {{checking, BankAccountTypes::Savings}});

    EXPECT_TRUE(bank(river).isClosed());
    EXPECT_EQ(bank(river).accounts(), (Accounts{{checking, BankAccountTypes::Savings}}));
}

TEST_F(BankChangesTest, ANewBankIsClosedOnlyWithoutMoney)
{
    auto const savings = household.addBankAccount("Savings", BankAccountTypes::Savings, dollars(5), today);

    expectRefused(
        [&] {
            household.addBank(Bank(hill, {{savings, BankAccountTypes::Savings}}, true));
        },
        "Savings has a balance of 5.00 USD, so Hill can't be closed. Bring it to zero, and then close the "
        "bank.");
    household.addBank(Bank(hill, {}, true));

    EXPECT_TRUE(bank(hill).isClosed());
    EXPECT_EQ(store.kept(), household.content());
}
}
}
