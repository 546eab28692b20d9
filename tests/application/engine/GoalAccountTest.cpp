#include "BankFixture.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::AccountNumberBankType;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::navigation::AllowSubAccounts;
using tlm::navigation::BudgetBankAccount;

namespace tallymere::engine {

namespace {

class GoalAccountTest : public BankTest
{
protected:
    BankAccount at(AccountNumber const& number, BankAccountTypes type = BankAccountTypes::Savings) const
    {
        return {river, number, type};
    }

    /// Expects that neither a new goal nor a stored one goes to \a keptAt.
    void expectNoStorage(BankAccount const& keptAt, QString const& sentence)
    {
        expectRefused([&] { add(bicycle, keptAt); }, sentence);
        add(bicycle, at(savings));
        expectRefused([&] { change(bicycle.identifier, bicycle, keptAt); }, sentence);
        household.remove(bicycle.identifier);
    }

    /// \return the household's content with an account for travels under the savings
    BudgetContent withTravels() const
    {
        auto content = household.content();
        content.books.accounts.emplace(
            travels,
            BookAccount{
                AccountCode(travels, "Travels", savings), AccountTypes::Asset, fiscora::Currency::USD, false, {}});
        return content;
    }

    AccountNumber const savings = open("Savings", BankAccountTypes::Savings, dollars(100));
    AccountNumber const travels{1500};
    PlannedItem const bicycle = planned(BudgetItemTypes::Goal, "Bicycle");
};

TEST_F(GoalAccountTest, AGoalStandsUnderTheAccountInWhichItIsStored)
{
    add(bicycle, at(savings));

    auto const own = accountOf(BudgetItemTypes::Goal, "Bicycle");
    EXPECT_EQ(account(own).code.parent(), savings);
    EXPECT_THAT(household.keptAt(BudgetItemTypes::Goal),
                ElementsAre(BudgetBankAccount{BudgetSource("Bicycle"), at(savings)}));
    EXPECT_THAT(household.keptAt(BudgetItemTypes::Bill), IsEmpty());
    EXPECT_EQ(household.balance(own), dollars(0));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(GoalAccountTest, AGoalWithoutAnAccountStandsAlone)
{
    add(bicycle);

    EXPECT_EQ(account(accountOf(BudgetItemTypes::Goal, "Bicycle")).code.parent(), std::nullopt);
    EXPECT_THAT(household.keptAt(BudgetItemTypes::Goal), IsEmpty());
}

TEST_F(GoalAccountTest, AGoalMovesWithAnotherAccountAndStaysWithNone)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(5));
    add(bicycle);
    auto const own = accountOf(BudgetItemTypes::Goal, "Bicycle");

    change(bicycle.identifier, bicycle, at(savings));
    EXPECT_EQ(account(own).code.parent(), savings);
    change(bicycle.identifier, bicycle, at(checking, BankAccountTypes::Checking));
    EXPECT_EQ(account(own).code.parent(), checking);
    change(bicycle.identifier, bicycle);
    household.rename(bicycle.identifier, BudgetSource("Bike"));
    EXPECT_EQ(account(own).code, AccountCode(own, "Bike", checking));

    EXPECT_THAT(household.bankAccounts(river, AllowSubAccounts::Yes),
                ElementsAre(AccountNumberBankType{savings, BankAccountTypes::Savings},
                            AccountNumberBankType{checking, BankAccountTypes::Checking},
                            AccountNumberBankType{own, BankAccountTypes::Goal}));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(GoalAccountTest, ARemovedGoalLeavesTheAccountAboveIt)
{
    auto const before = household.content();
    add(bicycle, at(savings));

    household.remove(bicycle.identifier);

    EXPECT_EQ(household.content(), before);
    EXPECT_THAT(household.bankAccounts(river, AllowSubAccounts::Yes),
                ElementsAre(AccountNumberBankType{savings, BankAccountTypes::Savings}));
}

TEST_F(GoalAccountTest, AccountsBelowABanksAreBankAccountsOfTheKindAboveThem)
{
    auto const content = withTravels();
    MemoryStore kept(content);
    Household opened(content, kept);

    opened.add(bicycle, at(travels), today);

    AccountNumber const own(1501);
    EXPECT_THAT(opened.keptAt(BudgetItemTypes::Goal),
                ElementsAre(BudgetBankAccount{BudgetSource("Bicycle"), at(travels)}));
    EXPECT_THAT(opened.bankAccounts(river, AllowSubAccounts::Yes),
                ElementsAre(AccountNumberBankType{savings, BankAccountTypes::Savings},
                            AccountNumberBankType{travels, BankAccountTypes::Savings},
                            AccountNumberBankType{own, BankAccountTypes::Goal}));
    EXPECT_THAT(opened.bankAccounts(river, AllowSubAccounts::No),
                ElementsAre(AccountNumberBankType{savings, BankAccountTypes::Savings}));
}

TEST_F(GoalAccountTest, AnAccountThatABankListsItselfIsToldOnceWithItsOwnKind)
{
    auto content = withTravels();
    content.books.banks.at(river) =
        tlm::banking::Bank(river, {{savings, BankAccountTypes::Savings}, {travels, BankAccountTypes::Checking}}, false);
    Household const opened(content, store);

    EXPECT_THAT(opened.bankAccounts(river, AllowSubAccounts::Yes),
                ElementsAre(AccountNumberBankType{savings, BankAccountTypes::Savings},
                            AccountNumberBankType{travels, BankAccountTypes::Checking}));
}

TEST_F(GoalAccountTest, ClosedAccountsAreNotTold)
{
    add(bicycle, at(savings));
    Household const opened(withClosed(savings), store);

    EXPECT_THAT(
        opened.bankAccounts(river, AllowSubAccounts::Yes),
        ElementsAre(AccountNumberBankType{accountOf(BudgetItemTypes::Goal, "Bicycle"), BankAccountTypes::Goal}));
    EXPECT_THAT(opened.bankAccounts(river, AllowSubAccounts::No), IsEmpty());
}

TEST_F(GoalAccountTest, AnUnknownBankHasNoAccounts)
{
    EXPECT_THAT(household.bankAccounts(BankName("Hill"), AllowSubAccounts::Yes), IsEmpty());
}

TEST_F(GoalAccountTest, PlacesThatCanNotHoldIt)
{
    auto const card = open("Card", BankAccountTypes::CreditCard, dollars(5));
    add(bill("Rent"));
    add(planned(BudgetItemTypes::Goal, "Car"), at(savings));
    auto const car = accountOf(BudgetItemTypes::Goal, "Car");
    auto const euroSavings = open("Euros", BankAccountTypes::Savings, euros(5));

    expectNoStorage({BankName(), savings, {}}, "No bank is chosen for Bicycle. Choose one.");
    expectNoStorage({BankName("Hill"), savings, {}}, "There is no bank called Hill. Choose another bank for Bicycle.");
    expectNoStorage(at(AccountNumber()),
                    "No account is chosen for Bicycle. Choose the account at Riverside that holds its money.");
    expectNoStorage(at(AccountNumber(9)), "Riverside has no account 9. Choose another account for Bicycle.");
    expectNoStorage(at(accountOf(BudgetItemTypes::Bill, "Rent")),
                    "Riverside has no account 5001. Choose another account for Bicycle.");
    expectNoStorage(at(card, BankAccountTypes::CreditCard),
                    "Card is an account of what is owed, so it can't hold the money of Bicycle. Choose a checking or "
                    "savings account.");
    expectNoStorage(at(car, BankAccountTypes::Goal), "Car is the account of a goal itself. Choose the account in which "
                                                     "that goal is stored for Bicycle.");
    expectNoStorage(at(euroSavings),
                    "Euros is kept in EUR, so it can't hold the money of Bicycle. Choose an account in USD.");
}

TEST_F(GoalAccountTest, AnAccountAtAnotherBank)
{
    BankName const hill("Hill");
    household.addBank(hill);

    expectNoStorage({hill, savings, BankAccountTypes::Savings},
                    "Hill has no account 1001. Choose another account for Bicycle.");
}

TEST_F(GoalAccountTest, WhatIsClosedHoldsNoNewGoalAndKeepsItsOldOnes)
{
    add(bicycle, at(savings));
    auto const car = planned(BudgetItemTypes::Goal, "Car");
    Household withoutAccount(withClosed(savings), store);
    Household withoutBank(withClosedBank(), store);

    expectSentence([&] { withoutAccount.add(car, at(savings), today); },
                   "Savings is closed. Choose another account for Car.");
    expectSentence([&] { withoutBank.add(car, at(savings), today); },
                   "Riverside is closed. Choose another bank for Car.");
    EXPECT_NO_THROW(withoutAccount.change(bicycle.identifier, bicycle, at(savings)));
    EXPECT_NO_THROW(withoutBank.change(bicycle.identifier, bicycle, at(savings)));
}

TEST_F(GoalAccountTest, AStoredGoalStaysInTheCurrencyOfItsAccount)
{
    add(bicycle, at(savings));
    auto changed = bicycle;
    changed.amount = euros(5);
    changed.goalTotal = euros(50);

    expectRefused([&] { change(bicycle.identifier, changed); },
                  "Savings is kept in USD, so it can't hold the money of Bicycle. Choose an account in EUR.");
}

TEST_F(GoalAccountTest, AGoalThatAFileTellsInAnotherCurrencyThanItsAccountIsStillRenamed)
{
    add(bicycle, at(savings));
    auto content = household.content();
    auto& goal = content.items.at(bicycle.identifier);
    goal.amount = euros(5);
    goal.goalTotal = euros(50);
    content.books.accounts.at(goal.account).currency = fiscora::Currency::EUR;
    MemoryStore kept(content);
    Household opened(content, kept);

    opened.rename(bicycle.identifier, BudgetSource("Bike"));

    EXPECT_TRUE(opened.content().items.contains(named(BudgetItemTypes::Goal, "Bike")));
    EXPECT_EQ(opened.content().books.accounts.at(goal.account).code.name(), "Bike");
}

TEST_F(GoalAccountTest, ABankForAnotherTypeIsAFaultOfTheProgram)
{
    add(bill("Rent"));

    EXPECT_THROW(add(bill("Water"), at(savings)), std::invalid_argument);
    EXPECT_THROW(change(bill("Rent").identifier, bill("Rent"), at(savings)), std::invalid_argument);
}
}
}
