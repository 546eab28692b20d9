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

rc::Gen<long long> anyAmount()
{
    return rc::gen::oneOf(rc::gen::arbitrary<long long>(), rc::gen::inRange(-20'000LL, 20'000LL),
                          rc::gen::inRange(LLONG_MIN, LLONG_MAX), rc::gen::element(LLONG_MIN, LLONG_MAX, 0LL, -1LL));
}

/// The only money of no currency that has a text is the empty one, whose text is empty, too.
Money moneyOf(Currency code, long long amount)
{
    return code == Currency::XXX ? Money() : Money::fromAmount(code, amount);
}

/// Fails the property that calls it when a text of \a amount in the default locale reads back as anything else.
void expectReadsBackInEveryCurrency(long long amount)
{
    for (auto const currency : allCurrencies) {
        auto const money = moneyOf(currency, amount);
        if (readBack(presentationText(money), currency) != money) {
            RC_FAIL(toStdString(money) + " reads back as another money in " + QLocale().name().toStdString());
        }
    }
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
            auto const money = moneyOf(currency, amount);
            EXPECT_EQ(readBack(presentationText(money), currency), money) << toStdString(money);
        }
    }
}

TEST_P(TextAndBackTest, AnyAmountReadsBack)
{
    expectAlways([] { expectReadsBackInEveryCurrency(*anyAmount()); });
}

TEST_P(TextAndBackTest, TheEmptyMoneyReadsBack)
{
    EXPECT_EQ(readBack(presentationText(Money()), Currency::XXX), Money());
}

INSTANTIATE_TEST_SUITE_P(Locales, TextAndBackTest,
                         ::testing::Values("C", "en_US", "de_DE", "sv_SE", "he_IL", "ar_EG", "fa_IR", "fa_AF", "ckb_IQ",
                                           "mr_IN", "my_MM", "ccp_BD", "ff_Adlm_GN"),
                         [](auto const& tested) { return std::string(tested.param); });

class TextAndBackOfAllLocalesTest : public ::testing::Test
{
protected:
    QList<QLocale> const locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
};

TEST_F(TextAndBackOfAllLocalesTest, MinusFiftyHundredthsReadBackEverywhere)
{
    Money const money(Currency::USD, 0, 50, MoneyParts::minusFlag_);

    for (auto const& locale : locales) {
        LocaleForScope const scope(locale);
        EXPECT_EQ(readBack(presentationText(money), Currency::USD), money) << locale.bcp47Name().toStdString();
    }
}

TEST_F(TextAndBackOfAllLocalesTest, AnyAmountReadsBackInAnyOfThem)
{
    expectAlways([this] {
        auto const anyLocale = rc::gen::inRange(qsizetype(0), locales.size());
        LocaleForScope const scope(locales.at(*rc::gen::resize(rc::kNominalSize, anyLocale)));
        expectReadsBackInEveryCurrency(*anyAmount());
    });
}
