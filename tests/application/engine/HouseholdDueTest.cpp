#include "HouseholdFixture.h"
#include "support/MessageLog.h"

#include <QDate>

#include <algorithm>
#include <chrono>
#include <gmock/gmock.h>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::budgeting::BudgetItemAmountDue;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::EventFrequency;

namespace tallymere::engine {

namespace {

class HouseholdDueTest : public HouseholdTest
{
protected:
    HouseholdDueTest() { announce(14); }

    void announce(int days)
    {
        auto settings = household.content().settings;
        settings.dueWithin = std::chrono::days(days);
        household.configure(settings);
    }

    void plan(BudgetItemTypes type, QString const& name, EventFrequency period, QDate const& next)
    {
        auto item = planned(type, name);
        item.period = period;
        item.nextOccurOn = next;
        add(item);
    }

    std::vector<QDate> dueDays() const
    {
        std::vector<QDate> days;
        for (auto const& due : household.due(today)) {
            days.push_back(due.dueOn);
        }
        return days;
    }
};

TEST_F(HouseholdDueTest, NothingIsDueInAnEmptyBudget)
{
    EXPECT_THAT(household.due(today), IsEmpty());
}

TEST_F(HouseholdDueTest, TheLastAnnouncedDayBelongsToThem)
{
    plan(BudgetItemTypes::Bill, "In time", EventFrequency::Yearly, today.addDays(14));
    plan(BudgetItemTypes::Bill, "Too late", EventFrequency::Yearly, today.addDays(15));

    EXPECT_THAT(dueDays(), ElementsAre(today.addDays(14)));
}

TEST_F(HouseholdDueTest, WithoutNoticeTodayIsStillDue)
{
    announce(0);
    plan(BudgetItemTypes::Bill, "Today", EventFrequency::Yearly, today);
    plan(BudgetItemTypes::Bill, "Tomorrow", EventFrequency::Yearly, today.addDays(1));

    EXPECT_THAT(dueDays(), ElementsAre(today));
}

TEST_F(HouseholdDueTest, EachMissedOccurrenceIsOverdueOfItsOwn)
{
    plan(BudgetItemTypes::Bill, "Rent", EventFrequency::Monthly, {2025, 1, 31});

    EXPECT_THAT(dueDays(), ElementsAre(QDate(2025, 1, 31), QDate(2025, 2, 28), QDate(2025, 3, 31), QDate(2025, 4, 30)));
}

TEST_F(HouseholdDueTest, WhatIsPostedAlreadyIsNotDueAgain)
{
    auto rent = bill("Rent"); // anchored on 31 January
    rent.nextOccurOn = {2025, 3, 31};
    Household const paid(planning({rent}).content, store);

    auto const due = paid.due(today);

    ASSERT_EQ(due.size(), 2U);
    EXPECT_EQ(due[0].dueOn, QDate(2025, 3, 31));
    EXPECT_EQ(due[1].dueOn, QDate(2025, 4, 30));
}

TEST_F(HouseholdDueTest, AnItemWithoutFrequencyIsDueOnce)
{
    auto present = bill("Wedding present");
    present.period = EventFrequency::None;
    Household const opened(planning({present}).content, store);

    auto const due = opened.due(today);

    ASSERT_EQ(due.size(), 1U);
    EXPECT_EQ(due.front().dueOn, present.nextOccurOn);
}

TEST_F(HouseholdDueTest, TheyComeByDateThenTypeThenSource)
{
    plan(BudgetItemTypes::Wage, "Salary", EventFrequency::Yearly, today);
    plan(BudgetItemTypes::Bill, "Water", EventFrequency::Yearly, today);
    plan(BudgetItemTypes::Bill, "Rent", EventFrequency::Yearly, today);
    plan(BudgetItemTypes::Goal, "Bicycle", EventFrequency::Yearly, today.addDays(-1));

    auto const due = household.due(today);

    ASSERT_EQ(due.size(), 4U);
    EXPECT_EQ(due[0],
              (BudgetItemAmountDue{{named(BudgetItemTypes::Goal, "Bicycle"), today.addDays(-1)}, dollars(100)}));
    EXPECT_EQ(due[1], (BudgetItemAmountDue{{named(BudgetItemTypes::Bill, "Rent"), today}, dollars(100)}));
    EXPECT_EQ(due[2], (BudgetItemAmountDue{{named(BudgetItemTypes::Bill, "Water"), today}, dollars(100)}));
    EXPECT_EQ(due[3], (BudgetItemAmountDue{{named(BudgetItemTypes::Wage, "Salary"), today}, dollars(100)}));
}

TEST_F(HouseholdDueTest, AnHourlyWageIsDueWithTheHoursOfADayOnWorkingDays)
{
    announce(4);
    plan(BudgetItemTypes::Wage, "Shop", EventFrequency::Hourly, today);

    auto const due = household.due(today);

    ASSERT_EQ(due.size(), 3U); // Thursday, Friday, Monday
    EXPECT_EQ(due[2].dueOn, QDate(2025, 5, 5));
    EXPECT_EQ(due[0].amount, dollars(800));
    EXPECT_EQ(due[2].amount, dollars(800));
}

TEST_F(HouseholdDueTest, HoursThatDoNotDivideByDaysAreRoundedOnce)
{
    auto settings = household.content().settings;
    settings.workingWeek = {std::chrono::hours(20), std::chrono::days(3)};
    household.configure(settings);
    auto job = planned(BudgetItemTypes::Wage, "Shop");
    job.amount = dollars(10, 1);
    job.period = EventFrequency::Hourly;
    job.nextOccurOn = {2025, 4, 28}; // a Monday
    add(job);

    auto const due = household.due({2025, 4, 28});

    ASSERT_FALSE(due.empty());
    EXPECT_EQ(due.front().amount.amount(), 66'7333); // 10.01 * 20 / 3 = 66.73333...
}

TEST_F(HouseholdDueTest, AnotherWorkingWeekMovesWorkingDays)
{
    announce(6);
    plan(BudgetItemTypes::Nontrack, "Lunch", EventFrequency::Daily, today);
    auto settings = household.content().settings;
    settings.workingWeek.days = std::chrono::days(7);

    auto const before = dueDays().size();
    household.configure(settings);
    auto const after = dueDays().size();

    EXPECT_EQ(before, 5U);
    EXPECT_EQ(after, 7U);
}

TEST_F(HouseholdDueTest, AnItemLeftAloneForAgesShowsItsEarliestOccurrencesAndSaysSo)
{
    tlm::testing::expectMessage(QtWarningMsg, "only its first 1000 are due");
    plan(BudgetItemTypes::Wage, "Shop", EventFrequency::Hourly, {1, 1, 1});

    auto const days = dueDays();

    ASSERT_EQ(days.size(), Household::mostDueOfOneItem_);
    EXPECT_EQ(days.front(), QDate(1, 1, 1));
    EXPECT_TRUE(std::is_sorted(days.begin(), days.end()));
}

TEST_F(HouseholdDueTest, ManyItemsLeftAloneForAgesShareWhatIsTold)
{
    constexpr std::size_t items = 124;
    tlm::testing::expectMessage(QtWarningMsg, "only its first 800 are due");
    for (std::size_t item = 0; item < items; ++item) {
        plan(BudgetItemTypes::Bill, QString::number(item), EventFrequency::Daily, {1, 1, 1});
    }
    plan(BudgetItemTypes::Wage, "Shop", EventFrequency::Monthly, today);

    auto const due = household.due(today);

    EXPECT_LE(due.size(), Household::mostDue_);
    EXPECT_EQ(std::ranges::count(due, QDate(1, 1, 1), &BudgetItemAmountDue::dueOn), std::ptrdiff_t{items});
    EXPECT_EQ(std::ranges::count(due, BudgetItemTypes::Wage, &BudgetItemAmountDue::type), 1);
}

TEST_F(HouseholdDueTest, OnAnInvalidDayNothingIsDue)
{
    plan(BudgetItemTypes::Bill, "Rent", EventFrequency::Monthly, {2025, 1, 31});

    EXPECT_THAT(household.due(QDate()), IsEmpty());
}
}
}
