#include "MoneyEntryFixture.h"

#include <gmock/gmock.h>
#include <stdexcept>
#include <support/MessageLog.h>

namespace tlm::desktop_ui {

using details::MoneyAmountValidator;
using ::testing::ElementsAre;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// What is told, in which order, when the currency changes.
class MoneyEntryCurrencyTest : public MoneyEntryFixture
{};

TEST_F(MoneyEntryCurrencyTest, TellsTheMoneyOfAnotherCurrency)
{
    widget.setAmount(Money(Currency::USD, 12, 50, 0));
    heard.clear();

    codes.setCurrentCode(Currency::EUR);

    EXPECT_THAT(heard, ElementsAre("currentIndexChanged 2", "moneyChanged 12.50 EUR"));
}

TEST_F(MoneyEntryCurrencyTest, ABlankCurrencyMeansTheEmptyMoney)
{
    widget.setAmount(Money(Currency::USD, 12, 50, 0));
    heard.clear();
    MessageLog::clear();

    codes.setCurrentIndex(0);

    EXPECT_THAT(heard, ElementsAre("currentIndexChanged 0", "moneyChanged 0.00 XXX"));
    EXPECT_EQ(field.text(), "12.50");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Adding new money amount validator. \"\"",
                            "The changed currency index results in an empty money amount."));
}

TEST_F(MoneyEntryCurrencyTest, ACurrencyWithoutAnAmountMeansTheEmptyMoney)
{
    MessageLog::clear();

    codes.setCurrentCode(Currency::USD);

    EXPECT_THAT(heard, ElementsAre("currentIndexChanged 1", "moneyChanged 0.00 XXX"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Adding new money amount validator. \"USD\"",
                            "The changed currency index results in an empty money amount."));
}

TEST_F(MoneyEntryCurrencyTest, AnAmountThatTheNewCurrencyCannotHoldMeansTheEmptyMoney)
{
    widget.setUsableCurrencies({Currency::USD, Currency::JPY}, asCode);
    codes.setCurrentCode(Currency::USD);
    field.setText("1.2345");
    heard.clear();
    expectMessage(QtWarningMsg, "^The changed currency index does not create a valid money type\\. There are too many");

    codes.setCurrentCode(Currency::JPY);

    EXPECT_THAT(heard, ElementsAre("currentIndexChanged 1", "moneyChanged 0.00 XXX"));
    EXPECT_EQ(field.text(), "1.2345");
}

TEST_F(MoneyEntryCurrencyTest, TheValidatorIsRenewedBetweenTheNewsOfCurrencyAndMoney)
{
    widget.setAmount(Money(Currency::USD, 12, 50, 0));
    auto const* const former = field.validator();
    std::vector<bool> isFormer;
    QObject context;
    auto const look = [&] { isFormer.push_back(field.validator() == former); };
    QObject::connect(&widget, &MoneyEntryWidget::currentIndexChanged, &context, look);
    QObject::connect(&widget, &MoneyEntryWidget::moneyChanged, &context, look);

    codes.setCurrentCode(Currency::EUR);

    EXPECT_THAT(isFormer, ElementsAre(true, false));
}

TEST_F(MoneyEntryCurrencyTest, FormerValidatorsStayItsChildren)
{
    auto const before = widget.findChildren<MoneyAmountValidator*>().size();

    codes.setCurrentCode(Currency::EUR);
    codes.setCurrentCode(Currency::USD);

    EXPECT_EQ(widget.findChildren<MoneyAmountValidator*>().size(), before + 2);
}

TEST_F(MoneyEntryCurrencyTest, AListenerThatThrowsIsToldOfTheEmptyMoney)
{
    widget.setAmount(Money(Currency::USD, 12, 50, 0));
    heard.clear();
    QObject context;
    QObject::connect(&widget, &MoneyEntryWidget::moneyChanged, &context, [](Money const& money) {
        if (money != Money()) {
            throw std::runtime_error("no room");
        }
    });
    expectMessage(QtWarningMsg, "^The changed currency index does not create a valid money type\\. no room$");
    expectMessage(QtWarningMsg, "^The changed money value does not create a valid money type\\. no room$");

    codes.setCurrentCode(Currency::EUR);
    emit field.editingFinished();

    EXPECT_THAT(heard, ElementsAre("currentIndexChanged 2", "moneyChanged 12.50 EUR", "moneyChanged 0.00 XXX",
                                   "editingFinished", "moneyChanged 12.50 EUR", "moneyChanged 0.00 XXX"));
}
}
