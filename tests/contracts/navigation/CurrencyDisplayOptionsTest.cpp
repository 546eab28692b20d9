#include <tlm/foundation/Error.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <type_traits>

namespace tlm::navigation {

namespace {

using fiscora::Currency;

static_assert(sizeof(CurrencyDisplayOptions) == 4);
static_assert(static_cast<int>(CurrencyDisplayOptions::Code) == 0);
static_assert(static_cast<int>(CurrencyDisplayOptions::SymbolAndCode) == 1);
static_assert(static_cast<int>(CurrencyDisplayOptions::NameAndCode) == 2);

std::set<Currency> const all(fiscora::allCurrencies.begin(), fiscora::allCurrencies.end());

class CurrencyDisplayOptionsTest : public ::testing::TestWithParam<CurrencyDisplayOptions>
{};

TEST_P(CurrencyDisplayOptionsTest, ShowsEachCurrencyByATextOfItsOwn)
{
    std::set<QString> texts;
    for (auto const currency : all) {
        texts.insert(toDisplayable(currency, GetParam()));
    }

    EXPECT_EQ(texts.size(), 179U);
}

TEST_P(CurrencyDisplayOptionsTest, ReadsEachCurrencyBackAmongAll)
{
    for (auto const currency : all) {
        EXPECT_EQ(toCurrencyFromDisplayable(toDisplayable(currency, GetParam()), all, GetParam()), currency)
            << toDisplayable(currency, GetParam()).toStdString();
    }
}

TEST_P(CurrencyDisplayOptionsTest, ReadsEachCurrencyBackAlone)
{
    for (auto const currency : all) {
        EXPECT_EQ(toCurrencyFromDisplayable(toDisplayable(currency, GetParam()), {currency}, GetParam()), currency);
    }
}

TEST_P(CurrencyDisplayOptionsTest, TheEmptyTextIsNoCurrencyWhateverIsUsable)
{
    EXPECT_EQ(toCurrencyFromDisplayable({}, {}, GetParam()), Currency::XXX);
    EXPECT_EQ(toCurrencyFromDisplayable(QStringLiteral(""), all, GetParam()), Currency::XXX);
    EXPECT_EQ(toCurrencyFromDisplayable({}, {Currency::USD}, GetParam()), Currency{999});
}

TEST_P(CurrencyDisplayOptionsTest, NoCurrencyIsTheBlankEntry)
{
    EXPECT_EQ(toDisplayable(Currency{999}, GetParam()), QString());
}

TEST_P(CurrencyDisplayOptionsTest, RefusesACurrencyThatIsNotUsable)
{
    EXPECT_THROW(
        toCurrencyFromDisplayable(toDisplayable(Currency::EUR, GetParam()), {Currency::USD, Currency::JPY}, GetParam()),
        foundation::Error);
    EXPECT_THROW(toCurrencyFromDisplayable(toDisplayable(Currency::EUR, GetParam()), {}, GetParam()),
                 foundation::Error);
}

TEST_P(CurrencyDisplayOptionsTest, RefusesATextThatIsNoCurrency)
{
    for (auto const* const text : {"Monopoly money", " ", "usd", "USD ", "()", "$"}) {
        EXPECT_THROW(toCurrencyFromDisplayable(QString::fromLatin1(text), all, GetParam()), foundation::Error) << text;
    }
}

TEST_P(CurrencyDisplayOptionsTest, RefusesTheTextOfAnotherOption)
{
    for (auto const other :
         {CurrencyDisplayOptions::Code, CurrencyDisplayOptions::SymbolAndCode, CurrencyDisplayOptions::NameAndCode}) {
        if (other != GetParam()) {
            EXPECT_THROW(toCurrencyFromDisplayable(toDisplayable(Currency::USD, other), all, GetParam()),
                         foundation::Error);
        }
    }
}

TEST_P(CurrencyDisplayOptionsTest, ItsNameReadsBack)
{
    EXPECT_FALSE(presentationText(GetParam()).isEmpty());
    EXPECT_EQ(toCurrencyDisplayOptions(presentationText(GetParam())), GetParam());
}

INSTANTIATE_TEST_SUITE_P(EachOption, CurrencyDisplayOptionsTest,
                         ::testing::Values(CurrencyDisplayOptions::Code, CurrencyDisplayOptions::SymbolAndCode,
                                           CurrencyDisplayOptions::NameAndCode));

TEST(ToDisplayableTest, ShowsWhatPeopleKnowTheCurrencyBy)
{
    EXPECT_EQ(toDisplayable(Currency::USD, CurrencyDisplayOptions::Code), QStringLiteral("USD"));
    EXPECT_EQ(toDisplayable(Currency::USD, CurrencyDisplayOptions::SymbolAndCode), QStringLiteral("USD $"));
    EXPECT_EQ(toDisplayable(Currency::USD, CurrencyDisplayOptions::NameAndCode),
              QString::fromUtf8("USD \u2013 US Dollar"));
    EXPECT_EQ(toDisplayable(Currency::EUR, CurrencyDisplayOptions::SymbolAndCode), QString::fromUtf8("EUR \u20AC"));
}

TEST(ToDisplayableTest, ShowsTheCodeAloneWhereThereIsNoSymbol)
{
    ASSERT_FALSE(fiscora::currencySymbol(Currency::CHF).has_value());

    EXPECT_EQ(toDisplayable(Currency::CHF, CurrencyDisplayOptions::SymbolAndCode), QStringLiteral("CHF"));
}

TEST(ToDisplayableTest, RefusesAnOptionThatIsNone)
{
    EXPECT_THROW(toDisplayable(Currency::USD, CurrencyDisplayOptions{3}), std::logic_error);
    EXPECT_THROW(presentationText(CurrencyDisplayOptions{3}), std::logic_error);
}

TEST(ToCurrencyDisplayOptionsTest, RefusesATextThatNamesNoOption)
{
    EXPECT_THROW(toCurrencyDisplayOptions({}), foundation::Error);
    EXPECT_THROW(toCurrencyDisplayOptions(QStringLiteral("code")), foundation::Error);
}
}
}
