#include "AccountFixture.h"

#include <gmock/gmock.h>

using ::testing::IsEmpty;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccountTypes;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

namespace {

class AccountClosingTest : public AccountTest
{
protected:
    void refuseClosing(AccountNumber const& number, QString const& sentence)
    {
        expectRefused([&] { household.closeAccount(number); }, sentence);
    }
    void refuseRemoval(AccountNumber const& number, QString const& sentence)
    {
        expectRefused([&] { household.removeAccount(number); }, sentence);
    }
    void postFrom(AccountNumber const& crediting, int count)
    {
        for (auto posted = 0; posted < count; ++posted) {
            auto spent = posting(spending, crediting, dollars(1));
            spent.occurredOn = today.addDays(posted);
            household.post(spent);
        }
    }

    AccountNumber const purse = addEmpty(1'200, "Purse");
    AccountNumber const spending = [this] {
        addAccount(code(5'500, "Spending"), AccountTypes::Expense, dollars(0));
        return AccountNumber(5'500);
    }();
};

TEST_F(AccountClosingTest, AnEmptyAccountIsClosedAndOpenedAgain)
{
    household.closeAccount(purse);
    EXPECT_TRUE(account(purse).isClosed);
    EXPECT_EQ(store.kept(), household.content());

    household.reopenAccount(purse);
    EXPECT_FALSE(account(purse).isClosed);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(AccountClosingTest, WhatIsSoAlreadyIsAccepted)
{
    household.reopenAccount(purse);
    household.closeAccount(purse);
    auto const transactions = store.transactions();

    household.closeAccount(purse);

    EXPECT_TRUE(account(purse).isClosed);
    EXPECT_EQ(store.transactions(), transactions);
}

TEST_F(AccountClosingTest, AccountsThatStayOpen)
{
    add(bill("Rent"));
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(50));
    auto const card = open("Card", BankAccountTypes::CreditCard, dollars(-3, 50));

    refuseClosing(none, "There is no account 77 in the books. Choose another account.");
    refuseClosing(checking, "Checking has a balance of 50.00 USD. Bring it to zero, and then close it.");
    refuseClosing(card, "Card has a balance of -3.50 USD. Bring it to zero, and then close it.");
    refuseClosing(accountOf(BudgetItemTypes::Bill, "Rent"),
                  "Rent belongs to the bill of that name, which needs it open. Remove the bill instead.");
    refuseClosing(AccountNumber(3'001),
                  "The balances of new accounts are posted against Opening balances (USD), so it stays open.");
}

TEST_F(AccountClosingTest, AParentIsClosedAfterItsSubAccountsAndOpenedBeforeThem)
{
    auto const pocket = addEmpty(1'300, "Pocket", purse);
    refuseClosing(purse, "Pocket stands under Purse and is open. Close Pocket first.");

    household.closeAccount(pocket);
    household.closeAccount(purse);

    expectRefused([&] { household.reopenAccount(pocket); },
                  "Pocket stands under Purse, which is closed. Open Purse first.");
    household.reopenAccount(purse);
    EXPECT_NO_THROW(household.reopenAccount(pocket));
}

TEST_F(AccountClosingTest, AnUnknownAccountCanNotBeOpenedAgain)
{
    expectRefused([&] { household.reopenAccount(none); },
                  "There is no account 77 in the books. Choose another account.");
}

TEST_F(AccountClosingTest, AnAccountGoesWithItsOpeningAndFromItsBank)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(50));

    household.removeAccount(checking);
    household.removeAccount(purse);

    EXPECT_FALSE(household.content().books.accounts.contains(checking));
    EXPECT_FALSE(household.content().books.accounts.contains(purse));
    EXPECT_THAT(household.content().books.banks.at(river).accounts(), IsEmpty());
    EXPECT_THAT(household.content().books.turnovers, IsEmpty());
    EXPECT_THAT(store.postings(), IsEmpty());
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(AccountClosingTest, TheNameAndTheNumberOfARemovedAccountAreFree)
{
    household.removeAccount(purse);

    EXPECT_NO_THROW(addEmpty(1'200, "Purse"));
}

TEST_F(AccountClosingTest, AccountsThatAreNeeded)
{
    add(bill("Rent"));
    addEmpty(1'300, "Pocket", purse);

    refuseRemoval(none, "There is no account 77 in the books. Choose another account.");
    refuseRemoval(accountOf(BudgetItemTypes::Bill, "Rent"),
                  "Rent belongs to the bill of that name. Remove the bill, and its account goes with it.");
    refuseRemoval(purse, "Purse can't be removed, since the account Pocket stands under it. Move that account first.");
}

TEST_F(AccountClosingTest, PostingsKeepAnAccountAndTheOneThatItOpenedWithDoesNotCount)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(50));

    postFrom(checking, 1);
    refuseRemoval(checking,
                  "Checking can't be removed, since a posting of 5/1/2025 needs it. Delete that posting first, "
                  "or keep Checking.");

    postFrom(checking, 3);
    refuseRemoval(checking, "Checking can't be removed, since 4 postings need it, the latest of 5/3/2025. Delete them "
                            "first, or keep Checking.");
    refuseRemoval(spending, "Spending can't be removed, since 4 postings need it, the latest of 5/3/2025. Delete them "
                            "first, or keep Spending.");
}

/// Counting a long ledger for a sentence would read all of it.
TEST_F(AccountClosingTest, ManyPostingsAreNotCounted)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(50));

    postFrom(checking, 100);
    refuseRemoval(checking,
                  "Checking can't be removed, since 100 postings need it, the latest of 8/8/2025. Delete them "
                  "first, or keep Checking.");

    postFrom(checking, 1);
    refuseRemoval(checking, "Checking can't be removed, since more than 100 postings need it, the latest of 8/8/2025. "
                            "Delete them first, or keep Checking.");
}

TEST_F(AccountClosingTest, AReconciledOpeningKeepsItsAccount)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(50));
    household.markReconciled(store.postings().begin()->first);

    refuseRemoval(checking,
                  "Checking can't be removed, since a posting of 5/1/2025 needs it. Delete that posting first, "
                  "or keep Checking.");
}
}
}
