#include <fiscora/Currency.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <set>
#include <type_traits>

using namespace fiscora;
using namespace ::testing;

static_assert(std::is_same_v<std::underlying_type_t<Currency>, unsigned short>);
static_assert(std::is_same_v<decltype(allCurrencies), std::array<Currency, 179> const>);
static_assert(allCurrencies.back() == Currency{999});

TEST(CurrencyTest, CurrenciesAreListedOnceByTheirCodesWithNoCurrencyLast)
{
    auto const isBefore = [](Currency left, Currency right) { return toStdString(left) < toStdString(right); };

    EXPECT_TRUE(std::is_sorted(allCurrencies.begin(), allCurrencies.end() - 1, isBefore));
    EXPECT_EQ(std::set<Currency>(allCurrencies.begin(), allCurrencies.end()).size(), allCurrencies.size());
}

TEST(CurrencyTest, CodesAreThreeCapitalsAndReadBack)
{
    for (auto const currency : allCurrencies) {
        EXPECT_THAT(toStdString(currency), MatchesRegex("[A-Z][A-Z][A-Z]"));
        EXPECT_EQ(toCurrency(toStdString(currency)), currency);
    }
}

TEST(CurrencyTest, NamesAreUniqueAndHoldNoBrackets)
{
    std::set<std::string> names;

    for (auto const currency : allCurrencies) {
        auto const name = currencyName(currency);
        EXPECT_THAT(name, Not(IsEmpty()));
        EXPECT_EQ(name.find_first_of("()[]"), std::string::npos) << name;
        EXPECT_TRUE(names.insert(name).second) << name;
    }
}

TEST(CurrencyTest, MinorDigitsAreThoseInEverydayUse)
{
    EXPECT_EQ(minorUnitDigits(Currency::JPY), 0);
    EXPECT_EQ(minorUnitDigits(Currency::USD), 2);
    EXPECT_EQ(minorUnitDigits(Currency::KWD), 3);
    EXPECT_EQ(minorUnitDigits(Currency::CLF), 4);
}

TEST(CurrencyTest, SymbolsAreThoseThatPeopleWriteAtHome)
{
    EXPECT_EQ(currencySymbol(Currency::USD), "$");
    EXPECT_EQ(currencySymbol(Currency::CAD), "$");
    EXPECT_EQ(currencySymbol(Currency::EUR), "€");
    EXPECT_EQ(currencySymbol(Currency::CHF), std::nullopt);
    EXPECT_EQ(currencySymbol(Currency::XXX), std::nullopt);
}

TEST(CurrencyTest, ValuesAreTheNumbersOfTheStandard)
{
    EXPECT_EQ(static_cast<int>(Currency::ALL), 8);
    EXPECT_EQ(static_cast<int>(Currency::USD), 840);
    EXPECT_EQ(static_cast<int>(Currency::EUR), 978);
}

TEST(CurrencyTest, TextsThatAreNoCodeAreRefused)
{
    for (auto const* const text : {"", "E", "EU", "eur", "EURO", "ZZZ", "978", " EUR"}) {
        EXPECT_THROW(toCurrency(text), std::invalid_argument) << text;
    }
}

TEST(CurrencyTest, NumbersThatAreNoCurrencyAreRefused)
{
    for (auto const number : {0, 1, 998, 1000, 65535}) {
        auto const unknown = static_cast<Currency>(number);
        EXPECT_THROW(minorUnitDigits(unknown), std::invalid_argument) << number;
        EXPECT_THROW(currencyName(unknown), std::invalid_argument) << number;
        EXPECT_THROW(currencySymbol(unknown), std::invalid_argument) << number;
        EXPECT_THROW(toStdString(unknown), std::invalid_argument) << number;
    }
}
