#include "HouseholdFixture.h"

#include <QLocale>

#include <gmock/gmock.h>

using fiscora::Currency;
using ::testing::ElementsAre;

namespace tallymere::engine {

namespace {

TEST(BudgetContentTest, ANewBudgetIsInTheCurrencyOfTheLocalesCountry)
{
    EXPECT_EQ(emptyContent(QLocale(QLocale::German, QLocale::Germany)).settings.preferred, Currency::EUR);
    EXPECT_EQ(emptyContent(QLocale(QLocale::Japanese, QLocale::Japan)).settings.preferred, Currency::JPY);
    EXPECT_EQ(emptyContent(QLocale(QLocale::German, QLocale::Switzerland)).settings.preferred, Currency::CHF);
}

TEST(BudgetContentTest, ALocaleWithoutACountryGetsDollars)
{
    EXPECT_EQ(emptyContent(QLocale::c()).settings.preferred, Currency::USD);
    EXPECT_EQ(emptyContent(QLocale(QLocale::Esperanto)).settings.preferred, Currency::USD);
}

TEST(BudgetContentTest, ANewBudgetPlansNothingInOneCurrencyWithAWholeTableOfRates)
{
    auto const content = emptyContent(QLocale(QLocale::German, QLocale::Germany));

    EXPECT_TRUE(content.items.empty());
    EXPECT_THAT(content.settings.usable, ElementsAre(Currency::EUR));
    EXPECT_TRUE(content.rates.hasConversion(Currency::EUR, Currency::EUR, {}));
}

/// Made of any locale that the system knows, a budget opens.
TEST_F(HouseholdTest, ANewBudgetOfEveryLocaleKeepsTheRules)
{
    for (auto const& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        EXPECT_NO_THROW(Household(emptyContent(locale), store)) << qPrintable(locale.name());
    }
}
}
}
