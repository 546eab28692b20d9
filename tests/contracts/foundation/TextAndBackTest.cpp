#include "support/LocaleForScope.h"
#include "support/Properties.h"

#include <fiscora/MoneyParts.h>
#include <tlm/foundation/PresentationText.h>

#include <climits>
#include <gtest/gtest.h>
#include <rapidcheck.h>

using namespace fiscora;
using tlm::foundation::presentationText;
using tlm::testing::expectAlways;
using tlm::testing::LocaleForScope;

namespace {

/// Reads an amount's text as an amount field does.
Money readBack(QString const& text, Currency code)
{
    auto const point = QLocale().decimalPoint().at(0).toLatin1();
    auto const parts = split((text + presentationText(code)).toStdString(), point);
    return {parts.code(), parts.major(), parts.minorOnly().value_or(0), parts.subMinor()};
}

rc::Gen<Currency> anyCurrency()
{
    // The last one is no currency, whose only text is empty.
    return rc::gen::map(rc::gen::inRange(std::size_t{0}, allCurrencies.size() - 1),
                        [](std::size_t index) { return allCurrencies[index]; });
}

rc::Gen<long long> anyAmount()
{
    return rc::gen::oneOf(rc::gen::arbitrary<long long>(), rc::gen::inRange(-20'000LL, 20'000LL),
                          rc::gen::inRange(LLONG_MIN, LLONG_MAX), rc::gen::element(LLONG_MIN, LLONG_MAX, 0LL, -1LL));
}

class TextAndBackTest : public ::testing::TestWithParam<char const*>
{
protected:
    LocaleForScope locale{QLocale(GetParam())};
};
}

TEST_P(TextAndBackTest, EveryCurrencyReadsBack)
{
    for (auto const currency : allCurrencies) {
        for (auto const amount : {LLONG_MIN, LLONG_MAX, 0LL, 1LL, -1LL, -5'000LL, 123'456'789LL}) {
            auto const money = Money::fromAmount(currency, currency == Currency::XXX ? 0 : amount);
            EXPECT_EQ(readBack(presentationText(money), currency), money) << toStdString(money);
        }
    }
}

TEST_P(TextAndBackTest, AnyAmountReadsBack)
{
    expectAlways([] {
        auto const money = Money::fromAmount(*anyCurrency(), *anyAmount());
        RC_ASSERT(readBack(presentationText(money), money.code()) == money);
    });
}

TEST_P(TextAndBackTest, TheEmptyMoneyReadsBack)
{
    EXPECT_EQ(readBack(presentationText(Money()), Currency::XXX), Money());
}

INSTANTIATE_TEST_SUITE_P(Locales, TextAndBackTest,
                         ::testing::Values("C", "en_US", "de_DE", "sv_SE", "he_IL", "ar_EG", "fa_IR", "fa_AF", "ckb_IQ",
                                           "mr_IN", "my_MM", "ccp_BD", "ff_Adlm_GN"),
                         [](auto const& tested) { return std::string(tested.param); });

TEST(TextAndBackOfAllLocalesTest, MinusFiftyHundredthsReadBackEverywhere)
{
    Money const money(Currency::USD, 0, 50, MoneyParts::minusFlag_);

    for (auto const& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        LocaleForScope const scope(locale);
        EXPECT_EQ(readBack(presentationText(money), Currency::USD), money) << locale.bcp47Name().toStdString();
    }
}
