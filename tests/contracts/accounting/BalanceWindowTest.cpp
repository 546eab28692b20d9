#include <tlm/accounting/BalanceWindow.h>

#include <climits>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <support/Properties.h>

using namespace tlm::accounting;
using fiscora::Currency;
using fiscora::Money;
using tlm::foundation::Percentage;

namespace {

constexpr ByMajorUnit exactly{false};
constexpr ByMajorUnit byUnits{true};

Money stored(long long amount, Currency code = Currency::EUR)
{
    return Money::fromAmount(code, amount);
}

struct WindowCase
{
    long long difference; // in stored units of the euro, 10 000 to one
    double rate;
    long long base;
    bool isWithin;
    bool isWithinByMajorUnit;
};

class BalanceWindowTest : public ::testing::TestWithParam<WindowCase>
{};
}

TEST_P(BalanceWindowTest, MeasuresADifferenceOfEitherSignAgainstABaseOfEitherSign)
{
    auto const& [difference, rate, base, isWithin, isWithinByMajorUnit] = GetParam();
    Percentage const window(rate, 6);

    for (auto const sign : {1, -1}) {
        for (auto const side : {1, -1}) {
            auto const moved = stored(sign * difference);
            auto const against = stored(side * base);
            EXPECT_EQ(isDifferenceWithinWindow(moved, window, against, exactly), isWithin);
            EXPECT_EQ(isDifferenceWithinWindow(moved, window, against, byUnits), isWithinByMajorUnit);
        }
    }
}

TEST_P(BalanceWindowTest, MeasuresAValueOnEitherSideOfItsTarget)
{
    auto const& [difference, rate, base, isWithin, isWithinByMajorUnit] = GetParam();
    Percentage const window(rate, 6);

    for (auto const sign : {1, -1}) {
        auto const value = stored(base + sign * difference);
        EXPECT_EQ(isWithinWindow(value, window, stored(base), exactly), isWithin);
        EXPECT_EQ(isWithinWindow(value, window, stored(base), byUnits), isWithinByMajorUnit);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Windows, BalanceWindowTest,
    ::testing::Values(WindowCase{0, 0.0, 1'000'000, true, true}, WindowCase{1, 0.0, 1'000'000, false, true},
                      WindowCase{9'999, 0.0, 1'000'000, false, true}, WindowCase{10'000, 0.0, 1'000'000, false, false},
                      WindowCase{50'000, 5.0, 1'000'000, true, true}, WindowCase{50'001, 5.0, 1'000'000, false, true},
                      WindowCase{59'999, 5.0, 1'000'000, false, true}, WindowCase{60'000, 5.0, 1'000'000, false, false},
                      WindowCase{55'000, 5.5, 1'000'000, true, true}, WindowCase{55'001, 5.5, 1'000'000, false, true},
                      // A tenth of a percent has no exact double.
                      WindowCase{1'000, 0.1, 1'000'000, true, true}, WindowCase{1'001, 0.1, 1'000'000, false, true},
                      WindowCase{0, 50.0, 0, true, true}, WindowCase{1, 50.0, 0, false, true},
                      WindowCase{10'000, 50.0, 0, false, false}, WindowCase{2'000'000, 200.0, 1'000'000, true, true},
                      WindowCase{2'000'001, 200.0, 1'000'000, false, true},
                      // A rate below zero asks for the very amount.
                      WindowCase{0, -5.0, 1'000'000, true, true}, WindowCase{1, -5.0, 1'000'000, false, true}));

TEST(BalanceWindowLimitsTest, TheEdgeBelongsToTheWindowToTheLastStoredUnit)
{
    tlm::testing::expectAlways([] {
        auto const target = *rc::gen::inRange(-1'000'000'000LL, 1'000'000'000LL);
        auto const percent = *rc::gen::inRange(0, 301);
        auto const edge = std::abs(target) * percent / 100;
        Percentage const window(percent, 6);

        RC_ASSERT(isWithinWindow(stored(target + edge), window, stored(target), exactly));
        RC_ASSERT(isWithinWindow(stored(target - edge), window, stored(target), exactly));
        RC_ASSERT(!isWithinWindow(stored(target + edge + 1), window, stored(target), exactly));
        RC_ASSERT(!isWithinWindow(stored(target - edge - 1), window, stored(target), exactly));
    });
}

TEST(BalanceWindowLimitsTest, AWiderWindowTakesInAllThatANarrowerOneDoes)
{
    tlm::testing::expectAlways([](long long value, long long target, bool byMajorUnit) {
        auto const narrow = *rc::gen::inRange(0, 1'000'000) / 1000.0;
        auto const wide = narrow + *rc::gen::inRange(0, 1'000'000) / 1000.0;

        RC_ASSERT(!isWithinWindow(stored(value), Percentage(narrow, 3), stored(target), ByMajorUnit{byMajorUnit}) ||
                  isWithinWindow(stored(value), Percentage(wide, 3), stored(target), ByMajorUnit{byMajorUnit}));
    });
}

TEST(BalanceWindowLimitsTest, ReachesBeyond64Bits)
{
    Percentage const twice(200.0, 6);
    Percentage const narrower(199.9, 6);

    EXPECT_TRUE(isWithinWindow(stored(-LLONG_MAX), twice, stored(LLONG_MAX), exactly));
    EXPECT_FALSE(isWithinWindow(stored(LLONG_MIN), twice, stored(LLONG_MAX), exactly));
    EXPECT_FALSE(isWithinWindow(stored(-LLONG_MAX), narrower, stored(LLONG_MAX), exactly));
    EXPECT_TRUE(isDifferenceWithinWindow(stored(LLONG_MIN), Percentage(100.0, 6), stored(LLONG_MIN), exactly));
    EXPECT_FALSE(isDifferenceWithinWindow(stored(LLONG_MIN), Percentage(100.0, 6), stored(LLONG_MAX), exactly));
}

TEST(BalanceWindowLimitsTest, TakesEveryRateADoubleCanHold)
{
    using Limits = std::numeric_limits<double>;
    auto const least = stored(LLONG_MIN);

    EXPECT_TRUE(isDifferenceWithinWindow(least, Percentage(Limits::max(), 6), least, exactly));
    EXPECT_TRUE(isDifferenceWithinWindow(least, Percentage(Limits::infinity(), 6), least, byUnits));
    EXPECT_FALSE(isDifferenceWithinWindow(stored(1), Percentage(Limits::quiet_NaN(), 6), least, exactly));
    EXPECT_FALSE(isDifferenceWithinWindow(stored(1), Percentage(-Limits::infinity(), 6), least, exactly));
}

TEST(BalanceWindowLimitsTest, WholeUnitsFollowTheCurrency)
{
    Percentage const none(0.0, 6);

    EXPECT_TRUE(isDifferenceWithinWindow(stored(99, Currency::JPY), none, stored(0, Currency::JPY), byUnits));
    EXPECT_FALSE(isDifferenceWithinWindow(stored(100, Currency::JPY), none, stored(0, Currency::JPY), byUnits));
}

TEST(BalanceWindowLimitsTest, TheEmptyMoneyCountsAsZero)
{
    Percentage const whole(100.0, 6);

    EXPECT_TRUE(isWithinWindow(Money(), Percentage(0.0, 6), Money(), byUnits));
    EXPECT_TRUE(isWithinWindow(Money(), whole, stored(5), exactly));
    EXPECT_FALSE(isWithinWindow(stored(5), whole, Money(), exactly));
    EXPECT_TRUE(isDifferenceWithinWindow(stored(9'999), whole, Money(), byUnits));
}

TEST(BalanceWindowLimitsTest, DifferentCurrenciesAreRefused)
{
    Percentage const whole(100.0, 6);

    EXPECT_THROW(isWithinWindow(stored(1), whole, stored(1, Currency::JPY), exactly), std::invalid_argument);
    EXPECT_THROW(isDifferenceWithinWindow(stored(0, Currency::JPY), whole, stored(1), byUnits), std::invalid_argument);
}

TEST(ByMajorUnitTest, IsLoggedWithWhatItSays)
{
    QString log;

    QDebug(&log) << exactly << byUnits;

    EXPECT_EQ(log.trimmed(), "ByMajorUnit(false) ByMajorUnit(true)");
}
