#include "HouseholdFixture.h"
#include "support/MessageLog.h"

#include <tlm/adviser/Assess.h>
#include <tlm/foundation/Error.h>

#include <chrono>
#include <limits>

using fiscora::Currency;
using fiscora::Money;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::EventFrequency;
using tlm::foundation::Error;

namespace tallymere::engine {

namespace {

class HouseholdTotalsTest : public HouseholdTest
{
protected:
    void plan(BudgetItemTypes type, QString const& name, Money const& amount,
              EventFrequency period = EventFrequency::Monthly)
    {
        auto item = planned(type, name);
        item.amount = amount;
        item.period = period;
        if (item.goalTotal) {
            item.goalTotal = amount;
        }
        if (item.debt) {
            item.debt->borrowed = amount;
        }
        add(item);
    }
};

TEST_F(HouseholdTotalsTest, AnEmptyBudgetTotalsZeroInThePreferredCurrency)
{
    auto const totals = household.monthlyTotals();

    for (auto const& total : {totals.wages, totals.goals, totals.bills, totals.debts, totals.nontracks}) {
        EXPECT_EQ(total, dollars(0));
    }
}

TEST_F(HouseholdTotalsTest, EachTypeHasATotalOfItsOwn)
{
    plan(BudgetItemTypes::Wage, "Salary", dollars(5'000));
    plan(BudgetItemTypes::Goal, "Bicycle", dollars(400));
    plan(BudgetItemTypes::Bill, "Rent", dollars(1'000));
    plan(BudgetItemTypes::Bill, "Water", dollars(300), EventFrequency::Quarterly);
    plan(BudgetItemTypes::Debt, "Car", dollars(200));
    plan(BudgetItemTypes::Nontrack, "Pocket money", dollars(50));

    auto const totals = household.monthlyTotals();

    EXPECT_EQ(totals.wages, dollars(5'000));
    EXPECT_EQ(totals.goals, dollars(400));
    EXPECT_EQ(totals.bills, dollars(1'100));
    EXPECT_EQ(totals.debts, dollars(200));
    EXPECT_EQ(totals.nontracks, dollars(50));
}

TEST_F(HouseholdTotalsTest, HourlyAndDailyItemsCountByTheBudgetsWorkingWeek)
{
    auto settings = household.content().settings;
    settings.workingWeek = {std::chrono::hours(20), std::chrono::days(4)};
    household.configure(settings);
    plan(BudgetItemTypes::Wage, "Shop", dollars(15), EventFrequency::Hourly);
    plan(BudgetItemTypes::Nontrack, "Lunch", dollars(9), EventFrequency::Daily);

    auto const totals = household.monthlyTotals();

    EXPECT_EQ(totals.wages, dollars(1'304, 44));   // 15 * 20 * 52.1775 / 12 = 1304.4375
    EXPECT_EQ(totals.nontracks, dollars(156, 53)); // 9 * 4 * 52.1775 / 12 = 156.5325
}

TEST_F(HouseholdTotalsTest, WhatHappensOnceCountsNothing)
{
    auto present = bill("Wedding present");
    present.period = EventFrequency::None;

    Household const opened(planning({present}).content, store);

    EXPECT_EQ(opened.monthlyTotals().bills, dollars(0));
}

TEST_F(HouseholdTotalsTest, CurrenciesAddUpByTheBudgetsRates)
{
    setRate(Currency::EUR, Currency::USD, 1.25);
    plan(BudgetItemTypes::Bill, "Rent", dollars(1'000));
    plan(BudgetItemTypes::Bill, "Newspaper", euros(20));

    EXPECT_EQ(household.monthlyTotals().bills, dollars(1'025));
}

TEST_F(HouseholdTotalsTest, ACurrencyWithoutARateIsLeftOutAndLogged)
{
    tlm::testing::expectMessage(QtWarningMsg, "from EUR to USD");
    plan(BudgetItemTypes::Bill, "Rent", dollars(1'000));
    plan(BudgetItemTypes::Bill, "Newspaper", euros(20));

    EXPECT_EQ(household.monthlyTotals().bills, dollars(1'000));
}

TEST_F(HouseholdTotalsTest, ATotalTooLargeToCountIsTold)
{
    auto const largest = Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max());
    plan(BudgetItemTypes::Bill, "Rent", largest);
    plan(BudgetItemTypes::Bill, "Water", largest);

    EXPECT_THROW(household.monthlyTotals(), Error);
    EXPECT_THROW(household.health(), Error);
}

TEST_F(HouseholdTotalsTest, DebtsTooLargeToCountAreTold)
{
    setRate(Currency::EUR, Currency::USD, 2.0);
    plan(BudgetItemTypes::Debt, "Car", Money::fromAmount(Currency::EUR, std::numeric_limits<long long>::max() / 2));
    plan(BudgetItemTypes::Debt, "House", dollars(100));

    EXPECT_THROW(household.health(), Error);
}

TEST_F(HouseholdTotalsTest, HealthIsTheAdvisersJudgementOfTotalsAndDebts)
{
    setRate(Currency::EUR, Currency::USD, 1.5);
    plan(BudgetItemTypes::Wage, "Salary", dollars(5'000));
    plan(BudgetItemTypes::Bill, "Rent", dollars(1'000));
    plan(BudgetItemTypes::Debt, "Car", dollars(500));
    plan(BudgetItemTypes::Debt, "Boat", euros(200));

    auto const health = household.health();

    EXPECT_EQ(health, tlm::adviser::assess(household.monthlyTotals(), dollars(800)));
}
}
}
