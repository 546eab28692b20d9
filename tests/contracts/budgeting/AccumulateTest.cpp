#include "WorkingWeekForScope.h"

#include <tlm/budgeting/Accumulate.h>
#include <tlm/foundation/Error.h>

#include <climits>
#include <stdexcept>
#include <support/Properties.h>

using namespace tlm::budgeting;
using namespace std::chrono_literals;
using fiscora::Currency;
using fiscora::Money;

namespace {

Money stored(long long amount)
{
    return Money::fromAmount(Currency::EUR, amount);
}

EventFrequency anyFrequency()
{
    return static_cast<EventFrequency>(*rc::gen::inRange(1, 22));
}

struct PerMonth
{
    EventFrequency period;
    long long expected; // ten thousandths of a euro
};

class AccumulateTest : public ::testing::TestWithParam<PerMonth>
{};
}

TEST_P(AccumulateTest, TellsWhatOneEuroComesToPerMonth)
{
    EXPECT_EQ(accumulateOver(EventFrequency::Monthly, stored(10'000), GetParam().period), stored(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    AllFrequencies, AccumulateTest,
    ::testing::Values(PerMonth{EventFrequency::Hourly, 1'739'250},
                      PerMonth{EventFrequency::Daily, 217'406},      // 217 406.25
                      PerMonth{EventFrequency::Weekly, 43'481},      // 43 481.25
                      PerMonth{EventFrequency::Fortnightly, 21'741}, // 21 740.625
                      PerMonth{EventFrequency::TwiceMonthly, 20'000}, PerMonth{EventFrequency::Monthly, 10'000},
                      PerMonth{EventFrequency::EveryTwoMonths, 5'000}, PerMonth{EventFrequency::Quarterly, 3'333},
                      PerMonth{EventFrequency::EveryFourMonths, 2'500},
                      PerMonth{EventFrequency::EveryFiveMonths, 2'000}, PerMonth{EventFrequency::HalfYearly, 1'667},
                      PerMonth{EventFrequency::EveryEightMonths, 1'250},
                      PerMonth{EventFrequency::EveryNineMonths, 1'111}, PerMonth{EventFrequency::Yearly, 833},
                      PerMonth{EventFrequency::EveryEighteenMonths, 556}, PerMonth{EventFrequency::EveryTwoYears, 417},
                      PerMonth{EventFrequency::EveryThreeYears, 278}, PerMonth{EventFrequency::EveryFourYears, 208},
                      PerMonth{EventFrequency::EveryFiveYears, 167}, PerMonth{EventFrequency::EveryTenYears, 83},
                      PerMonth{EventFrequency::EveryFourWeeks, 10'870})); // 10 870.3125

TEST(AccumulateOverTest, CountsUpToLongerTimes)
{
    EXPECT_EQ(accumulateOver(EventFrequency::Yearly, stored(10'000), EventFrequency::Weekly), stored(521'775));
    EXPECT_EQ(accumulateOver(EventFrequency::EveryTenYears, stored(10'000), EventFrequency::Monthly),
              stored(1'200'000));
    EXPECT_EQ(accumulateOver(EventFrequency::Fortnightly, stored(10'000), EventFrequency::Weekly), stored(20'000));
}

TEST(AccumulateOverTest, HoursAndDaysGoByTheWorkingWeek)
{
    tlm::testing::WorkingWeekForScope const restored;
    setWorkingWeek({30h, std::chrono::days(4)});

    EXPECT_EQ(accumulateOver(EventFrequency::Weekly, stored(10'000), EventFrequency::Hourly), stored(300'000));
    EXPECT_EQ(accumulateOver(EventFrequency::Weekly, stored(10'000), EventFrequency::Daily), stored(40'000));
    EXPECT_EQ(accumulateOver(EventFrequency::Daily, stored(10'000), EventFrequency::Hourly), stored(75'000));
}

TEST(AccumulateOverTest, RoundsHalvesAwayFromZero)
{
    auto const halved = [](long long amount) {
        return accumulateOver(EventFrequency::Monthly, stored(amount), EventFrequency::EveryTwoMonths);
    };

    EXPECT_EQ(halved(1), stored(1));
    EXPECT_EQ(halved(-1), stored(-1));
    EXPECT_EQ(halved(3), stored(2));
    EXPECT_EQ(halved(-3), stored(-2));
    EXPECT_EQ(halved(LLONG_MAX), stored(LLONG_MAX / 2 + 1));
    EXPECT_EQ(halved(LLONG_MIN), stored(LLONG_MIN / 2));
}

TEST(AccumulateOverTest, RoundsThirdsToTheNearer)
{
    auto const third = [](long long amount) {
        return accumulateOver(EventFrequency::Monthly, stored(amount), EventFrequency::Quarterly);
    };

    EXPECT_EQ(third(1), stored(0));
    EXPECT_EQ(third(2), stored(1));
    EXPECT_EQ(third(-1), stored(0));
    EXPECT_EQ(third(-2), stored(-1));
}

TEST(AccumulateOverTest, AnAmountStaysAsItIsOverItsOwnPeriod)
{
    for (auto frequency = 1; frequency < 22; ++frequency) {
        auto const same = static_cast<EventFrequency>(frequency);
        for (auto const amount : {LLONG_MIN, -1LL, 0LL, 1LL, LLONG_MAX}) {
            EXPECT_EQ(accumulateOver(same, stored(amount), same), stored(amount)) << frequency;
        }
    }
}

TEST(AccumulateOverTest, DebitsAndCreditsMirrorEachOther)
{
    tlm::testing::expectAlways([] {
        auto const amount = *rc::gen::inRange(-1'000'000'000LL, 1'000'000'000LL);
        auto const over = anyFrequency();
        auto const period = anyFrequency();

        RC_ASSERT(accumulateOver(over, stored(-amount), period) == -accumulateOver(over, stored(amount), period));
    });
}

TEST(AccumulateOverTest, KeepsTheCurrency)
{
    EXPECT_EQ(accumulateOver(EventFrequency::Yearly, Money(Currency::JPY, 100, 0, 0), EventFrequency::Monthly),
              Money(Currency::JPY, 1200, 0, 0));
    EXPECT_EQ(accumulateOver(EventFrequency::Yearly, Money(), EventFrequency::Monthly), Money());
}

TEST(AccumulateOverTest, ReachesTheEndsOf64BitsAndRaisesBeyond)
{
    auto const doubled = [](long long amount) {
        return accumulateOver(EventFrequency::Monthly, stored(amount), EventFrequency::TwiceMonthly);
    };

    EXPECT_EQ(doubled(LLONG_MAX / 2), stored(LLONG_MAX - 1));
    EXPECT_EQ(doubled(LLONG_MIN / 2), stored(LLONG_MIN));
    EXPECT_THROW(doubled(LLONG_MAX / 2 + 1), std::overflow_error);
    EXPECT_THROW(doubled(LLONG_MIN / 2 - 1), std::overflow_error);
}

TEST(AccumulateOverTest, TheLargestAmountAtTheHighestPaceOnlyRaises)
{
    tlm::testing::WorkingWeekForScope const restored;
    setWorkingWeek({168h, std::chrono::days(7)});

    for (auto const amount : {LLONG_MIN, LLONG_MAX}) {
        EXPECT_THROW(accumulateOver(EventFrequency::EveryTenYears, stored(amount), EventFrequency::Hourly),
                     std::overflow_error);
    }
    EXPECT_EQ(accumulateOver(EventFrequency::Hourly, stored(1), EventFrequency::EveryTenYears), stored(0));
}

TEST(AccumulateOverTest, NothingAccumulatesWithoutAPeriod)
{
    EXPECT_THROW(accumulateOver(EventFrequency::Monthly, stored(1), EventFrequency::None), tlm::foundation::Error);
    EXPECT_THROW(accumulateOver(EventFrequency::None, stored(1), EventFrequency::Monthly), tlm::foundation::Error);
    EXPECT_THROW(accumulateOver(EventFrequency::None, stored(1), EventFrequency::None), tlm::foundation::Error);
}
