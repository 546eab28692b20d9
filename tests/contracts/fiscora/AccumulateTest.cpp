#include "support/MessageLog.h"

#include <fiscora/Accumulate.h>
#include <fiscora/Conversions.h>

#include <climits>
#include <gtest/gtest.h>

using namespace fiscora;
using fiscora::math::detail::accumulateRunningTotals;

namespace {

class AccumulateTest : public ::testing::Test
{
protected:
    ~AccumulateTest() override { clearConversions(); }

    static std::map<Currency, Money> totalsOf(std::initializer_list<Money> monies)
    {
        std::map<Currency, Money> totals;
        for (auto const& money : monies) {
            totals.emplace(money.code(), money);
        }
        return totals;
    }
};
}

TEST_F(AccumulateTest, NoTotalsGiveZeroInTheTarget)
{
    EXPECT_EQ(accumulateRunningTotals(Currency::EUR, {}), Money(Currency::EUR));
}

TEST_F(AccumulateTest, OtherCurrenciesAreConvertedByTheirRates)
{
    registerConversion(Currency::USD, Currency::EUR, FloatingPoint(0.5));
    registerConversion(Currency::JPY, Currency::EUR, FloatingPoint(0.01));
    auto const totals =
        totalsOf({Money(Currency::EUR, 1, 0, 0), Money(Currency::USD, 3, 0, 0), Money(Currency::JPY, 500, 0, 0)});

    auto const total = accumulateRunningTotals(Currency::EUR, totals);

    EXPECT_EQ(total, Money(Currency::EUR, 7, 50, 0));
}

TEST_F(AccumulateTest, TheTotalIsRoundedOnceToWholeMinorUnits)
{
    registerConversion(Currency::USD, Currency::EUR, FloatingPoint(1.0));
    auto const totals = totalsOf({Money(Currency::EUR, 1, 0, 33), Money(Currency::USD, 1, 0, 33)});

    auto const total = accumulateRunningTotals(Currency::EUR, totals);

    EXPECT_EQ(total, Money(Currency::EUR, 2, 1, 0));
}

TEST_F(AccumulateTest, AmountsWithoutCurrencyAreLeftOutInSilence)
{
    auto const totals = totalsOf({Money(Currency::EUR, 1, 0, 0), Money(Currency::XXX, 5, 0, 0)});

    EXPECT_EQ(accumulateRunningTotals(Currency::EUR, totals), Money(Currency::EUR, 1, 0, 0));
}

TEST_F(AccumulateTest, AnAmountWithoutRateIsLeftOutAndLoggedWithoutItsFigure)
{
    tlm::testing::expectMessage(QtWarningMsg, "^No exchange rate is known from USD to EUR[^0-9]*$");
    auto const totals = totalsOf({Money(Currency::EUR, 1, 0, 0), Money(Currency::USD, 5, 0, 0)});

    EXPECT_EQ(accumulateRunningTotals(Currency::EUR, totals), Money(Currency::EUR, 1, 0, 0));
}

TEST_F(AccumulateTest, ARateOfTheOtherDirectionDoesNotCount)
{
    tlm::testing::expectMessage(QtWarningMsg, "from USD to EUR");
    registerConversion(Currency::EUR, Currency::USD, FloatingPoint(2.0));

    EXPECT_EQ(accumulateRunningTotals(Currency::EUR, totalsOf({Money(Currency::USD, 4, 0, 0)})), Money(Currency::EUR));
}

TEST_F(AccumulateTest, AZeroNeedsNoRate)
{
    EXPECT_EQ(accumulateRunningTotals(Currency::EUR, totalsOf({Money(Currency::USD)})), Money(Currency::EUR));
}

TEST_F(AccumulateTest, ATotalBeyondTheRangeRaises)
{
    registerConversion(Currency::USD, Currency::EUR, FloatingPoint(1.0));
    auto const totals = totalsOf({Money::fromAmount(Currency::EUR, LLONG_MAX), Money::fromAmount(Currency::USD, 1)});

    EXPECT_THROW(accumulateRunningTotals(Currency::EUR, totals), std::overflow_error);
}
