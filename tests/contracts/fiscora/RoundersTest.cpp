#include <fiscora/Money.h>
#include <fiscora/Rounders.h>

#include <climits>
#include <gtest/gtest.h>

using namespace fiscora;
using rounders::currency::down;
using rounders::currency::up;

namespace {

struct RoundingCase
{
    long long amount;
    unsigned char kept;
    long long down;
    long long up;
};

class RoundersTest : public ::testing::TestWithParam<RoundingCase>
{};
}

TEST_P(RoundersTest, BothDirectionsKeepTheDigitsAskedFor)
{
    auto const [amount, kept, lower, upper] = GetParam();

    EXPECT_EQ(down(amount, 4, kept), lower);
    EXPECT_EQ(up(amount, 4, kept), upper);
}

INSTANTIATE_TEST_SUITE_P(FourStoredDigits, RoundersTest,
                         ::testing::Values(RoundingCase{12345, 4, 12345, 12345}, RoundingCase{12345, 9, 12345, 12345},
                                           RoundingCase{12345, 2, 12300, 12400}, RoundingCase{12345, 0, 10000, 20000},
                                           RoundingCase{20000, 0, 20000, 20000}, RoundingCase{0, 0, 0, 0},
                                           RoundingCase{1, 0, 0, 10000}, RoundingCase{-1, 0, -10000, 0},
                                           RoundingCase{-12345, 2, -12400, -12300},
                                           RoundingCase{-20000, 0, -20000, -20000}));

struct NearestCase
{
    long long amount;
    unsigned char kept;
    long long rounded;
};

class NearestRounderTest : public ::testing::TestWithParam<NearestCase>
{};

TEST_P(NearestRounderTest, GoesToTheNearestAndFromTheMiddleAwayFromZero)
{
    auto const [amount, kept, rounded] = GetParam();

    EXPECT_EQ(rounders::currency::nearest(amount, 4, kept), rounded);
}

INSTANTIATE_TEST_SUITE_P(FourStoredDigits, NearestRounderTest,
                         ::testing::Values(NearestCase{12349, 2, 12300}, NearestCase{12350, 2, 12400},
                                           NearestCase{-12350, 2, -12400}, NearestCase{-12349, 2, -12300},
                                           NearestCase{-12351, 2, -12400}, NearestCase{0, 2, 0},
                                           NearestCase{12300, 2, 12300}, NearestCase{-12300, 2, -12300},
                                           NearestCase{12345, 4, 12345}, NearestCase{LLONG_MAX, 4, LLONG_MAX},
                                           NearestCase{LLONG_MIN, 4, LLONG_MIN}));

TEST(RoundersAtTheEndsTest, RoundingToTheNearestPastTheRangeRaises)
{
    EXPECT_THROW(rounders::currency::nearest(LLONG_MAX, 4, 1), std::overflow_error);
    EXPECT_THROW(rounders::currency::nearest(LLONG_MIN, 4, 1), std::overflow_error);
}

TEST(RoundersAtTheEndsTest, RoundingPastTheRangeRaises)
{
    EXPECT_THROW(up(LLONG_MAX, 4, 0), std::overflow_error);
    EXPECT_THROW(down(LLONG_MIN, 4, 0), std::overflow_error);
    EXPECT_EQ(down(LLONG_MAX, 4, 0), 9223372036854770000);
    EXPECT_EQ(up(LLONG_MIN, 4, 0), -9223372036854770000);
    EXPECT_THROW(up(1, 255, 0), std::overflow_error);
}

TEST(MoneyRoundTest, ASliderRangeHoldsWhatItWasMadeFor)
{
    Money const balance(Currency::EUR, -3, 20, 0);

    EXPECT_EQ(balance.round(down, 0), Money(Currency::EUR, -4, 0, 0));
    EXPECT_EQ(balance.round(up, 0), Money(Currency::EUR, -3, 0, 0));
}

TEST(MoneyRoundTest, RoundingToTheMinorDigitsDropsWhatLiesBelow)
{
    Money const remaining(Currency::KWD, 7, 125, 99);

    EXPECT_EQ(remaining.round(down, minorUnitDigits(Currency::KWD)), Money(Currency::KWD, 7, 125, 0));
}

TEST(MoneyRoundTest, TheRounderIsToldStoredAndKeptDigits)
{
    auto const tell = [](long long const& amount, unsigned char const& stored, unsigned char kept) {
        return amount * 100 + stored * 10 + kept;
    };

    EXPECT_EQ(Money::fromAmount(Currency::USD, 7).round(tell, 3).amount(), 743);
    EXPECT_EQ(Money::fromAmount(Currency::JPY, 7).round(tell, 0).amount(), 720);
}

TEST(MoneyRoundTest, WhatTheRounderRaisesLeavesTheMoneyAsItWas)
{
    auto const most = Money::fromAmount(Currency::USD, LLONG_MAX);

    EXPECT_THROW(most.round(up, 0), std::overflow_error);
    EXPECT_EQ(most.amount(), LLONG_MAX);
}
