#include "Plans.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck/gtest.h>
#include <stdexcept>

namespace tlm::adviser {

namespace {

using budgeting::BudgetTotals;
using fiscora::Currency;
using fiscora::Money;

constexpr auto most = std::numeric_limits<long long>::max();
constexpr auto least = std::numeric_limits<long long>::min();

Money stored(long long amount)
{
    return Money::fromAmount(Currency::USD, amount);
}

struct Judged
{
    char const* what;
    Cents plan;
    double percent;
    HealthStatuses status;
};

void PrintTo(Judged const& judged, std::ostream* stream)
{
    *stream << judged.what;
}

class JudgedPlanTest : public ::testing::TestWithParam<Judged>
{};

TEST_P(JudgedPlanTest, HasThePointsThatTheRuleGives)
{
    auto const health = assess(GetParam().plan);

    EXPECT_NEAR(health.percent(), GetParam().percent, 1e-9);
    EXPECT_EQ(health.status(), GetParam().status);
}

constexpr auto healthy = HealthStatuses::Healthy;
constexpr auto cautious = HealthStatuses::Cautious;
constexpr auto unhealthy = HealthStatuses::Unhealthy;

INSTANTIATE_TEST_SUITE_P(
    Points, JudgedPlanTest,
    ::testing::Values(
        Judged{"the example of the handbook", millers, 71.75, healthy},
        Judged{"the example with 200.00 more of bills", {400000, 60000, 192000, 36000, 80000, 1200000}, 66.75, healthy},
        Judged{"nothing planned", {}, 30.0, cautious}, Judged{"wages alone", {400000, 0, 0, 0, 0, 0}, 80.0, healthy},
        Judged{"half spent, a fifth put aside, no debts", {400000, 80000, 200000, 0, 0, 0}, 100.0, healthy},
        Judged{"more put aside than a fifth gives no more", {400000, 160000, 200000, 0, 0, 0}, 100.0, healthy},
        Judged{"all spent, no debts", {400000, 0, 400000, 0, 0, 0}, 30.0, cautious},
        Judged{"one percent too much", {400000, 0, 404000, 0, 0, 0}, 20.0, unhealthy},
        Judged{"three percent too much", {400000, 0, 412000, 0, 0, 0}, 0.0, unhealthy},
        Judged{"bills without wages", {0, 0, 100, 0, 0, 0}, 0.0, unhealthy},
        Judged{"goals without wages", {0, 100, 0, 0, 0, 0}, 0.0, unhealthy},
        Judged{"payments of a tenth", {400000, 0, 0, 40000, 0, 0}, 80.0, healthy},
        Judged{"payments of a quarter", {400000, 0, 0, 100000, 0, 0}, 72.5, healthy},
        Judged{"payments of four tenths", {400000, 0, 0, 160000, 0, 0}, 65.0, healthy},
        Judged{"payments of half", {400000, 0, 0, 200000, 0, 0}, 65.0, healthy},
        Judged{"a year owed", {400000, 0, 0, 0, 0, 4800000}, 75.0, healthy},
        Judged{"three years owed", {400000, 0, 0, 0, 0, 14400000}, 65.0, healthy},
        Judged{"ten years owed", {400000, 0, 0, 0, 0, 48000000}, 65.0, healthy},
        Judged{"goals beyond what is left", {400000, 60000, 0, 0, 360000, 0}, 0.0, unhealthy},
        Judged{"goals that take just what is left", {400000, 60000, 0, 0, 340000, 0}, 60.0, healthy},
        Judged{"just below healthy", {400000, 60000, 0, 0, 340000, 100}, 60.0 - 5.0 / 48000.0, cautious},
        Judged{"just below cautious", {400000, 0, 400000, 0, 0, 100}, 30.0 - 5.0 / 48000.0, unhealthy}));

TEST(AssessTest, TheCurrencyMakesNoDifference)
{
    auto const yen = [](long long amount) { return Money(Currency::JPY, amount, 0, 0); };

    auto const health = assess({yen(400000), yen(60000), yen(172000), yen(36000), yen(80000)}, yen(1200000));

    EXPECT_NEAR(health.percent(), 71.75, 1e-9);
}

TEST(AssessTest, MoneyOfNoCurrencyCountsAsNothing)
{
    auto const health = assess({dollars(400000), Money(), dollars(172000), Money(), Money()}, Money());

    EXPECT_EQ(health, assess(Cents{400000, 0, 172000, 0, 0, 0}));
    EXPECT_EQ(assess(BudgetTotals(), Money()), assess(Cents{}));
    EXPECT_EQ(assess({dollars(400000), Money::fromAmount(Currency::XXX, 999), Money(), Money(), Money()}, Money()),
              assess(Cents{400000, 0, 0, 0, 0, 0}));
}

TEST(AssessTest, TwoCurrenciesAreRefused)
{
    Money const euro(Currency::EUR, 1, 0, 0);

    EXPECT_THROW(assess({dollars(400000), Money(), euro, Money(), Money()}, Money()), std::invalid_argument);
    EXPECT_THROW(assess({dollars(400000), Money(), Money(), Money(), Money()}, euro), std::invalid_argument);
}

TEST(AssessTest, AmountsAtTheEdgeOf64BitsAreJudged)
{
    EXPECT_NEAR(assess({stored(most), Money(), stored(most / 2), Money(), Money()}, Money()).percent(), 80.0, 1e-9);
    EXPECT_EQ(assess({stored(most), stored(most), stored(most), stored(most), stored(most)}, stored(most)).percent(),
              0.0);
    EXPECT_EQ(assess({stored(1), stored(most), stored(most), stored(most), stored(most)}, stored(most)).percent(), 0.0);
    EXPECT_EQ(assess({stored(least), stored(most), stored(most), stored(most), stored(most)}, stored(most)).status(),
              unhealthy);
    EXPECT_EQ(
        assess({stored(most), stored(least), stored(least), stored(least), stored(least)}, stored(least)).status(),
        healthy);
    EXPECT_EQ(assess({stored(least), stored(least), stored(least), stored(least), stored(least)}, stored(least))
                  .information()
                  .isEmpty(),
              false);
}

/// A month of amounts from nothing to some thousand dollars, in stored units.
struct Month
{
    std::array<long long, 5> totals;
    long long owed;

    BudgetHealth health() const
    {
        return assess({stored(totals[0]), stored(totals[1]), stored(totals[2]), stored(totals[3]), stored(totals[4])},
                      stored(owed));
    }
};

Month anyMonth()
{
    auto const amount =
        rc::gen::oneOf(rc::gen::just(0LL), rc::gen::inRange(0LL, 30000LL), rc::gen::inRange(0LL, 90000000LL));
    Month month{};
    for (auto& total : month.totals) {
        total = *amount;
    }
    month.owed = *rc::gen::inRange(0LL, 3000000000LL);
    return month;
}

RC_GTEST_PROP(AssessProperties, MoreBillsDebtsNontracksOrMoneyOwedNeverMakeItHealthier, ())
{
    auto const month = anyMonth();
    auto more = month;
    auto const which = *rc::gen::inRange(2U, 6U);
    auto const increase = *rc::gen::inRange(1LL, 50000000LL);
    (which < 5 ? more.totals[which] : more.owed) += increase;

    RC_ASSERT(more.health().percent() <= month.health().percent() + 1e-9);
    RC_ASSERT(more.health().status() >= month.health().status() ||
              std::abs(more.health().percent() - month.health().percent()) < 1e-9);
}

/// A ten-thousandth of a dollar, the least step there is, moves a share of wages by that much of them. Of a dollar,
/// which wages are measured as at least, that is 10 points a percent, and little more.
RC_GTEST_PROP(AssessProperties, TheLeastStepOfAnyAmountMovesThePercentageLittle, ())
{
    auto const month = anyMonth();
    auto step = month;
    auto const which = *rc::gen::inRange(0U, 6U);
    (which < 5 ? step.totals[which] : step.owed) += 1;
    auto const wages = static_cast<double>(std::max(month.totals[0], 10000LL));
    auto const beyond = std::accumulate(month.totals.begin() + 1, month.totals.end(), 0.0) + 1.0;

    // Where wages move, all shares move with them, in proportion to what they measure.
    auto const shares = which == 0 ? 1.0 + (beyond + static_cast<double>(month.owed)) / wages : 1.0;
    RC_ASSERT(std::abs(step.health().percent() - month.health().percent()) <= 1400.0 * shares / wages + 1e-9);
}

RC_GTEST_PROP(AssessProperties, TheStatusFollowsThePercentageAndTheAdviceIsShort, ())
{
    auto const health = anyMonth().health();

    auto const expected = health.percent() >= 60.0 ? healthy : health.percent() >= 30.0 ? cautious : unhealthy;
    RC_ASSERT(health.status() == expected);
    RC_ASSERT(health.percent() >= 0.0 && health.percent() <= 100.0);
    RC_ASSERT(health.information().size() >= 1 && health.information().size() <= 6);
}

TEST(AssessTest, WagesThatFadeAwayLeadSmoothlyToNone)
{
    auto before = assess(Cents{200, 0, 0, 0, 0, 0}).percent();
    for (long long amount = 20000; amount >= 0; amount -= 10) {
        auto const present = assess({stored(amount), Money(), Money(), Money(), Money()}, Money()).percent();

        ASSERT_LE(std::abs(present - before), 0.2) << amount;
        before = present;
    }
    EXPECT_EQ(before, assess(Cents{}).percent());
}
}
}
