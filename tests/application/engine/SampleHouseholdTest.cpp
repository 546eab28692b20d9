#include "HouseholdFixture.h"

#include <engine/SampleHousehold.h>

#include <QDate>

#include <ctime>
#include <gmock/gmock.h>
#include <map>
#include <set>

using ::testing::AllOf;
using ::testing::Gt;
using ::testing::Lt;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::EventFrequency;

namespace tallymere::engine {

namespace {

class SampleHouseholdTest : public HouseholdTest, public ::testing::WithParamInterface<QDate>
{
protected:
    BudgetContent content = sampleHousehold(GetParam());
    Household sample{content, store};
};

TEST_P(SampleHouseholdTest, PlansARealHousehold)
{
    std::map<BudgetItemTypes, int> counts;
    std::set<EventFrequency> periodsOfBills;
    std::set<fiscora::Currency> currencies;
    for (auto const& [identifier, item] : content.items) {
        ++counts[identifier.type];
        currencies.insert(item.amount.code());
        if (identifier.type == BudgetItemTypes::Bill) {
            periodsOfBills.insert(item.period);
        }
    }

    EXPECT_EQ(counts[BudgetItemTypes::Wage], 2);
    EXPECT_GE(counts[BudgetItemTypes::Bill], 9);
    EXPECT_EQ(counts[BudgetItemTypes::Debt], 2);
    EXPECT_EQ(counts[BudgetItemTypes::Goal], 4);
    EXPECT_EQ(counts[BudgetItemTypes::Nontrack], 2);
    EXPECT_GE(periodsOfBills.size(), 9U);
    EXPECT_EQ(currencies, content.settings.usable);
    EXPECT_EQ(currencies.size(), 2U);
}

TEST_P(SampleHouseholdTest, HasARateForEachPairOfItsCurrencies)
{
    for (auto const from : content.settings.usable) {
        for (auto const to : content.settings.usable) {
            EXPECT_TRUE(content.rates.hasConversion(from, to, {}));
        }
    }
}

TEST_P(SampleHouseholdTest, HasSomethingDueInEachColourOfTheDashboard)
{
    auto const notice = content.settings.dueWithin.count();
    auto overdue = 0;
    auto dueToday = 0;
    auto soon = 0;
    auto later = 0;
    auto last = 0;

    for (auto const& due : sample.due(GetParam())) {
        auto const days = GetParam().daysTo(due.dueOn);
        (days < 0 ? overdue : days == 0 ? dueToday : days <= notice / 4 ? soon : days <= notice / 2 ? later : last)++;
    }

    for (auto const count : {overdue, dueToday, soon, later, last}) {
        EXPECT_GE(count, 2);
    }
}

TEST_P(SampleHouseholdTest, HasMoreComingInThanGoingOut)
{
    auto const totals = sample.monthlyTotals();
    auto outgoing = totals.bills;
    outgoing += totals.debts;
    outgoing += totals.nontracks;
    outgoing += totals.goals;

    EXPECT_THAT(outgoing / totals.wages, AllOf(Gt(0.6), Lt(1.0)));
    EXPECT_THAT(sample.health().percent(), AllOf(Gt(40.0), Lt(100.0)));
    EXPECT_FALSE(sample.health().information().isEmpty());
}

TEST_P(SampleHouseholdTest, IsTheSameForTheSameDayInEveryTimeZone)
{
    auto const zoneBefore = qgetenv("TZ");

    for (auto const* const zone :
         {"UTC", "Pacific/Kiritimati", "Pacific/Pago_Pago", "America/Sao_Paulo", "Europe/Berlin", "Asia/Kathmandu"}) {
        qputenv("TZ", zone);
        tzset();

        EXPECT_EQ(sampleHousehold(GetParam()), content) << zone;
        EXPECT_EQ(Household(content, store).due(GetParam()), sample.due(GetParam())) << zone;
    }

    zoneBefore.isNull() ? qunsetenv("TZ") : qputenv("TZ", zoneBefore);
    tzset();
}

INSTANTIATE_TEST_SUITE_P(Days, SampleHouseholdTest,
                         ::testing::Values(QDate(2024, 2, 29), QDate(2025, 12, 31), QDate(2026, 7, 1),
                                           QDate(2027, 3, 28)));
}
}
