#include <tlm/conversion/ConversionMap.h>
#include <tlm/foundation/Error.h>

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <type_traits>

namespace tlm::conversion {

namespace {

using fiscora::Currency;
using fiscora::FloatingPoint;
using namespace std::chrono_literals;

constexpr AllowExpiredConversion expiredToo{true};
constexpr AllowExpiredConversion freshOnly{false};
constexpr RateLookedUp lookedUp{true};
constexpr RateLookedUp typed{false};

static_assert(std::is_same_v<ConversionMap::TimePoint::period, std::ratio<1, 10'000'000>>);
static_assert(std::is_same_v<ConversionMap::TimePoint::rep, long long>);
static_assert(std::is_nothrow_move_constructible_v<ConversionMap> && std::is_copy_assignable_v<ConversionMap>);

ConversionMap::TimePoint ago(std::chrono::seconds time)
{
    return std::chrono::time_point_cast<ConversionMap::TimePoint::duration>(std::chrono::system_clock::now() - time);
}

class ConversionMapTest : public ::testing::Test
{
protected:
    ConversionMap rates;
};

TEST_F(ConversionMapTest, ANewMapHasNoRatesNotEvenOfACurrencyWithItself)
{
    EXPECT_FALSE(rates.hasConversion(Currency::USD, Currency::EUR, expiredToo));
    EXPECT_FALSE(rates.hasConversion(Currency::USD, Currency::USD, expiredToo));
    EXPECT_TRUE(rates.rates().empty());
    EXPECT_EQ(rates.lastFetched().time_since_epoch().count(), 0);
}

TEST_F(ConversionMapTest, AStoredRateServesItsOwnDirectionOnly)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), typed);

    EXPECT_TRUE(rates.hasConversion(Currency::USD, Currency::EUR, expiredToo));
    EXPECT_EQ(rates.conversion(Currency::USD, Currency::EUR).underlying(), 0.92);
    EXPECT_FALSE(rates.hasConversion(Currency::EUR, Currency::USD, expiredToo));
}

TEST_F(ConversionMapTest, ACurrencyCanHaveARateWithItself)
{
    rates.updateConversion(Currency::USD, Currency::USD, FloatingPoint(1.0), typed);

    EXPECT_TRUE(rates.hasConversion(Currency::USD, Currency::USD, freshOnly));
    EXPECT_EQ(rates.conversion(Currency::USD, Currency::USD).underlying(), 1.0);
}

TEST_F(ConversionMapTest, ALaterRateReplacesTheOneBefore)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), lookedUp);

    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.95), typed);

    EXPECT_EQ(rates.conversion(Currency::USD, Currency::EUR).underlying(), 0.95);
    EXPECT_FALSE(rates.isLookedUp(Currency::USD, Currency::EUR));
}

TEST_F(ConversionMapTest, AMissingRateIsToldWithBothCurrencies)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), typed);

    try {
        rates.conversion(Currency::EUR, Currency::USD);
        FAIL() << "found a rate that nobody stored";
    } catch (foundation::Error const& refusal) {
        EXPECT_THAT(refusal.what(), ::testing::HasSubstr("EUR to USD"));
    }
}

class RefusedRateTest : public ::testing::TestWithParam<double>
{};

TEST_P(RefusedRateTest, LeavesTheMapAsItWas)
{
    ConversionMap rates;
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), typed);
    auto const before = rates;

    EXPECT_THROW(rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(GetParam()), lookedUp),
                 foundation::Error);
    EXPECT_THROW(rates.updateConversion(Currency::JPY, Currency::EUR, FloatingPoint(GetParam()), typed),
                 foundation::Error);

    EXPECT_EQ(rates, before);
    EXPECT_FALSE(rates.rates().contains(Currency::JPY));
}

INSTANTIATE_TEST_SUITE_P(NotAboveZeroOrNotFinite, RefusedRateTest,
                         ::testing::Values(0.0, -0.0, -1.5, std::numeric_limits<double>::infinity(),
                                           -std::numeric_limits<double>::infinity(),
                                           std::numeric_limits<double>::quiet_NaN()));

TEST_F(ConversionMapTest, TheLeastAndTheGreatestRateAreTaken)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(std::numeric_limits<double>::denorm_min()),
                           typed);
    rates.updateConversion(Currency::EUR, Currency::USD, FloatingPoint(std::numeric_limits<double>::max()), typed);

    EXPECT_TRUE(rates.hasConversion(Currency::USD, Currency::EUR, freshOnly));
    EXPECT_TRUE(rates.hasConversion(Currency::EUR, Currency::USD, freshOnly));
}

TEST_F(ConversionMapTest, LookingARateUpMovesTheTimeOfTheLastFetch)
{
    auto const before = ago(0s);

    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), lookedUp);

    EXPECT_GE(rates.lastFetched(), before);
    EXPECT_LE(rates.lastFetched(), ago(0s));
}

TEST_F(ConversionMapTest, TypingARateLeavesTheTimeOfTheLastFetch)
{
    auto const fetched = ago(3h);
    rates.setLastFetched(fetched);

    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), typed);

    EXPECT_EQ(rates.lastFetched(), fetched);
}

TEST_F(ConversionMapTest, TicksOfTheLastFetchAreTenThousandAMillisecond)
{
    rates.setLastFetched(ConversionMap::TimePoint(1'700'000'000'123ms));

    EXPECT_EQ(rates.lastFetched().time_since_epoch().count() / 10000, 1'700'000'000'123);
}

TEST_F(ConversionMapTest, ALookedUpRateExpiresAfterADay)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), lookedUp);

    rates.setLastFetched(ago(24h - 1min));
    EXPECT_TRUE(rates.hasConversion(Currency::USD, Currency::EUR, freshOnly));

    rates.setLastFetched(ago(24h + 1s));
    EXPECT_FALSE(rates.hasConversion(Currency::USD, Currency::EUR, freshOnly));
    EXPECT_TRUE(rates.hasConversion(Currency::USD, Currency::EUR, expiredToo));
    EXPECT_EQ(rates.conversion(Currency::USD, Currency::EUR).underlying(), 0.92);
}

TEST_F(ConversionMapTest, ARateLookedUpByAWrongClockHasExpired)
{
    using Ticks = ConversionMap::TimePoint::duration;
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), lookedUp);

    for (auto const& fetched :
         {ago(-1h), ago(24h * -365), ConversionMap::TimePoint(Ticks::max()), ConversionMap::TimePoint(Ticks::min())}) {
        rates.setLastFetched(fetched);

        EXPECT_FALSE(rates.hasConversion(Currency::USD, Currency::EUR, freshOnly))
            << fetched.time_since_epoch().count();
    }
}

TEST_F(ConversionMapTest, ATypedRateNeverExpires)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), typed);

    rates.setLastFetched({});

    EXPECT_TRUE(rates.hasConversion(Currency::USD, Currency::EUR, freshOnly));
}

TEST_F(ConversionMapTest, TheRatesCanBeCleared)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), lookedUp);

    rates.rates().clear();

    EXPECT_FALSE(rates.hasConversion(Currency::USD, Currency::EUR, expiredToo));
    EXPECT_FALSE(rates.isLookedUp(Currency::USD, Currency::EUR));
}

TEST_F(ConversionMapTest, AClearedMapEqualsOneThatNeverHadRates)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), lookedUp);
    rates.rates().clear();
    rates.setLastFetched({});

    EXPECT_EQ(rates, ConversionMap());
}

TEST_F(ConversionMapTest, MapsDifferByRateOriginAndTimeOfTheLastFetch)
{
    auto const fetched = ago(1h);
    auto const with = [&](double rate, RateLookedUp const& origin, ConversionMap::TimePoint const& time) {
        ConversionMap made;
        made.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(rate), origin);
        made.setLastFetched(time);
        return made;
    };
    auto const map = with(0.92, typed, fetched);

    EXPECT_EQ(map, with(0.92, typed, fetched));
    EXPECT_NE(map, with(0.93, typed, fetched));
    EXPECT_NE(map, with(0.92, lookedUp, fetched));
    EXPECT_NE(map, with(0.92, typed, fetched + ConversionMap::TimePoint::duration(1)));
    EXPECT_NE(map, ConversionMap());
}

TEST_F(ConversionMapTest, ACopyLivesItsOwnLife)
{
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.92), typed);
    auto copy = rates;

    copy.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.50), typed);

    EXPECT_EQ(rates.conversion(Currency::USD, Currency::EUR).underlying(), 0.92);
}
}
}
