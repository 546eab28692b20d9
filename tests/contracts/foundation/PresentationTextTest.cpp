#include "support/LocaleForScope.h"

#include <tlm/foundation/PresentationText.h>

#include <climits>
#include <gtest/gtest.h>

using namespace fiscora;
using namespace tlm::foundation;
using tlm::testing::LocaleForScope;

namespace {

struct TextCase
{
    char const* locale;
    Money money;
    char const* plain;
    char const* withCurrency;
    char const* localeAware;
};

Money const salary(Currency::USD, -1'234'567, 50, 0);
Money const coins(Currency::EUR, 0, 50, 0x8000);
Money const francs(Currency::CHF, 12, 0, 0);
Money const yen(Currency::JPY, 1'200, 0, 0);
Money const fine(Currency::EUR, 1, 23, 45);

class PresentationTextTest : public ::testing::TestWithParam<TextCase>
{};
}

TEST_P(PresentationTextTest, AmountsReadAsTheLocaleWritesThem)
{
    auto const& [name, money, plain, withCurrency, localeAware] = GetParam();
    LocaleForScope const locale{QLocale(name)};

    EXPECT_EQ(presentationText(money), plain);
    EXPECT_EQ(presentationText(money, WithCurrency()), withCurrency);
    EXPECT_EQ(presentationText(money, LocaleAware(), WithCurrency()), localeAware);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, PresentationTextTest,
    ::testing::Values(TextCase{"en_US", salary, "-1234567.50", "-1234567.50 USD", "($1,234,567.50)"},
                      TextCase{"en_US", coins, "-0.50", "-0.50 EUR", "(€0.50)"},
                      TextCase{"en_US", francs, "12.00", "12.00 CHF", "CHF\u00A012.00"},
                      TextCase{"en_US", yen, "1200", "1200 JPY", "¥1,200"},
                      TextCase{"en_US", fine, "1.2345", "1.2345 EUR", "€1.2345"},
                      TextCase{"en_US", Money(Currency::GBP), "0.00", "0.00 GBP", "£0.00"},
                      TextCase{"de_DE", salary, "-1234567,50", "-1234567,50 USD", "-1.234.567,50\u00A0$"},
                      TextCase{"de_DE", coins, "-0,50", "-0,50 EUR", "-0,50\u00A0€"},
                      TextCase{"de_DE", francs, "12,00", "12,00 CHF", "12,00\u00A0CHF"},
                      TextCase{"sv_SE", coins, "−0,50", "−0,50 EUR", "−0,50\u00A0€"},
                      TextCase{"hi_IN", salary, "-1234567.50", "-1234567.50 USD", "$-12,34,567.50"},
                      TextCase{"hi_IN", francs, "12.00", "12.00 CHF", "CHF\u00A012.00"},
                      TextCase{"ar_EG", coins, "\u061C-٠٫٥٠", "\u061C-٠٫٥٠ EUR", "\u061C-٠٫٥٠\u00A0€"},
                      TextCase{"fa_IR", yen, "۱۲۰۰", "۱۲۰۰ JPY", "\u200E¥\u00A0۱٬۲۰۰"},
                      TextCase{"ff_Adlm", coins, "-𞥐.𞥕𞥐", "-𞥐.𞥕𞥐 EUR", "€\u00A0-𞥐.𞥕𞥐"},
                      TextCase{"en_US", Money::fromAmount(Currency::EUR, LLONG_MIN), "-922337203685477.5808",
                               "-922337203685477.5808 EUR", "(€922,337,203,685,477.5808)"},
                      TextCase{"en_US", Money::fromAmount(Currency::EUR, LLONG_MAX), "922337203685477.5807",
                               "922337203685477.5807 EUR", "€922,337,203,685,477.5807"},
                      TextCase{"en_US", Money(), "", "", ""}));

TEST(PresentationTextOfCurrencyTest, IsTheCode)
{
    for (auto const currency : allCurrencies) {
        EXPECT_EQ(presentationText(currency).toStdString(), toStdString(currency));
    }
}

TEST(PresentationTextOfDateTest, ShowsAllDigitsOfTheYear)
{
    QDate const date(2026, 1, 2);

    for (auto const& [name, text] : {std::pair("en_US", "1/2/2026"),
                                     {"de_DE", "02.01.2026"},
                                     {"hu_HU", "2026. 01. 02."},
                                     {"sv_SE", "2026-01-02"},
                                     {"fa_IR", "۲۰۲۶/۱/۲"}}) {
        LocaleForScope const locale{QLocale(name)};
        EXPECT_EQ(presentationText(date), text) << name;
    }
}

TEST(PresentationTextOfDateTest, AnInvalidDateHasNoText)
{
    EXPECT_EQ(presentationText(QDate()), "");
}

TEST(DebugTextTest, CurrenciesAndMoniesAreLoggedWhateverTheLocale)
{
    LocaleForScope const locale{QLocale("ar_EG")};
    QString text;

    QDebug(&text) << Currency::EUR << coins;

    EXPECT_EQ(text.trimmed(), "EUR -0.50 EUR");
}
