#include "HouseholdRefusalFixture.h"

#include <gmock/gmock.h>
#include <limits>
#include <utility>
#include <vector>

using fiscora::Currency;
using fiscora::Money;
using ::testing::IsEmpty;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

namespace {

class OpenBooksTest : public HouseholdRefusalTest
{
protected:
    /// \return the name of the account that a bill called \a name gets
    static QString accountOfBill(QString const& name)
    {
        auto const content = planning({bill(name)}).content;
        return content.books.accounts.at(AccountNumber(5001)).code.name();
    }
};

TEST_F(OpenBooksTest, EachItemGetsTheAccountThatItWouldHaveGotWhenItWasPlanned)
{
    std::vector<PlannedItem> const items{
        bill("Rent"), planned(BudgetItemTypes::Debt, "Car"), planned(BudgetItemTypes::Goal, "Bicycle"),
        planned(BudgetItemTypes::Nontrack, "Lunch"), planned(BudgetItemTypes::Wage, "Salary")};
    auto content = dollarsAndEuros();
    for (auto const& item : items) {
        content.items.emplace(item.identifier, item);
        household.add(item, std::nullopt, item.anchoredOn);
    }

    auto const postings = openBooks(content);

    content.rates = household.content().rates;
    EXPECT_EQ(content, household.content());
    ASSERT_EQ(postings.size(), 1U);
    EXPECT_EQ(postings.front(), store.postings().begin()->second);
    EXPECT_EQ(postings.front().occurredOn, QDate(2025, 1, 31));
}

TEST_F(OpenBooksTest, ItemsThatHaveAccountsKeepThem)
{
    auto content = planning({bill("Rent"), planned(BudgetItemTypes::Debt, "Car")}).content;
    auto const before = content;

    EXPECT_THAT(openBooks(content), IsEmpty());

    EXPECT_EQ(content, before);
}

TEST_F(OpenBooksTest, EveryItemOpensAndTheBooksKeepTheRules)
{
    auto content = dollarsAndEuros();
    for (auto number = 0; number < 2'500; ++number) {
        auto const item = planned(static_cast<BudgetItemTypes>(1 + number % 5), QString::number(number));
        content.items.emplace(item.identifier, item);
    }

    auto const budget = withAccounts(content);

    EXPECT_EQ(budget.postings.size(), 500U);
    EXPECT_EQ(budget.content.books.accounts.size(), 2'501U);
    EXPECT_NO_THROW(Household(budget.content, store));
}

TEST_F(OpenBooksTest, NamesThatNoAccountCanHaveAreTidied)
{
    std::vector<std::pair<QString, QString>> const names{{"Rent", "Rent"},
                                                         {"Two  blanks", "Two  blanks"},
                                                         {"Rent\nof May", "Rent of May"},
                                                         {"Rent\u2002 of\u2028May\u0007", "Rent of May"},
                                                         {"\u2002\u0001", "bill"},
                                                         {QString("x") + QChar(0xD800), "x?"}};
    for (auto const& [name, expected] : names) {
        EXPECT_EQ(accountOfBill(name).toStdString(), expected.toStdString());
    }
}

TEST_F(OpenBooksTest, AnItemWithSuchANameStaysAndOpens)
{
    auto const odd = bill("Rent\nof May");
    auto const budget = planning({odd});

    Household const opened(budget.content, store);

    EXPECT_TRUE(opened.content().items.contains(odd.identifier));
}

TEST_F(OpenBooksTest, DebtsThatAddUpToMoreThanCanBeCountedAreTold)
{
    auto content = dollarsAndEuros();
    for (auto const* const name : {"Car", "House"}) {
        auto debt = planned(BudgetItemTypes::Debt, name);
        debt.debt->borrowed = Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max());
        content.items.emplace(debt.identifier, debt);
    }

    expectSentence([&] { openBooks(content); },
                   "What is posted to one account would add up to more than can be counted. Post a smaller amount.");
}

/// A damaged item is for the household to refuse.
TEST_F(OpenBooksTest, ADebtOfNothingHasNoOpeningPosting)
{
    auto debt = planned(BudgetItemTypes::Debt, "Car");
    debt.debt->borrowed = dollars(0);

    EXPECT_THAT(planning({debt}).postings, IsEmpty());
}
}
}
