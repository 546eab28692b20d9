#include "AccountFixture.h"

#include <gmock/gmock.h>

using fiscora::Currency;
using fiscora::Money;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::BankAccountTypes;

namespace tallymere::engine {

namespace {

using AccountsTest = AccountTest;

TEST_F(AccountsTest, AnAccountIsKeptAsItIsTyped)
{
    addEmpty(1'200, "Purse");

    addAccount(code(1'210, QString::fromUtf8(" Cafe\xCC\x81 till  "), AccountNumber(1'200)), AccountTypes::Asset,
               dollars(0), true);

    EXPECT_EQ(account(AccountNumber(1'210)),
              (BookAccount{code(1'210, QString::fromUtf8("Caf\xC3\xA9 till"), AccountNumber(1'200)),
                           AccountTypes::Asset, Currency::USD, true, AccountPurposes::Household}));
    EXPECT_THAT(store.postings(), IsEmpty());
    EXPECT_EQ(store.kept(), household.content());
}

struct AccountOpening
{
    AccountTypes type;
    long long balance;
    bool isDebited;
};

class AccountOpeningTest : public AccountTest, public ::testing::WithParamInterface<AccountOpening>
{};

TEST_P(AccountOpeningTest, ItsBalanceIsPostedAgainstEquity)
{
    auto const& row = GetParam();

    addAccount(code(12, "Mine"), row.type, dollars(row.balance));

    ASSERT_EQ(store.postings().size(), 1U);
    auto const& opening = store.postings().begin()->second;
    auto const& against = row.isDebited ? opening.crediting : opening.debiting;
    EXPECT_EQ(household.balance(AccountNumber(12)), dollars(row.balance));
    EXPECT_EQ(row.isDebited ? opening.debiting : opening.crediting, AccountNumber(12));
    EXPECT_EQ(account(against).purpose, AccountPurposes::OpeningBalances);
    EXPECT_EQ(opening.description, "Opening balance");
    EXPECT_EQ(opening.occurredOn, today);
}

INSTANTIATE_TEST_SUITE_P(Types, AccountOpeningTest,
                         ::testing::Values(AccountOpening{AccountTypes::Asset, 25, true},
                                           AccountOpening{AccountTypes::Asset, -25, false},
                                           AccountOpening{AccountTypes::Expense, 25, true},
                                           AccountOpening{AccountTypes::Liability, 25, false},
                                           AccountOpening{AccountTypes::Equity, 25, false},
                                           AccountOpening{AccountTypes::Income, -25, true},
                                           AccountOpening{AccountTypes::Suspense, 25, false}));

TEST_F(AccountsTest, AllAccountsAreToldWithTheirBalances)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(5));
    addAccount(code(12, "Attic"), AccountTypes::Expense, euros(0), true);

    EXPECT_THAT(household.accounts(),
                ElementsAre(Account(AccountTypes::Expense, code(12, "Attic"), euros(0), true),
                            Account(AccountTypes::Asset, {checking, "Checking", {}}, dollars(5), false),
                            Account(AccountTypes::Equity, code(3'001, "Opening balances (USD)"), dollars(5), false)));
}

TEST_F(AccountsTest, NumbersAndNamesThatAnAccountCanNotHave)
{
    add(bill("Rent"));
    addEmpty(1'200, "Purse");
    auto const refuse = [&](AccountCode const& wrong, QString const& sentence) {
        expectRefused([&] { addAccount(wrong, AccountTypes::Asset, dollars(0)); }, sentence);
    };

    refuse({}, "The account has no name. Type one, such as \"Groceries\".");
    refuse(code(0, "Till"), "Till has no number. Enter one above zero that no other account has.");
    refuse(code(1'200, "Till"), "1200 is the number of Purse already. Enter another one for Till.");
    refuse(code(12, "  pURSE "), "Account 1200 is called Purse already. Use that one, or give this one another name.");
    refuse(code(12, "rent"), "Account 5001 is called Rent already. Use that one, or give this one another name.");
}

TEST_F(AccountsTest, BlanksBetweenWordsMakeNoOtherName)
{
    addEmpty(1'200, "Red  purse");

    expectRefused([&] { addEmpty(12, "red purse"); },
                  "Account 1200 is called Red  purse already. Use that one, or give this one another name.");
}

TEST_F(AccountsTest, BalancesThatAnAccountCanNotOpenWith)
{
    auto const refuse = [&](Money const& balance, bool isClosed, QString const& sentence) {
        expectRefused([&] { addAccount(code(12, "Till"), AccountTypes::Asset, balance, isClosed); }, sentence);
    };

    refuse(Money(), false, "The opening balance of Till has no currency. Choose one.");
    refuse(Money(Currency::GBP), false,
           "Till can't be kept in GBP. Choose a usable currency, or make that one usable.");
    refuse(dollars(5), true,
           "Till can't be closed from the start, since it opens with 5.00 USD. Add it open, or without a balance.");
    expectRefused(
        [&] { household.addAccount(Account(AccountTypes::Asset, code(12, "Till"), dollars(5), false), QDate()); },
        "The posting has no date. Enter the day on which it happened.");
}

TEST_F(AccountsTest, ParentsUnderWhichNoAccountCanStand)
{
    addEmpty(1'200, "Purse");
    addAccount(code(1'300, "Safe"), AccountTypes::Asset, dollars(0), true);
    auto const refuse = [&](AccountTypes type, Money const& balance, unsigned int parent, QString const& sentence) {
        expectRefused([&] { addAccount(code(12, "Till", AccountNumber(parent)), type, balance); }, sentence);
    };

    refuse(AccountTypes::Asset, dollars(0), 77,
           "There is no account 77 under which Till could stand. Choose another parent, or none.");
    refuse(AccountTypes::Asset, dollars(0), 12, "Till can't stand under itself. Choose another parent, or none.");
    refuse(AccountTypes::Asset, dollars(0), 1'300,
           "Safe is closed, so Till can't stand under it. Open it again, or choose another parent.");
    refuse(AccountTypes::Equity, dollars(0), 1'200,
           "Purse is an account of the type Asset, and Till is of the type Equity. Choose a parent of the same type.");
    refuse(AccountTypes::Asset, euros(0), 1'200,
           "Purse is kept in USD, and Till is in EUR. Choose a parent in the same currency.");
}

TEST_F(AccountsTest, AnItemKeepsItsCurrencyWhileAnAccountStandsUnderItsOwn)
{
    add(bill("Rent"));
    addAccount(code(12, "Garage", accountOf(tlm::budgeting::BudgetItemTypes::Bill, "Rent")), AccountTypes::Expense,
               dollars(0));
    auto inEuros = bill("Rent");
    inEuros.amount = euros(100);

    expectRefused([&] { change(inEuros.identifier, inEuros); },
                  "The account Garage stands under that of Rent, so Rent stays in USD. Plan another item in EUR.");
}

TEST_F(AccountsTest, AGoalIsNotStoredUnderWhatStandsUnderItself)
{
    using tlm::budgeting::BudgetItemTypes;
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(5));
    auto const trip = planned(BudgetItemTypes::Goal, "Trip");
    add(trip, tlm::banking::BankAccount{river, checking, BankAccountTypes::Checking});
    auto const below = addEmpty(12, "Tickets", accountOf(BudgetItemTypes::Goal, "Trip"));

    expectRefused(
        [&] {
            change(trip.identifier, trip, tlm::banking::BankAccount{river, below, BankAccountTypes::Goal});
        },
        "Tickets stands under the account of Trip, so it can't hold the money of Trip. Choose another account.");
}
}
}
