#include <tlm/desktop_ui/CurrencyComboBox.h>
#include <tlm/desktop_ui/DataEntryError.h>

#include <QAbstractItemView>
#include <QStyleFactory>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/ComboBoxes.h>

namespace tlm::desktop_ui {

using fiscora::Currency;
using navigation::CurrencyDisplayOptions;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::itemTexts;

namespace {

constexpr auto asCode = CurrencyDisplayOptions::Code;
std::set<Currency> const dollarAndEuro{Currency::EUR, Currency::USD};
}

class CurrencyComboBoxTest : public ::testing::Test
{
protected:
    /// \return what a listener hears, and sees by then: the index, the number of items, the selected text
    std::vector<std::tuple<int, int, QString>> heardWhile(std::function<void()> const& act)
    {
        std::vector<std::tuple<int, int, QString>> heard;
        QObject context;
        QObject::connect(&box, &QComboBox::currentIndexChanged, &context,
                         [&](int index) { heard.emplace_back(index, box.count(), box.currentText()); });
        act();
        return heard;
    }

    CurrencyComboBox box{nullptr};
};

class CurrencyDisplayTest : public CurrencyComboBoxTest, public ::testing::WithParamInterface<CurrencyDisplayOptions>
{};

INSTANTIATE_TEST_SUITE_P(Options, CurrencyDisplayTest,
                         ::testing::Values(CurrencyDisplayOptions::Code, CurrencyDisplayOptions::SymbolAndCode,
                                           CurrencyDisplayOptions::NameAndCode));

TEST_F(CurrencyComboBoxTest, HasNoItemsAtFirst)
{
    EXPECT_EQ(box.count(), 0);
    EXPECT_EQ(box.currentCode(), Currency::XXX);
    EXPECT_THAT(box.currencies(), IsEmpty());
}

TEST_F(CurrencyComboBoxTest, OffersABlankItemAndTheCurrenciesInAscendingOrder)
{
    box.populateUsableCurrencies({Currency::USD, Currency::EUR, Currency::AUD}, asCode);

    EXPECT_THAT(itemTexts(box), ElementsAre("", "AUD", "USD", "EUR"));
    EXPECT_EQ(box.currentIndex(), 0);
    EXPECT_EQ(box.currentCode(), Currency::XXX);
}

TEST_F(CurrencyComboBoxTest, WithoutUsableCurrenciesOffersTheBlankItemAlone)
{
    box.populateUsableCurrencies({}, asCode);

    EXPECT_THAT(itemTexts(box), ElementsAre(""));
    EXPECT_EQ(box.currentCode(), Currency::XXX);
    EXPECT_THAT(box.currencies(), IsEmpty());
}

TEST_F(CurrencyComboBoxTest, SelectsALoneCurrencyAtOnce)
{
    box.populateUsableCurrencies({Currency::JPY}, asCode);

    EXPECT_EQ(box.currentIndex(), 1);
    EXPECT_EQ(box.currentCode(), Currency::JPY);
}

TEST_F(CurrencyComboBoxTest, TellsEachStepOfItsFirstFill)
{
    auto const heard = heardWhile([this] { box.populateUsableCurrencies({Currency::JPY}, asCode); });

    EXPECT_THAT(heard, ElementsAre(std::tuple(0, 1, ""), std::tuple(1, 2, "JPY")));
}

TEST_F(CurrencyComboBoxTest, TellsEachStepOfALaterFill)
{
    box.populateUsableCurrencies({Currency::JPY}, asCode);

    auto const heard = heardWhile([this] { box.populateUsableCurrencies(dollarAndEuro, asCode); });

    EXPECT_THAT(heard, ElementsAre(std::tuple(-1, 0, ""), std::tuple(0, 1, "")));
}

TEST_F(CurrencyComboBoxTest, WhoHearsOfTheClearedListStillSeesTheFormerCurrencies)
{
    // Whether a text is known tells which currencies are usable by then.
    box.populateUsableCurrencies({Currency::JPY}, asCode);
    QObject context;
    std::vector<bool> knowsTheFormer;
    QObject::connect(&box, &QComboBox::currentIndexChanged, &context, [&] {
        auto const silenced = box.blockSignals(true);
        box.addItem("JPY");
        box.setCurrentIndex(box.count() - 1);
        try {
            knowsTheFormer.push_back(box.currentCode() == Currency::JPY);
        } catch (DataEntryError const&) {
            knowsTheFormer.push_back(false);
        }
        box.removeItem(box.count() - 1);
        box.blockSignals(silenced);
    });

    box.populateUsableCurrencies(dollarAndEuro, asCode);

    EXPECT_THAT(knowsTheFormer, ElementsAre(true, false));
}

TEST_P(CurrencyDisplayTest, ReadsBackEveryCurrencyThatItOffers)
{
    std::set<Currency> const all(fiscora::allCurrencies.begin(), fiscora::allCurrencies.end());
    box.populateUsableCurrencies(all, GetParam());

    for (auto const code : all) {
        box.setCurrentCode(code);

        EXPECT_EQ(box.currentCode(), code);
        EXPECT_EQ(box.currentText(), toDisplayable(code, GetParam()));
    }
}

TEST_P(CurrencyDisplayTest, TellsWhatItOffersWithoutTheBlankItem)
{
    box.populateUsableCurrencies(dollarAndEuro, GetParam());

    EXPECT_EQ(box.currencies(), dollarAndEuro);
}

TEST_F(CurrencyComboBoxTest, AFillUnderAnotherOptionShowsOtherTexts)
{
    box.populateUsableCurrencies(dollarAndEuro, asCode);
    box.setCurrentCode(Currency::EUR);

    box.populateUsableCurrencies(dollarAndEuro, CurrencyDisplayOptions::NameAndCode);

    EXPECT_THAT(itemTexts(box), ElementsAre("", "USD \u2013 US Dollar", "EUR \u2013 Euro"));
    EXPECT_EQ(box.currentCode(), Currency::XXX);
}

TEST_F(CurrencyComboBoxTest, AFillWithItsOwnCurrenciesKeepsThem)
{
    box.populateUsableCurrencies(dollarAndEuro, asCode);

    box.populateUsableCurrencies(box.currencies(), asCode);

    EXPECT_EQ(box.currencies(), dollarAndEuro);
}

TEST_F(CurrencyComboBoxTest, NoCurrencySelectsTheBlankItem)
{
    box.populateUsableCurrencies(dollarAndEuro, asCode);
    box.setCurrentCode(Currency::EUR);

    box.setCurrentCode(Currency::XXX);

    EXPECT_EQ(box.currentIndex(), 0);
}

TEST_F(CurrencyComboBoxTest, ACurrencyThatIsNotUsableChangesNothing)
{
    box.populateUsableCurrencies(dollarAndEuro, asCode);
    box.setCurrentCode(Currency::EUR);

    auto const heard = heardWhile([this] { box.setCurrentCode(Currency::JPY); });

    EXPECT_THAT(heard, IsEmpty());
    EXPECT_EQ(box.currentCode(), Currency::EUR);
}

TEST_F(CurrencyComboBoxTest, RefusesATextThatIsNoUsableCurrency)
{
    box.populateUsableCurrencies(dollarAndEuro, asCode);
    box.addItem("Florins %1");
    box.setCurrentIndex(3);
    QString told;

    try {
        box.currentCode();
    } catch (DataEntryError const& error) {
        told = error.message();
    }

    EXPECT_EQ(told, "The value, Florins %1, is not valid for the \"currency\" entry. The country code is not supported "
                    "or known.");
    EXPECT_EQ(box.currentText(), "Florins %1");
}

TEST_F(CurrencyComboBoxTest, BoxesOfTheSameCurrenciesStayApart)
{
    CurrencyComboBox other(nullptr);
    box.populateUsableCurrencies(dollarAndEuro, asCode);
    other.populateUsableCurrencies(dollarAndEuro, asCode);

    box.setCurrentCode(Currency::EUR);
    box.removeItem(1);

    EXPECT_EQ(other.currentCode(), Currency::XXX);
    EXPECT_EQ(other.currencies(), dollarAndEuro);
}

TEST_F(CurrencyComboBoxTest, PicksByKey)
{
    box.populateUsableCurrencies(dollarAndEuro, asCode);
    box.show();

    QTest::keyClick(&box, Qt::Key_E);

    EXPECT_EQ(box.currentCode(), Currency::EUR);
}

TEST_F(CurrencyComboBoxTest, OpensItsListWideEnoughForTheLongestName)
{
    box.populateUsableCurrencies({fiscora::allCurrencies.begin(), fiscora::allCurrencies.end()},
                                 CurrencyDisplayOptions::NameAndCode);
    // Some styles widen every list, this one doesn't.
    auto* const style = QStyleFactory::create("windows");
    style->setParent(&box);
    box.setStyle(style);
    box.setMaximumWidth(80);
    box.show();

    box.showPopup();

    EXPECT_GE(box.view()->viewport()->width(), box.view()->sizeHintForColumn(0));
    box.hidePopup();
}
}
