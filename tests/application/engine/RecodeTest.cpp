#include "AccountFixture.h"

using tlm::accounting::AccountNumber;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

namespace {

class RecodeTest : public AccountTest
{
protected:
    /// Expects that an account can't become \a changed.
    void refuse(AccountNumber const& number, AccountCode const& changed, QString const& sentence)
    {
        expectRefused([&] { household.recode(number, changed); }, sentence);
    }
};

TEST_F(RecodeTest, NumberNameAndParentChangeAtOnce)
{
    auto const purse = addEmpty(1'200, "Purse");
    auto const till = addEmpty(1'300, "Till");

    household.recode(till, code(12, " Drawer ", purse));

    EXPECT_EQ(account(AccountNumber(12)).code, code(12, "Drawer", purse));
    EXPECT_FALSE(household.content().books.accounts.contains(till));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(RecodeTest, AllThatTellsOfAnAccountFollowsItsNumber)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(50));
    add(planned(BudgetItemTypes::Goal, "Trip"), BankAccount{river, checking, BankAccountTypes::Checking});
    auto const trip = accountOf(BudgetItemTypes::Goal, "Trip");
    household.post(posting(trip, checking, dollars(10)));

    household.recode(checking, code(12, "Checking"));

    AccountNumber const renumbered(12);
    EXPECT_EQ(account(trip).code.parent(), renumbered);
    EXPECT_EQ(household.content().books.banks.at(river).accounts(),
              (std::map{std::pair(renumbered, BankAccountTypes::Checking)}));
    EXPECT_EQ(household.balance(renumbered), dollars(40));
    EXPECT_EQ(store.postings().rbegin()->second.crediting, renumbered);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(RecodeTest, ItsFollowersAreFoundUnderTheNewNumberAfterwards)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(0));
    addEmpty(1'300, "Till", checking);

    household.recode(checking, code(12, "Current"));

    AccountNumber const renumbered(12);
    refuse(renumbered, code(1'300, "Current"), "1300 is the number of Till already. Enter another one for Current.");
    expectRefused([&] { household.closeAccount(renumbered); },
                  "Till stands under Current and is open. Close Till first.");
    expectRefused([&] { household.addBankAccount(river, "current", BankAccountTypes::Savings, dollars(0), today); },
                  "Riverside has an account called Current already. Give this one another name.");
    EXPECT_NO_THROW(open("Checking", BankAccountTypes::Checking, dollars(0)));
}

TEST_F(RecodeTest, TheAccountOfAnItemMayHaveAnotherNumber)
{
    add(bill("Rent"));

    household.recode(AccountNumber(5'001), code(12, "Rent"));

    EXPECT_EQ(item(BudgetItemTypes::Bill, "Rent").account, AccountNumber(12));
    household.rename(named(BudgetItemTypes::Bill, "rent"), tlm::budgeting::BudgetSource("Flat"));
    EXPECT_EQ(account(AccountNumber(12)).code, code(12, "Flat"));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(RecodeTest, TheNameAndThePlaceOfAnItemsAccountAreTheItems)
{
    add(bill("Rent"));
    add(planned(BudgetItemTypes::Goal, "Trip"));
    auto const purse = addEmpty(1'200, "Purse");

    refuse(AccountNumber(5'001), code(5'001, "Flat"),
           "Rent belongs to the bill of that name. Rename the bill, and its account follows.");
    refuse(accountOf(BudgetItemTypes::Goal, "Trip"), code(1'001, "Trip", purse),
           "Trip belongs to the goal of that name, which tells where it stands. Change the goal, and its account "
           "follows.");
}

TEST_F(RecodeTest, TheBooksOwnAccountsServeOnUnderAnotherNumber)
{
    open("Checking", BankAccountTypes::Checking, dollars(50));

    household.recode(AccountNumber(3'001), code(12, "What we had"));
    open("Savings", BankAccountTypes::Savings, dollars(20));

    EXPECT_EQ(household.balance(AccountNumber(12)), dollars(70));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(RecodeTest, AClosedAccountCanBeRecoded)
{
    addAccount(code(12, "Attic"), AccountTypes::Asset, dollars(0), true);

    household.recode(AccountNumber(12), code(13, "Cellar"));

    EXPECT_EQ(account(AccountNumber(13)).code, code(13, "Cellar"));
    EXPECT_TRUE(account(AccountNumber(13)).isClosed);
}

TEST_F(RecodeTest, TheSameCodeChangesNothing)
{
    auto const purse = addEmpty(1'200, "Purse");
    auto const transactions = store.transactions();

    household.recode(purse, code(1'200, " Purse "));

    EXPECT_EQ(store.transactions(), transactions);
    EXPECT_EQ(account(purse).code, code(1'200, "Purse"));
}

TEST_F(RecodeTest, AnAccountMayWriteItsOwnNameOtherwise)
{
    auto const purse = addEmpty(1'200, "purse");

    household.recode(purse, code(1'200, "Purse"));

    EXPECT_EQ(account(purse).code.name(), "Purse");
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(RecodeTest, NumbersAndNamesThatAreTaken)
{
    auto const purse = addEmpty(1'200, "Purse");
    addEmpty(1'300, "Till");

    refuse(none, code(78, "Till"), "There is no account 77 in the books. Choose another account.");
    refuse(purse, code(0, "Purse"), "Purse has no number. Enter one above zero that no other account has.");
    refuse(purse, code(1'300, "Purse"), "1300 is the number of Till already. Enter another one for Purse.");
    refuse(purse, code(1'200, "till"),
           "Account 1300 is called Till already. Use that one, or give this one another name.");
    refuse(purse, AccountCode(), "The account has no name. Type one, such as \"Groceries\".");
}

TEST_F(RecodeTest, ABankAccountsNameIsItsOwnWithinItsBank)
{
    BankName const hill("Hill");
    household.addBank(hill);
    household.addBankAccount(hill, "Savings", BankAccountTypes::Savings, dollars(0), today);
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(0));
    open("Daily", BankAccountTypes::Checking, dollars(0));

    refuse(checking, {checking, "DAILY", {}},
           "Riverside has an account called Daily already. Give this one another name.");
    household.recode(checking, {checking, "Savings", {}});

    EXPECT_EQ(account(checking).code.name(), "Savings");
}

TEST_F(RecodeTest, ParentsUnderWhichAnAccountCanNotMove)
{
    auto const purse = addEmpty(1'200, "Purse");
    auto const pocket = addEmpty(1'300, "Pocket", purse);
    auto const corner = addEmpty(1'400, "Corner", pocket);
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(0));
    auto const move = [&](AccountNumber const& parent, QString const& sentence) {
        refuse(purse, code(1'200, "Purse", parent), sentence);
    };

    move(purse, "Purse can't stand under itself. Choose another parent, or none.");
    move(pocket, "Pocket stands under Purse itself. Choose another parent, or none.");
    move(corner, "Corner stands under Purse itself. Choose another parent, or none.");
    move(none, "There is no account 77 under which Purse could stand. Choose another parent, or none.");
    refuse(purse, code(12, "Purse", AccountNumber(12)),
           "Purse can't stand under itself. Choose another parent, or none.");
    refuse(checking, {checking, "Checking", purse},
           "Checking is an account of Riverside itself, so it stands under no other one. Choose no parent.");
}

TEST_F(RecodeTest, AFullDiskLeavesNumberAndItemAsTheyWere)
{
    add(bill("Rent"));
    auto const before = household.content();
    store.setFull(true);

    EXPECT_THROW(household.recode(AccountNumber(5'001), code(12, "Rent")), std::runtime_error);

    EXPECT_EQ(household.content(), before);
    EXPECT_EQ(store.kept(), before);
    store.setFull(false);
    EXPECT_NO_THROW(household.recode(AccountNumber(5'001), code(12, "Rent")));
}
}
}
