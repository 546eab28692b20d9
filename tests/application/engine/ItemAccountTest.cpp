#include "BankFixture.h"

#include <gmock/gmock.h>
#include <vector>

using fiscora::Currency;
using ::testing::ElementsAre;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::BankAccountTypes;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;

namespace tallymere::engine {

namespace {

class ItemAccountTest : public BankTest
{
protected:
    /// Puts an account of \a type into \a content, under a number of its own.
    static void put(BudgetContent& content, AccountTypes type, unsigned int number)
    {
        AccountNumber const own(number);
        content.books.accounts.emplace(
            own, BookAccount{AccountCode(own, "Old", std::nullopt), type, Currency::USD, false, {}});
    }

    /// \return number of the account of a bill that is planned in \a content
    AccountNumber planIn(BudgetContent const& content)
    {
        MemoryStore kept(content);
        Household numbered(content, kept);
        numbered.add(bill("Rent"), std::nullopt, today);
        EXPECT_EQ(kept.kept(), numbered.content());
        return numbered.content().items.at(bill("Rent").identifier).account;
    }
};

TEST_F(ItemAccountTest, EachTypeKeepsItsAccountAmongThoseOfItsKind)
{
    struct Row
    {
        BudgetItemTypes type;
        AccountTypes account;
        unsigned int number;
    };
    std::vector<Row> const rows{{BudgetItemTypes::Bill, AccountTypes::Expense, 5001},
                                {BudgetItemTypes::Nontrack, AccountTypes::Expense, 5002},
                                {BudgetItemTypes::Wage, AccountTypes::Income, 4001},
                                {BudgetItemTypes::Debt, AccountTypes::Liability, 2001},
                                {BudgetItemTypes::Goal, AccountTypes::Asset, 1001}};
    for (auto const& row : rows) {
        add(planned(row.type, "Something"));

        AccountNumber const number(row.number);
        EXPECT_EQ(accountOf(row.type, "Something"), number);
        EXPECT_EQ(account(number),
                  (BookAccount{AccountCode(number, "Something", std::nullopt), row.account, Currency::USD, false, {}}));
    }
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(ItemAccountTest, AnAccountHasTheNumberAfterTheLargestOfItsBlock)
{
    auto content = dollarsAndEuros();
    put(content, AccountTypes::Expense, 5007);
    put(content, AccountTypes::Income, 6001);

    EXPECT_EQ(planIn(content), AccountNumber(5008));
}

TEST_F(ItemAccountTest, BeyondAFullBlockAnAccountHasTheNumberAfterTheLargestOfAll)
{
    auto content = dollarsAndEuros();
    put(content, AccountTypes::Expense, 5999);

    EXPECT_EQ(planIn(content), AccountNumber(10'001));

    put(content, AccountTypes::Income, 40'000);

    EXPECT_EQ(planIn(content), AccountNumber(40'001));
}

TEST_F(ItemAccountTest, WithoutANumberLeftNothingIsPlanned)
{
    auto content = dollarsAndEuros();
    put(content, AccountTypes::Expense, 5999);
    put(content, AccountTypes::Income, 4'294'967'295);

    expectSentence([&] { planIn(content); },
                   "No account number is left, since account 4294967295 has the largest that there is. Give that "
                   "account a smaller number first.");
}

/// Two accounts are made at once there: the debt's, and the one against which balances open.
TEST_F(ItemAccountTest, BeyondFullBlocksEveryAccountHasANumberOfItsOwn)
{
    auto content = dollarsAndEuros();
    put(content, AccountTypes::Liability, 2999);
    put(content, AccountTypes::Equity, 3999);
    MemoryStore kept(content);
    Household numbered(content, kept);

    numbered.add(planned(BudgetItemTypes::Debt, "Car"), std::nullopt, today);

    EXPECT_TRUE(numbered.content().books.accounts.contains(AccountNumber(10'001)));
    EXPECT_TRUE(numbered.content().books.accounts.contains(AccountNumber(10'002)));
    EXPECT_EQ(kept.kept(), numbered.content());
}

TEST_F(ItemAccountTest, AnAccountIsRenamedWithItsItem)
{
    add(bill("Rent"));
    add(planned(BudgetItemTypes::Wage, "Salary"));

    household.rename(named(BudgetItemTypes::Bill, " RENT"), BudgetSource(" Flat "));
    change(named(BudgetItemTypes::Wage, "salary"), planned(BudgetItemTypes::Wage, "Pay"));

    EXPECT_EQ(account(accountOf(BudgetItemTypes::Bill, "Flat")).code.name(), "Flat");
    EXPECT_EQ(account(accountOf(BudgetItemTypes::Wage, "Pay")).code.name(), "Pay");
    EXPECT_EQ(household.content().items.size(), 2U);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(ItemAccountTest, ARenamedItemIsFoundByItsNewNameAlone)
{
    add(bill("Rent"));

    household.rename(named(BudgetItemTypes::Bill, "Rent"), BudgetSource("Flat"));
    add(bill("Rent"));
    household.rename(named(BudgetItemTypes::Bill, "flat"), BudgetSource("House"));

    EXPECT_TRUE(household.content().items.contains(named(BudgetItemTypes::Bill, "House")));
    EXPECT_TRUE(household.content().items.contains(named(BudgetItemTypes::Bill, "Rent")));
}

TEST_F(ItemAccountTest, ARenamingChangesNothingElse)
{
    auto rent = bill("Rent");
    rent.nextOccurOn = {2025, 2, 28};
    rent.period = tlm::budgeting::EventFrequency::None; // as an old file may hold it
    auto const budget = planning({rent});
    MemoryStore kept(budget);
    Household opened(budget.content, kept);
    auto expected = budget.content.items.at(rent.identifier);
    expected.identifier = named(BudgetItemTypes::Bill, "rent");

    opened.rename(rent.identifier, expected.identifier.source);

    EXPECT_EQ(opened.content().items.at(expected.identifier), expected);
    EXPECT_EQ(kept.kept(), opened.content());
}

TEST_F(ItemAccountTest, AChangeUnderTheSameNameLeavesTheAccountsName)
{
    auto const odd = bill("Rent\nof May");
    auto const budget = planning({odd});
    MemoryStore kept(budget);
    Household opened(budget.content, kept);
    auto dearer = odd;
    dearer.amount = dollars(120);

    opened.change(odd.identifier, dearer, std::nullopt);

    EXPECT_EQ(opened.content().items.at(odd.identifier).amount, dollars(120));
    EXPECT_EQ(opened.content().books, budget.content.books);
}

TEST_F(ItemAccountTest, AnItemWithoutPostingsTakesItsAccountToAnotherCurrency)
{
    add(bill("Rent"));
    auto rent = bill("Rent");
    rent.amount = euros(90);

    change(rent.identifier, rent);

    EXPECT_EQ(account(accountOf(BudgetItemTypes::Bill, "Rent")).currency, Currency::EUR);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(ItemAccountTest, AnItemWithPostingsStaysInItsCurrency)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(100));
    add(bill("Rent"));
    household.post(posting(accountOf(BudgetItemTypes::Bill, "Rent"), checking, dollars(20)));
    add(planned(BudgetItemTypes::Debt, "Car"));
    auto rent = bill("Rent");
    rent.amount = euros(90);
    auto car = planned(BudgetItemTypes::Debt, "Car");
    car.amount = euros(90);
    car.debt->borrowed = euros(5'000);

    expectRefused([&] { change(rent.identifier, rent); },
                  "Rent has postings in USD, so it stays in that currency. Plan another item in EUR.");
    expectRefused([&] { change(car.identifier, car); },
                  "Car has postings in USD, so it stays in that currency. Plan another item in EUR.");
}

TEST_F(ItemAccountTest, ARemovedItemLeavesNothingInTheBooks)
{
    auto const before = household.content();
    add(bill("Rent"));

    household.remove(named(BudgetItemTypes::Bill, "Rent"));

    EXPECT_EQ(household.content(), before);
    EXPECT_EQ(store.kept(), before);
}

TEST_F(ItemAccountTest, AnItemWithPostingsIsNotRemoved)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(100));
    add(bill("Rent %2"));
    auto const rent = accountOf(BudgetItemTypes::Bill, "Rent %2");
    auto paid = posting(rent, checking, dollars(20));
    paid.madeFrom = rent;
    household.post(paid);

    expectRefused([&] { household.remove(named(BudgetItemTypes::Bill, "Rent %2")); },
                  "Rent %2 can't be removed, since a posting of 5/1/2025 needs it. Delete that posting first, or keep "
                  "Rent %2.");

    paid.occurredOn = {2025, 4, 2};
    household.post(paid);
    expectRefused([&] { household.remove(named(BudgetItemTypes::Bill, "Rent %2")); },
                  "Rent %2 can't be removed, since 2 postings need it, the latest of 5/1/2025. Delete them first, or "
                  "keep Rent %2.");
}

TEST_F(ItemAccountTest, AnItemIsNotRemovedFromAboveAnAccount)
{
    add(bill("Car"));
    auto content = household.content();
    AccountNumber const below(5100);
    content.books.accounts.emplace(below,
                                   BookAccount{AccountCode(below, "Fuel", accountOf(BudgetItemTypes::Bill, "Car")),
                                               AccountTypes::Expense,
                                               Currency::USD,
                                               false,
                                               {}});
    Household opened(content, store);

    expectSentence([&] { opened.remove(named(BudgetItemTypes::Bill, "Car")); },
                   "Car can't be removed, since the account Fuel stands under its own. Move that account first.");
}
}
}
