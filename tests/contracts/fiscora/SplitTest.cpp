#include <fiscora/Money.h>
#include <fiscora/MoneyParts.h>

#include <climits>
#include <gmock/gmock.h>

using namespace fiscora;
using namespace ::testing;

namespace {

/// Builds a money as an amount field does.
Money moneyOf(std::string const& text, char decimalPoint = '.')
{
    auto const parts = split(text, decimalPoint);
    return {parts.code(), parts.major(), parts.minorOnly().value_or(0), parts.subMinor()};
}
}

TEST(SplitTest, PartsAreToldApart)
{
    EXPECT_EQ(split("12.3456USD", '.'), MoneyParts(Currency::USD, 12, 34, 56));
    EXPECT_EQ(split("12.5USD", '.'), MoneyParts(Currency::USD, 12, 50, 0));
    EXPECT_EQ(split("-12.05USD", '.'), MoneyParts(Currency::USD, -12, 5, 0));
    EXPECT_EQ(split(".5USD", '.'), MoneyParts(Currency::USD, 0, 50, 0));
    EXPECT_EQ(split("007KWD", '.'), MoneyParts(Currency::KWD, 7, std::nullopt, 0));
    EXPECT_EQ(split("1.23456CLF", '.'), MoneyParts(Currency::CLF, 1, 2345, 60));
}

TEST(SplitTest, WithoutDigitsAfterAPointThereIsNoMinorPart)
{
    EXPECT_EQ(split("12USD", '.').minorOnly(), std::nullopt);
    EXPECT_EQ(split("12.USD", '.').minorOnly(), std::nullopt);
}

TEST(SplitTest, ACurrencyWithoutMinorUnitsHasNoMinorPart)
{
    EXPECT_EQ(split("12.5JPY", '.'), MoneyParts(Currency::JPY, 12, std::nullopt, 50));
}

TEST(SplitTest, AMinusBeforeLessThanOneUnitReachesTheMoney)
{
    auto const parts = split("-0.50USD", '.');

    EXPECT_EQ(parts.major(), 0);
    EXPECT_EQ(parts.minorOnly(), 50);
    EXPECT_EQ(parts.subMinor(), MoneyParts::minusFlag_);
    EXPECT_EQ(moneyOf("-0.50USD"), -Money(Currency::USD, 0, 50, 0));
    EXPECT_EQ(moneyOf("-.0050USD").amount(), -50);
    EXPECT_EQ(moneyOf("-0.07JPY").amount(), -7);
}

TEST(SplitTest, MinusZeroIsZero)
{
    EXPECT_EQ(split("-0.00USD", '.'), MoneyParts(Currency::USD, 0, 0, 0));
    EXPECT_EQ(moneyOf("-0USD"), Money(Currency::USD));
}

TEST(SplitTest, TheBareCodeOfNoCurrencyIsTheEmptyMoney)
{
    EXPECT_EQ(moneyOf("XXX"), Money());
    EXPECT_EQ(moneyOf("XXX", '\0'), Money());
}

TEST(SplitTest, TheGivenPointCounts)
{
    EXPECT_EQ(moneyOf("1,5EUR", ','), Money(Currency::EUR, 1, 50, 0));
    EXPECT_THROW(split("1.5EUR", ','), std::invalid_argument);
    EXPECT_THROW(split("1,5EUR", '.'), std::invalid_argument);
}

TEST(SplitTest, WithAPointOutsideOfAsciiArabicSeparatorAndFullStopCount)
{
    for (auto const point : {'\0', '?', '\xB7'}) {
        EXPECT_EQ(moneyOf("1٫5EUR", point), Money(Currency::EUR, 1, 50, 0));
        EXPECT_EQ(moneyOf("1.5EUR", point), Money(Currency::EUR, 1, 50, 0));
        EXPECT_THROW(split("1,500EUR", point), std::invalid_argument);
    }
}

TEST(SplitTest, DigitsOfEveryScriptCount)
{
    EXPECT_EQ(moneyOf("١٢٫٥٠EGP", '\0'), Money(Currency::EGP, 12, 50, 0));
    EXPECT_EQ(moneyOf("۱۲٫۵۰IRR", '\0'), Money(Currency::IRR, 12, 0, 50));
    EXPECT_EQ(moneyOf("१२.५०INR"), Money(Currency::INR, 12, 50, 0));
    EXPECT_EQ(moneyOf("𞥑𞥒.𞥕𞥐GNF"), Money(Currency::GNF, 12, 0, 50));
}

TEST(SplitTest, MinusSignsAndMarksOfDirectionOfAllLocalesAreRead)
{
    for (auto const* const minus : {"-", "−", "\u200E-", "\u061C-", "\u200F-", "\u200E-\u200E", "\u200E−"}) {
        EXPECT_EQ(moneyOf(std::string(minus) + "12.50EUR"), Money(Currency::EUR, -12, 50, 0)) << minus;
    }
}

TEST(SplitTest, TheEndsOfTheRangeAreRead)
{
    EXPECT_EQ(moneyOf("-922337203685477.5808USD").amount(), LLONG_MIN);
    EXPECT_EQ(moneyOf("922337203685477.5807USD").amount(), LLONG_MAX);
    EXPECT_EQ(split("-9223372036854775808USD", '.').major(), LLONG_MIN);
}

TEST(SplitTest, AmountsBeyondTheRangeRaise)
{
    EXPECT_THROW(moneyOf("-922337203685477.5809USD"), std::overflow_error);
    EXPECT_THROW(moneyOf("922337203685477.5808USD"), std::overflow_error);
    EXPECT_THROW(split("9223372036854775808USD", '.'), std::overflow_error);
    EXPECT_THROW(split(std::string(1000, '9') + "USD", '.'), std::overflow_error);
}

class RefusedTextTest : public TestWithParam<char const*>
{};

TEST_P(RefusedTextTest, IsRefusedWithASentenceWithoutTheAmount)
{
    try {
        split(GetParam(), '.');
        FAIL() << "was read";
    } catch (std::invalid_argument const& refusal) {
        EXPECT_THAT(refusal.what(), MatchesRegex("[A-Z][^0-9]*\\."));
    }
}

INSTANTIATE_TEST_SUITE_P(All, RefusedTextTest,
                         Values("", "U", "US", "USD", "\u200EUSD", "12", "12usd", "12ZZZ", "1-2USD", "12-USD",
                                "--12USD", "- 12USD", "-USD", ".USD", "-.USD", "1.2.3USD", "1,234USD", "1 234USD",
                                " 12USD", "12 USD", "+12USD", "1e5USD", "0x1USD", "abcUSD", "²USD", "1.23456USD",
                                "1.234JPY", "12XXX", "0XXX", "-XXX", "\xFF\xFEUSD"));
