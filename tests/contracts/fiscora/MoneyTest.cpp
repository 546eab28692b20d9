#include <fiscora/Money.h>
#include <fiscora/MoneyParts.h>

#include <climits>
#include <gmock/gmock.h>
#include <type_traits>

using namespace fiscora;
using namespace ::testing;

static_assert(!std::is_convertible_v<Currency, Money>);
static_assert(!std::is_convertible_v<long long, Money>);
static_assert(std::is_nothrow_copy_assignable_v<Money> && std::is_nothrow_move_constructible_v<Money>);

namespace {

Money euros(long long major, unsigned short minor = 0)
{
    return {Currency::EUR, major, minor, 0};
}

Money const most = Money::fromAmount(Currency::EUR, LLONG_MAX);
Money const least = Money::fromAmount(Currency::EUR, LLONG_MIN);
Money const atom = Money::fromAmount(Currency::EUR, 1);
}

TEST(MoneyTest, TheDefaultIsTheEmptyMoney)
{
    EXPECT_EQ(Money().code(), Currency{999});
    EXPECT_EQ(Money().amount(), 0);
    EXPECT_EQ(Money(), Money(Currency::XXX));
}

TEST(MoneyTest, StoresTwoDigitsBelowTheMinorUnit)
{
    EXPECT_EQ(Money(Currency::JPY, 1, 0, 0).amount(), 100);
    EXPECT_EQ(Money(Currency::EUR, 1, 0, 0).amount(), 10'000);
    EXPECT_EQ(Money(Currency::KWD, 1, 0, 0).amount(), 100'000);
    EXPECT_EQ(Money(Currency::CLF, 1, 0, 0).amount(), 1'000'000);
    EXPECT_EQ(Money(Currency::EUR, 1, 23, 45).amount(), 12'345);
}

TEST(MoneyTest, AHouseholdBalanceFitsThirtyTwoBits)
{
    EXPECT_LT(euros(200'000).amount(), INT_MAX);
    EXPECT_LT(Money(Currency::JPY, 20'000'000, 0, 0).amount(), INT_MAX);
    EXPECT_LT(Money(Currency::KWD, 20'000, 0, 0).amount(), INT_MAX);
}

TEST(MoneyTest, ANegativeMajorMakesTheWholeAmountNegative)
{
    EXPECT_EQ(Money(Currency::EUR, -1, 23, 45).amount(), -12'345);
}

TEST(MoneyTest, TheMinusFlagMakesLessThanOneUnitNegative)
{
    EXPECT_EQ(Money(Currency::EUR, 0, 50, MoneyParts::minusFlag_).amount(), -5'000);
    EXPECT_EQ(Money(Currency::EUR, 0, 0, MoneyParts::minusFlag_ | 7).amount(), -7);
    EXPECT_EQ(Money(Currency::EUR, 0, 0, MoneyParts::minusFlag_), Money(Currency::EUR));
}

TEST(MoneyTest, TheMinusFlagBesideWholeUnitsIsRefused)
{
    EXPECT_THROW(Money(Currency::EUR, 1, 50, MoneyParts::minusFlag_), std::invalid_argument);
    EXPECT_THROW(Money(Currency::EUR, -1, 50, MoneyParts::minusFlag_), std::invalid_argument);
}

TEST(MoneyTest, PartsThatDoNotFitTheCurrencyAreRefused)
{
    EXPECT_THROW(Money(Currency::EUR, 1, 100, 0), std::invalid_argument);
    EXPECT_THROW(Money(Currency::EUR, 1, 0, 100), std::invalid_argument);
    EXPECT_THROW(Money(Currency::JPY, 1, 1, 0), std::invalid_argument);
    EXPECT_THROW(Money(Currency::KWD, 1, 1000, 0), std::invalid_argument);
    EXPECT_THROW(Money(Currency::CLF, 1, 10'000, 0), std::invalid_argument);
    EXPECT_THROW(Money(Currency{1}, 1, 0, 0), std::invalid_argument);
    EXPECT_EQ(Money(Currency::CLF, 1, 9'999, 99).amount(), 1'999'999);
}

TEST(MoneyTest, TheEndsOfTheRangeCanBeBuilt)
{
    EXPECT_EQ(Money(Currency::EUR, 922'337'203'685'477, 58, 7), most);
    EXPECT_EQ(Money(Currency::EUR, -922'337'203'685'477, 58, 8), least);
}

TEST(MoneyTest, BuildingBeyondTheRangeRaises)
{
    EXPECT_THROW(Money(Currency::EUR, 922'337'203'685'477, 58, 8), std::overflow_error);
    EXPECT_THROW(Money(Currency::EUR, -922'337'203'685'477, 58, 9), std::overflow_error);
    EXPECT_THROW(Money(Currency::EUR, LLONG_MAX, 0, 0), std::overflow_error);
    EXPECT_THROW(Money(Currency::JPY, LLONG_MIN, 0, 0), std::overflow_error);
}

TEST(MoneyTest, WholeAndMinorUnitsAreToldApart)
{
    Money const money(Currency::EUR, -12, 34, 56);

    EXPECT_EQ(money.major(), -12);
    EXPECT_EQ(money.minorOnly(), 34);
}

TEST(MoneyTest, LessThanOneUnitHasNoWholeOnes)
{
    auto const money = -euros(0, 50);

    EXPECT_EQ(money.major(), 0);
    EXPECT_EQ(money.minorOnly(), 50);
    EXPECT_LT(money, 0);
}

TEST(MoneyTest, ACurrencyWithoutMinorUnitsHasNone)
{
    EXPECT_EQ(Money(Currency::JPY, 5, 0, 50).minorOnly(), std::nullopt);
    EXPECT_EQ(Money(Currency::KWD, 5, 125, 0).minorOnly(), 125);
}

TEST(MoneyTest, TheEndsOfTheRangeComeApart)
{
    EXPECT_EQ(least.major(), -922'337'203'685'477);
    EXPECT_EQ(least.minorOnly(), 58);
    EXPECT_EQ(most.major(), 922'337'203'685'477);
}

TEST(MoneyTest, SumsAndDifferencesAreExact)
{
    auto money = euros(1, 10);

    money += euros(2, 20);
    EXPECT_EQ(money, euros(3, 30));
    money -= euros(5);
    EXPECT_EQ(money, euros(-1, 70));
    EXPECT_EQ(euros(1) - euros(0, 1), euros(0, 99));
    EXPECT_EQ(-euros(1, 25), euros(-1, 25));
}

TEST(MoneyTest, AMoneyCanBeAddedToItself)
{
    auto money = euros(1, 10);

    money += money;
    EXPECT_EQ(money, euros(2, 20));
    money -= money;
    EXPECT_EQ(money, Money(Currency::EUR));
}

TEST(MoneyTest, SumsBeyondTheRangeRaiseAndLeaveTheMoney)
{
    auto upper = most;
    auto lower = least;

    EXPECT_THROW(upper += atom, std::overflow_error);
    EXPECT_THROW(upper -= -atom, std::overflow_error);
    EXPECT_THROW(lower -= atom, std::overflow_error);
    EXPECT_THROW(lower += -atom, std::overflow_error);
    EXPECT_EQ(upper, most);
    EXPECT_EQ(lower, least);
    EXPECT_THROW(lower - upper, std::overflow_error);
    EXPECT_THROW(-lower, std::overflow_error);
    EXPECT_EQ(-upper, least - -atom);
}

TEST(MoneyTest, DifferentCurrenciesAreNotReckonedTogether)
{
    auto money = euros(1);
    Money const dollar(Currency::USD, 1, 0, 0);

    EXPECT_THROW(money += dollar, std::invalid_argument);
    EXPECT_THROW(money -= dollar, std::invalid_argument);
    EXPECT_THROW(money - dollar, std::invalid_argument);
    EXPECT_THROW(money / dollar, std::invalid_argument);
    EXPECT_THROW(money / Money(), std::invalid_argument);
    EXPECT_EQ(money, euros(1));
}

TEST(MoneyTest, AmountsWithoutCurrencyAreLeftOutOfSums)
{
    auto money = euros(1);

    money += Money();
    money -= Money(Currency::XXX, 5, 0, 0);

    EXPECT_EQ(money, euros(1));
    EXPECT_THROW(Money() - money, std::invalid_argument);
}

TEST(MoneyTest, AmountsWithoutCurrencyAddUpAmongThemselves)
{
    Money const ten(Currency::XXX, 10, 0, 0); // the width of a dial that has no balance yet

    EXPECT_EQ(ten - Money(Currency::XXX, 12, 0, 0), Money(Currency::XXX, -2, 0, 0));
}

TEST(MoneyTest, RatiosTellHowOftenOneGoesIntoTheOther)
{
    EXPECT_DOUBLE_EQ(euros(1) / euros(4), 0.25);
    EXPECT_DOUBLE_EQ(euros(-3) / euros(2), -1.5);
    EXPECT_DOUBLE_EQ(euros(0) / euros(2), 0.0);
    EXPECT_THROW(euros(1) / euros(0), std::domain_error);
    EXPECT_THROW(euros(0) / euros(0), std::domain_error);
}

TEST(MoneyTest, LikeCurrenciesCompareByWorth)
{
    EXPECT_LT(euros(-2), euros(1));
    EXPECT_FALSE(euros(1) < euros(1));
    EXPECT_GT(euros(1, 1), euros(1));
    EXPECT_NE(euros(1, 1), euros(1));
}

TEST(MoneyTest, DifferentCurrenciesDifferAndCanBeKeys)
{
    Money const yen(Currency::JPY, 5, 0, 0);

    EXPECT_NE(Money(Currency::JPY), Money(Currency::EUR));
    EXPECT_LT(yen, Money(Currency::EUR, -9, 0, 0)) << "392 comes before 978, whatever the amounts";
    EXPECT_FALSE(Money(Currency::EUR, -9, 0, 0) < yen);
}

TEST(MoneyTest, AmountsCompareWithPlainIntegers)
{
    EXPECT_TRUE(Money() == 0);
    EXPECT_TRUE(atom != 0);
    EXPECT_TRUE(atom > 0);
    EXPECT_TRUE(atom >= 1);
    EXPECT_TRUE(-atom < 0);
    EXPECT_TRUE(least < INT_MIN);
    EXPECT_FALSE(most < INT_MAX);
}

TEST(MoneyTest, AssigningTakesAmountAndCurrencyOver)
{
    auto first = euros(1);
    Money second(Currency::JPY);

    EXPECT_EQ(&first.assign(Money(Currency::USD, 2, 0, 0)), &first);
    EXPECT_EQ(&second.assign(first), &second);
    EXPECT_EQ(second, Money(Currency::USD, 2, 0, 0));
}

TEST(MoneyTest, TheStoredAmountMakesTheSameMoneyAgain)
{
    for (auto const& money : {euros(-12, 34), most, least, Money()}) {
        EXPECT_EQ(Money::fromAmount(money.code(), money.amount()), money);
    }
}

TEST(MoneyTest, TextsForTheLogAreExact)
{
    EXPECT_EQ(toStdString(euros(12, 5)), "12.05 EUR");
    EXPECT_EQ(toStdString(-euros(0, 50)), "-0.50 EUR");
    EXPECT_EQ(toStdString(atom), "0.0001 EUR");
    EXPECT_EQ(toStdString(Money(Currency::JPY, 1200, 0, 0)), "1200 JPY");
    EXPECT_EQ(toStdString(Money(Currency::JPY, 0, 0, 5)), "0.05 JPY");
    EXPECT_EQ(toStdString(least), "-922337203685477.5808 EUR");
    EXPECT_EQ(toStdString(most), "922337203685477.5807 EUR");
    EXPECT_EQ(toStdString(Money()), "0.00 XXX");
}
