#include "BankFixture.h"

#include <limits>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccountTypes;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

namespace {

class PostingTest : public BankTest
{
protected:
    PostingTest()
    {
        add(bill("Rent"));
        add(planned(BudgetItemTypes::Wage, "Salary"));
        rent = accountOf(BudgetItemTypes::Bill, "Rent");
        salary = accountOf(BudgetItemTypes::Wage, "Salary");
    }

    AccountNumber const checking = open("Checking", BankAccountTypes::Checking, dollars(100));
    AccountNumber const card = open("Card", BankAccountTypes::CreditCard, dollars(30));
    AccountNumber rent;
    AccountNumber salary;
};

TEST_F(PostingTest, AnAmountGoesFromOneAccountToTheOther)
{
    household.post(posting(rent, checking, dollars(40)));
    household.post(posting(checking, salary, dollars(70)));
    household.post(posting(rent, card, dollars(5)));

    EXPECT_EQ(household.balance(rent), dollars(45));
    EXPECT_EQ(household.balance(salary), dollars(70));
    EXPECT_EQ(household.balance(checking), dollars(130));
    EXPECT_EQ(household.balance(card), dollars(35));
    EXPECT_EQ(household.content().books.turnovers.at(rent), (Turnover{dollars(45), 2}));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(PostingTest, APostingIsKeptWholeUnderItsIdentifier)
{
    auto paid = posting(rent, checking, dollars(40));
    paid.madeFrom = rent;
    paid.description = "May";
    paid.status = tlm::accounting::TransactionStatuses::Cleared;

    auto const id = household.post(paid);

    EXPECT_EQ(store.postings().at(id), paid);
}

TEST_F(PostingTest, AnAccountMayBeOverdrawn)
{
    household.post(posting(rent, checking, dollars(400)));

    EXPECT_EQ(household.balance(checking), dollars(-300));
}

TEST_F(PostingTest, WhatTheBooksCanNotTake)
{
    AccountNumber const none(77);
    auto const refuse = [&](Posting const& wrong, QString const& sentence) {
        expectRefused([&] { household.post(wrong); }, sentence);
    };
    auto undated = posting(rent, checking, dollars(1));
    undated.occurredOn = {10'000, 1, 1};

    refuse(posting(none, checking, dollars(1)), "There is no account 77 in the books. Choose another account.");
    refuse(posting(rent, none, dollars(1)), "There is no account 77 in the books. Choose another account.");
    refuse(posting(rent, rent, dollars(1)), "An amount can't go from an account to itself. Choose two accounts.");
    refuse(posting(rent, checking, dollars(0)), "The amount of the posting isn't above zero. Enter one that is.");
    refuse(posting(rent, checking, dollars(-1)), "The amount of the posting isn't above zero. Enter one that is.");
    refuse(posting(rent, checking, euros(1)),
           "Rent is kept in USD. Enter an amount in that currency, or choose another account.");
    refuse(undated, "The posting has no date. Enter the day on which it happened.");
}

TEST_F(PostingTest, TwoCurrenciesInOnePosting)
{
    auto const travels = open("Travels", BankAccountTypes::Savings, euros(10));

    expectRefused([&] { household.post(posting(travels, checking, euros(1))); },
                  "Checking is kept in USD. Enter an amount in that currency, or choose another account.");
}

TEST_F(PostingTest, AClosedAccountTakesNoPosting)
{
    Household opened(withClosed(rent), store);

    expectSentence([&] { opened.post(posting(rent, checking, dollars(1))); },
                   "Rent is closed. Open it again, or choose another account.");
    expectSentence([&] { opened.post(posting(checking, rent, dollars(1))); },
                   "Rent is closed. Open it again, or choose another account.");
}

/// The account that gets the amount could count it, the other one could not.
TEST_F(PostingTest, MoreThanCanBeCountedLeavesBothAccountsAsTheyWere)
{
    auto const almostAll = Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max() - 1'000'000);
    household.post(posting(rent, salary, almostAll));

    expectRefused([&] { household.post(posting(checking, salary, dollars(200))); },
                  "What is posted to one account would add up to more than can be counted. Post a smaller amount.");
}

TEST_F(PostingTest, ASumThatHasNoCounterpartIsNotCounted)
{
    auto const largest = Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max());
    household.post(posting(rent, salary, largest));

    expectRefused([&] { household.post(posting(checking, salary, Money::fromAmount(Currency::USD, 1))); },
                  "What is posted to one account would add up to more than can be counted. Post a smaller amount.");
    EXPECT_EQ(household.balance(salary), largest);
}

TEST_F(PostingTest, AnItemThatHasNoPartInItIsAFaultOfTheProgram)
{
    auto const transactions = store.transactions();
    auto other = posting(rent, checking, dollars(1));
    other.madeFrom = salary;
    auto noItem = posting(rent, checking, dollars(1));
    noItem.madeFrom = checking;

    EXPECT_THROW(household.post(other), std::invalid_argument);
    EXPECT_THROW(household.post(noItem), std::invalid_argument);

    EXPECT_EQ(store.transactions(), transactions);
}

TEST_F(PostingTest, TheBalanceOfAnUnknownAccount)
{
    expectRefused([&] { household.balance(AccountNumber(77)); },
                  "There is no account 77 in the books. Choose another account.");
}
}
}
