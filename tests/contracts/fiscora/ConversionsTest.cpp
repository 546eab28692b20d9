#include <fiscora/Conversions.h>

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace fiscora;

namespace {

class ConversionsTest : public ::testing::Test
{
protected:
    ~ConversionsTest() override { clearConversions(); }
};
}

TEST_F(ConversionsTest, AMoneyOfTheTargetComesBackWithoutAnyRate)
{
    EXPECT_EQ(convert(Money::fromAmount(Currency::EUR, LLONG_MIN), Currency::EUR),
              Money::fromAmount(Currency::EUR, LLONG_MIN));
}

TEST_F(ConversionsTest, WithoutARateThereIsNoResult)
{
    EXPECT_EQ(convert(Money(Currency::EUR, 1, 0, 0), Currency::USD), std::nullopt);
}

TEST_F(ConversionsTest, ARateHoldsForItsDirectionOnly)
{
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(1.25));

    EXPECT_EQ(convert(Money(Currency::EUR, 4, 0, 0), Currency::USD), Money(Currency::USD, 5, 0, 0));
    EXPECT_EQ(convert(Money(Currency::USD, 5, 0, 0), Currency::EUR), std::nullopt);
}

TEST_F(ConversionsTest, ALaterRateReplacesAnEarlierOne)
{
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(1.25));
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(2.0));

    EXPECT_EQ(convert(Money(Currency::EUR, 4, 0, 0), Currency::USD), Money(Currency::USD, 8, 0, 0));
}

TEST_F(ConversionsTest, ClearingForgetsAllRates)
{
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(1.25));

    clearConversions();

    EXPECT_EQ(convert(Money(Currency::EUR, 4, 0, 0), Currency::USD), std::nullopt);
}

TEST_F(ConversionsTest, CurrenciesOfDifferentMinorDigitsMeet)
{
    registerConversion(Currency::EUR, Currency::JPY, FloatingPoint(160.5));
    registerConversion(Currency::JPY, Currency::KWD, FloatingPoint(0.002));

    EXPECT_EQ(convert(Money(Currency::EUR, 2, 0, 0), Currency::JPY), Money(Currency::JPY, 321, 0, 0));
    EXPECT_EQ(convert(Money(Currency::JPY, 1500, 0, 0), Currency::KWD), Money(Currency::KWD, 3, 0, 0));
}

TEST_F(ConversionsTest, ARateMeansTheDecimalNumberThatWasWritten)
{
    // As doubles, 1.0000500000000001 * 10000 and the like fall on the wrong side of a half.
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(1.005));

    EXPECT_EQ(convert(Money::fromAmount(Currency::EUR, 100), Currency::USD), Money::fromAmount(Currency::USD, 101));
    EXPECT_EQ(convert(Money::fromAmount(Currency::EUR, 99), Currency::USD), Money::fromAmount(Currency::USD, 99));
    EXPECT_EQ(convert(Money::fromAmount(Currency::EUR, -100), Currency::USD), Money::fromAmount(Currency::USD, -101));
}

TEST_F(ConversionsTest, MinorUnitsAreRoundedOnce)
{
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(1.00495));
    registerConversion(Currency::EUR, Currency::JPY, FloatingPoint(160.5));

    EXPECT_EQ(convertToMinorUnits(Money(Currency::EUR, 1, 0, 0), Currency::USD), Money(Currency::USD, 1, 0, 0));
    EXPECT_EQ(convertToMinorUnits(-Money(Currency::EUR, 1, 0, 0), Currency::USD), -Money(Currency::USD, 1, 0, 0));
    EXPECT_EQ(convertToMinorUnits(Money(Currency::EUR, 1, 0, 0), Currency::JPY), Money(Currency::JPY, 161, 0, 0));
    EXPECT_EQ(convertToMinorUnits(Money(Currency::EUR, 1, 0, 50), Currency::EUR), Money(Currency::EUR, 1, 1, 0));
    EXPECT_EQ(convertToMinorUnits(Money(Currency::USD, 1, 0, 0), Currency::EUR), std::nullopt);
}

TEST_F(ConversionsTest, LargeAmountsLoseNothing)
{
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(1.0));

    for (auto const amount : {LLONG_MAX, LLONG_MIN, LLONG_MAX - 1}) {
        EXPECT_EQ(convert(Money::fromAmount(Currency::EUR, amount), Currency::USD),
                  Money::fromAmount(Currency::USD, amount));
    }
}

TEST_F(ConversionsTest, ResultsBeyondTheRangeRaise)
{
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(1.1));
    registerConversion(Currency::EUR, Currency::CLF, FloatingPoint(std::numeric_limits<double>::max()));

    EXPECT_THROW(convert(Money::fromAmount(Currency::EUR, LLONG_MAX), Currency::USD), std::overflow_error);
    EXPECT_THROW(convert(Money::fromAmount(Currency::EUR, LLONG_MIN), Currency::USD), std::overflow_error);
    EXPECT_THROW(convert(Money::fromAmount(Currency::EUR, 1), Currency::CLF), std::overflow_error);
    EXPECT_EQ(convert(Money(Currency::EUR), Currency::CLF), Money(Currency::CLF));
}

TEST_F(ConversionsTest, TheLeastRateGivesZero)
{
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(std::numeric_limits<double>::denorm_min()));

    EXPECT_EQ(convert(Money::fromAmount(Currency::EUR, LLONG_MAX), Currency::USD), Money(Currency::USD));
}

TEST_F(ConversionsTest, RatesThatAreNoneAreRefused)
{
    for (auto const rate : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_THROW(registerConversion(Currency::EUR, Currency::USD, FloatingPoint(rate)), std::invalid_argument);
    }
    EXPECT_THROW(registerConversion(Currency::EUR, Currency::EUR, FloatingPoint(1.0)), std::invalid_argument);
    EXPECT_THROW(registerConversion(Currency::EUR, Currency::XXX, FloatingPoint(1.0)), std::invalid_argument);
    EXPECT_THROW(registerConversion(Currency::XXX, Currency::EUR, FloatingPoint(1.0)), std::invalid_argument);
    EXPECT_EQ(convert(Money(Currency::EUR, 1, 0, 0), Currency::USD), std::nullopt);
}
