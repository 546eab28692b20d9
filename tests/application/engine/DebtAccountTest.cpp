#include "BankFixture.h"

#include <gmock/gmock.h>
#include <limits>

using fiscora::Currency;
using fiscora::Money;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::navigation::BudgetBankAccount;

namespace tallymere::engine {

namespace {

class DebtAccountTest : public BankTest
{
protected:
    BankAccount at(BankAccountTypes type) const { return {river, AccountNumber(77), type}; }
    BankAccount const loan = at(BankAccountTypes::Loan);
    PlannedItem const car = planned(BudgetItemTypes::Debt, "Car");
    AccountNumber const carAccount{2001};
    AccountNumber const openings{3001};
};

TEST_F(DebtAccountTest, ADebtOpensWithTheSumBorrowed)
{
    add(car);

    EXPECT_EQ(household.balance(carAccount), dollars(5'000));
    EXPECT_EQ(household.balance(openings), dollars(-5'000));
    ASSERT_EQ(store.postings().size(), 1U);
    auto expected = posting(openings, carAccount, dollars(5'000));
    expected.description = "Opening balance";
    EXPECT_EQ(store.postings().begin()->second, expected);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(DebtAccountTest, BalancesOpenAgainstOneEquityAccountOfEachCurrency)
{
    add(car);
    add(planned(BudgetItemTypes::Debt, "Boat"));
    auto house = planned(BudgetItemTypes::Debt, "House");
    house.amount = euros(10);
    house.debt->borrowed = euros(20);
    add(house);

    EXPECT_EQ(account(openings).code.name(), "Opening balances (USD)");
    EXPECT_EQ(account(openings).type, AccountTypes::Equity);
    EXPECT_EQ(account(openings).purpose, AccountPurposes::OpeningBalances);
    EXPECT_EQ(household.balance(openings), dollars(-10'000));
    EXPECT_EQ(account(AccountNumber(3002)).code.name(), "Opening balances (EUR)");
    EXPECT_EQ(household.balance(AccountNumber(3002)), euros(-20));
    EXPECT_EQ(household.codes(AccountTypes::Equity).size(), 2U);
}

TEST_F(DebtAccountTest, ADebtIsAnAccountOfItsBank)
{
    add(car, loan);

    EXPECT_EQ(household.content().books.banks.at(river).accounts(),
              (std::map<AccountNumber, BankAccountTypes>{{carAccount, BankAccountTypes::Loan}}));
    EXPECT_THAT(household.keptAt(BudgetItemTypes::Debt),
                ElementsAre(BudgetBankAccount{BudgetSource("Car"), {river, carAccount, BankAccountTypes::Loan}}));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(DebtAccountTest, ADebtWithoutABankMayGetOneLater)
{
    add(car);
    EXPECT_THAT(household.keptAt(BudgetItemTypes::Debt), IsEmpty());

    change(car.identifier, car, at(BankAccountTypes::CreditCard));

    EXPECT_THAT(household.keptAt(BudgetItemTypes::Debt),
                ElementsAre(BudgetBankAccount{BudgetSource("Car"), {river, carAccount, BankAccountTypes::CreditCard}}));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(DebtAccountTest, ADebtKeepsItsBank)
{
    BankName const hill("Hill");
    household.addBank(hill);
    add(car, loan);
    auto const before = household.content().books;

    change(car.identifier, car, std::nullopt);
    change(car.identifier, car, BankAccount{river, carAccount, BankAccountTypes::Loan});

    EXPECT_EQ(household.content().books, before);
    auto const sentence =
        "Car is kept at Riverside as Loan and stays there. Plan what is owed to another bank as another debt.";
    expectRefused(
        [&] {
            change(car.identifier, car, BankAccount{hill, carAccount, BankAccountTypes::Loan});
        },
        sentence);
    expectRefused([&] { change(car.identifier, car, at(BankAccountTypes::CreditCard)); }, sentence);
}

TEST_F(DebtAccountTest, BanksThatCanNotKeepIt)
{
    auto const refuse = [&](BankAccount const& keptAt, QString const& sentence) {
        expectRefused([&] { add(car, keptAt); }, sentence);
        add(car);
        expectRefused([&] { change(car.identifier, car, keptAt); }, sentence);
        household.remove(car.identifier);
    };

    refuse({BankName(), {}, BankAccountTypes::Loan}, "No bank is chosen for Car. Choose one.");
    refuse({BankName("Hill"), {}, BankAccountTypes::Loan},
           "There is no bank called Hill. Choose another bank for Car.");
    refuse(at(BankAccountTypes::Unspecified),
           "It isn't chosen as what Car is borrowed from its bank. Choose Credit Card or Loan.");
    for (auto const& [type, name] :
         {std::pair(BankAccountTypes::Checking, "Checking"), std::pair(BankAccountTypes::Savings, "Savings"),
          std::pair(BankAccountTypes::Goal, "Goal")}) {
        refuse(at(type), QString("Car is owed, and an account of the kind %1 holds what one has. Choose Credit Card or "
                                 "Loan.")
                             .arg(name));
    }
}

TEST_F(DebtAccountTest, AClosedBankTakesNoNewDebtAndKeepsItsOldOnes)
{
    add(car, loan);
    auto const content = withClosedBank();
    MemoryStore kept(content);
    Household opened(content, kept);

    expectSentence([&] { opened.add(planned(BudgetItemTypes::Debt, "Boat"), loan, today); },
                   "Riverside is closed. Choose another bank for Boat.");
    EXPECT_NO_THROW(opened.change(car.identifier, car, loan));
}

TEST_F(DebtAccountTest, TheSumBorrowedStays)
{
    add(car);
    auto more = car;
    more.debt->borrowed = dollars(6'000);

    expectRefused([&] { change(car.identifier, more); }, "The sum borrowed for Car is posted as 5000.00 USD and stays. "
                                                         "Plan what was borrowed since as another debt.");
}

TEST_F(DebtAccountTest, ARemovedDebtGoesWithItsOpeningBalanceAndItsPlaceAtTheBank)
{
    add(car, loan);

    household.remove(car.identifier);

    EXPECT_TRUE(household.content().items.empty());
    EXPECT_THAT(store.postings(), IsEmpty());
    EXPECT_THAT(household.content().books.turnovers, IsEmpty());
    EXPECT_THAT(household.bankAccounts(river, {}), IsEmpty());
    EXPECT_THAT(household.codes(AccountTypes::Liability), IsEmpty());
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(DebtAccountTest, ADebtWithPaymentsIsNotRemoved)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(100));
    add(car);
    auto paid = posting(carAccount, checking, dollars(20));
    paid.occurredOn = {2024, 3, 2};
    household.post(paid);

    expectRefused(
        [&] { household.remove(car.identifier); },
        "Car can't be removed, since a posting of 3/2/2024 needs it. Delete that posting first, or keep Car.");
}

/// A survey has found it to agree with the bank.
TEST_F(DebtAccountTest, ADebtWhoseOpeningBalanceIsReconciledIsNotRemoved)
{
    add(car);
    auto reconciled = store.postings().begin()->second;
    reconciled.status = tlm::accounting::TransactionStatuses::Reconciled;
    MemoryStore kept(NewBudget{household.content(), {reconciled}});
    Household opened(household.content(), kept);

    expectSentence(
        [&] { opened.remove(car.identifier); },
        "Car can't be removed, since a posting of 5/1/2025 needs it. Delete that posting first, or keep Car.");
}

TEST_F(DebtAccountTest, DebtsThatAddUpToMoreThanCanBeCounted)
{
    auto const largest = Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max());
    auto house = planned(BudgetItemTypes::Debt, "House");
    house.debt->borrowed = largest;
    add(house);

    expectRefused([&] { add(car); },
                  "What is posted to one account would add up to more than can be counted. Post a smaller amount.");
}

TEST_F(DebtAccountTest, ADebtWithoutADayOnWhichItOpens)
{
    expectRefused([&] { household.add(car, std::nullopt, QDate()); },
                  "The posting has no date. Enter the day on which it happened.");
}
}
}
