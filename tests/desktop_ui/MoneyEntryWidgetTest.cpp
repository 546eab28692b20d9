#include "MoneyEntryFixture.h"

#include <tlm/desktop_ui/DataEntryError.h>

#include <QLabel>

#include <climits>
#include <gmock/gmock.h>
#include <support/MessageLog.h>

namespace tlm::desktop_ui {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::MessageLog;

class MoneyEntryWidgetTest : public MoneyEntryFixture
{};

TEST_F(MoneyEntryWidgetTest, ShowsTheEmptyMoneyAtFirst)
{
    MoneyEntryWidget const fresh(nullptr);

    EXPECT_EQ(fresh.amount(), Money());
    EXPECT_EQ(fresh.tryAmount(), Money());
    EXPECT_EQ(fresh.amountErrorMessage(), std::nullopt);
    EXPECT_EQ(fresh.textAmount(), "");
    EXPECT_EQ(fresh.code(), Currency::XXX);
    EXPECT_THAT(fresh.currencies(), IsEmpty());
    EXPECT_EQ(child<CurrencyComboBox>(fresh, "codeCmbbx").count(), 1);
    EXPECT_FALSE(fresh.isReadOnly());
}

TEST_F(MoneyEntryWidgetTest, LogsItsFirstMoneyAndItsFirstValidator)
{
    MessageLog::clear();

    MoneyEntryWidget const fresh(nullptr);

    EXPECT_THAT(MessageLog::texts(QtDebugMsg), ElementsAre("Setting money: 0.00 XXX"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Adding new money amount validator. \"\""));
}

TEST_F(MoneyEntryWidgetTest, ReadsTheAmountInTheSelectedCurrency)
{
    codes.setCurrentCode(Currency::EUR);
    field.setText("-1234.5");

    EXPECT_EQ(widget.amount(), Money(Currency::EUR, -1234, 50, 0));
    EXPECT_EQ(widget.tryAmount(), Money(Currency::EUR, -1234, 50, 0));
    EXPECT_EQ(widget.amountErrorMessage(), std::nullopt);
    EXPECT_EQ(widget.textAmount(), "-1234.5");
}

TEST_F(MoneyEntryWidgetTest, MinusFiftyCentsAreNegative)
{
    codes.setCurrentCode(Currency::USD);
    field.setText("-0.50");

    EXPECT_TRUE(widget.amount() < 0);
    EXPECT_EQ(toDecimal(widget.amount()), "-0.50");
}

TEST_F(MoneyEntryWidgetTest, RefusesATextThatIsNoAmount)
{
    codes.setCurrentCode(Currency::USD);
    field.setText("1-2%3");
    auto const expected = QStringLiteral("The value, 1-2%3, is not valid for the \"currency\" entry. The amount or "
                                         "issued code is not valid.");
    QString told;

    try {
        widget.amount();
    } catch (DataEntryError const& error) {
        told = error.message();
    }

    EXPECT_EQ(told, expected);
    EXPECT_EQ(widget.tryAmount(), std::nullopt);
    EXPECT_EQ(widget.amountErrorMessage(), expected);
    EXPECT_EQ(widget.textAmount(), "1-2%3");
}

TEST_F(MoneyEntryWidgetTest, RefusesAnAmountWithoutACurrency)
{
    field.setText("5");

    EXPECT_THROW(widget.amount(), DataEntryError);

    EXPECT_EQ(widget.tryAmount(), std::nullopt);
    EXPECT_EQ(widget.amountErrorMessage(),
              "The value, 5, is not valid for the \"currency\" entry. The amount or issued "
              "code is not valid.");
}

TEST_F(MoneyEntryWidgetTest, RefusesACurrencyThatIsNotKnownInTermsOfTheAmount)
{
    field.setText("5");
    auto const silenced = codes.blockSignals(true);
    codes.addItem("Florins");
    codes.setCurrentIndex(3);
    codes.blockSignals(silenced);

    EXPECT_EQ(widget.amountErrorMessage(),
              "The value, 5, is not valid for the \"currency\" entry. The amount or issued "
              "code is not valid.");
    EXPECT_THROW(widget.code(), DataEntryError);
}

TEST_F(MoneyEntryWidgetTest, RefusesAnEmptyAmountOfACurrency)
{
    codes.setCurrentCode(Currency::USD);

    EXPECT_THROW(widget.amount(), DataEntryError);
    EXPECT_EQ(widget.tryAmount(), std::nullopt);
}

TEST_F(MoneyEntryWidgetTest, RefusesMoreDecimalsThanACurrencyHas)
{
    widget.setUsableCurrency(Currency::JPY, asCode);
    field.setText("1.234");
    auto const yenWithThousandths = widget.tryAmount();
    field.setText("1.23");

    EXPECT_EQ(yenWithThousandths, std::nullopt);
    EXPECT_EQ(widget.amount(), Money(Currency::JPY, 1, 0, 23));
}

TEST_F(MoneyEntryWidgetTest, ShowsAMoneyAndTellsIt)
{
    widget.setAmount(Money(Currency::USD, 12, 50, 0));
    heard.clear();
    MessageLog::clear();

    widget.setAmount(Money(Currency::USD, -3, 0, 0));

    EXPECT_EQ(field.text(), "-3.00");
    EXPECT_EQ(field.cursorPosition(), 0);
    EXPECT_EQ(codes.currentCode(), Currency::USD);
    EXPECT_THAT(heard, ElementsAre("moneyChanged -3.00 USD"));
    EXPECT_EQ(MessageLog::texts(QtDebugMsg).front(), "Setting money: -3.00 USD");
}

TEST_F(MoneyEntryWidgetTest, TellsAMoneyOfAnotherCurrencyTwice)
{
    widget.setAmount(Money(Currency::USD, 12, 50, 0));
    heard.clear();

    widget.setAmount(Money(Currency::EUR, 7, 0, 0));

    EXPECT_THAT(heard, ElementsAre("currentIndexChanged 2", "moneyChanged 7.00 EUR", "moneyChanged 7.00 EUR"));
}

TEST_F(MoneyEntryWidgetTest, AMoneyThatIsNotUsableKeepsTheSelectionButIsTold)
{
    widget.setAmount(Money(Currency::USD, 12, 50, 0));
    heard.clear();

    widget.setAmount(Money(Currency::GBP, 7, 0, 0));

    EXPECT_THAT(heard, ElementsAre("moneyChanged 7.00 GBP"));
    EXPECT_EQ(widget.amount(), Money(Currency::USD, 7, 0, 0));
}

TEST_F(MoneyEntryWidgetTest, ShowsTheLargestAndTheLeastMoney)
{
    for (auto const amount : {LLONG_MIN, LLONG_MAX}) {
        auto const money = Money::fromAmount(Currency::USD, amount);

        widget.setAmount(money);

        EXPECT_EQ(widget.amount(), money);
    }
}

TEST_F(MoneyEntryWidgetTest, ClearShowsTheEmptyMoney)
{
    widget.setAmount(Money(Currency::USD, 12, 50, 0));
    heard.clear();

    widget.clear();

    EXPECT_EQ(field.text(), "");
    EXPECT_EQ(codes.currentIndex(), 0);
    EXPECT_EQ(widget.amount(), Money());
    EXPECT_THAT(heard, ElementsAre("currentIndexChanged 0", "moneyChanged 0.00 XXX", "moneyChanged 0.00 XXX"));
}

TEST_F(MoneyEntryWidgetTest, OffersTheUsableCurrencies)
{
    EXPECT_EQ(widget.currencies(), (std::set<Currency>{Currency::USD, Currency::EUR}));
    EXPECT_EQ(widget.code(), Currency::XXX);
}

TEST_F(MoneyEntryWidgetTest, ALoneUsableCurrencyNeedsNoClick)
{
    widget.setUsableCurrency(Currency::GBP, asCode);
    field.setText("5");

    EXPECT_EQ(widget.currencies(), std::set{Currency::GBP});
    EXPECT_EQ(widget.amount(), Money(Currency::GBP, 5, 0, 0));
}

TEST_F(MoneyEntryWidgetTest, TellsEachStepOfAFill)
{
    field.setText("5");
    heard.clear();

    widget.setUsableCurrency(Currency::GBP, asCode);

    EXPECT_THAT(heard, ElementsAre("currentIndexChanged -1", "moneyChanged 0.00 XXX", "currentIndexChanged 0",
                                   "moneyChanged 0.00 XXX", "currentIndexChanged 1", "moneyChanged 5.00 GBP"));
}

TEST_F(MoneyEntryWidgetTest, HiddenCodesStayInForce)
{
    widget.setAmount(Money(Currency::EUR, 7, 0, 0));
    widget.show();

    widget.hideCodes();
    auto const whileHidden = codes.isVisible();
    auto const amount = widget.amount();
    widget.showCodes();

    EXPECT_FALSE(whileHidden);
    EXPECT_EQ(amount, Money(Currency::EUR, 7, 0, 0));
    EXPECT_TRUE(codes.isVisible());
}

TEST_F(MoneyEntryWidgetTest, ItsLabelCanBeNamedAndHidden)
{
    auto& label = child<QLabel>(widget, "amountLbl");
    widget.show();
    auto const before = label.text();

    widget.setLabel("Final Total:");
    widget.showLabel(false);
    auto const whileHidden = label.isVisible();
    widget.showLabel(true);

    EXPECT_EQ(before, "Amo&unt:");
    EXPECT_EQ(label.text(), "Final Total:");
    EXPECT_FALSE(whileHidden);
    EXPECT_TRUE(label.isVisible());
    EXPECT_EQ(label.buddy(), &field);
}

TEST_F(MoneyEntryWidgetTest, ItsLabelStaysInSightAtTheLeastWidth)
{
    auto& label = child<QLabel>(widget, "amountLbl");

    widget.resize(150, widget.heightForWidth(150));
    widget.show();

    EXPECT_EQ(widget.width(), 150);
    EXPECT_GE(label.width(), label.sizeHint().width());
    EXPECT_FALSE(label.geometry().intersects(codes.geometry()));
    for (auto const* const each :
         {static_cast<QWidget*>(&label), static_cast<QWidget*>(&codes), static_cast<QWidget*>(&field)}) {
        EXPECT_TRUE(widget.rect().contains(each->geometry())) << each->objectName().toStdString();
    }
}

TEST_F(MoneyEntryWidgetTest, SelectsACurrencyByItsIndex)
{
    widget.setCurrentIndex(2);
    auto const last = widget.code();
    widget.setCurrentIndex(-1);

    EXPECT_EQ(last, Currency::EUR);
    EXPECT_EQ(codes.currentIndex(), -1);
    EXPECT_EQ(widget.code(), Currency::XXX);
}

TEST_F(MoneyEntryWidgetTest, RefusesAnIndexBeyondTheLast)
{
    widget.setCurrentIndex(2);
    heard.clear();

    for (auto const index : {3, INT_MAX}) {
        try {
            widget.setCurrentIndex(index);
            ADD_FAILURE() << "took the index " << index;
        } catch (foundation::Error const& error) {
            EXPECT_EQ(error.message(), "The currency code index exceeds the number of available codes.");
        }
    }

    EXPECT_EQ(codes.currentIndex(), 2);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(MoneyEntryWidgetTest, IsNamedByItsForm)
{
    EXPECT_EQ(widget.objectName(), "MoneyEntryWidget");
    EXPECT_EQ(widget.windowTitle(), "Money Entry");
    EXPECT_EQ(codes.toolTip(), "Currency of the displayed amount");
    EXPECT_EQ(field.toolTip(), "Monetary amount");
}
}
