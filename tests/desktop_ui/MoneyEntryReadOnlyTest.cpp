#include "MoneyEntryFixture.h"

#include <QSignalSpy>

#include <support/Wheel.h>

namespace tlm::desktop_ui {

using tlm::testing::turnWheelOver;

/// What keeps an amount and its currency from being changed.
class MoneyEntryReadOnlyTest : public MoneyEntryFixture
{};

TEST_F(MoneyEntryReadOnlyTest, TheSelectionOfTheCurrencyCanBeDisabled)
{
    widget.disableCurrencySelection();
    auto const whileDisabled = codes.isEnabled();
    widget.enableCurrencySelection();

    EXPECT_FALSE(whileDisabled);
    EXPECT_TRUE(codes.isEnabled());
}

TEST_F(MoneyEntryReadOnlyTest, ReadOnlyKeepsAmountAndCurrencyFromChanging)
{
    showWith(Currency::USD, "5.00");

    widget.setReadOnly(true);
    QTest::keyClicks(&field, "1");

    EXPECT_TRUE(widget.isReadOnly());
    EXPECT_FALSE(codes.isEnabled());
    EXPECT_TRUE(field.isEnabled());
    EXPECT_EQ(field.text(), "5.00");
}

TEST_F(MoneyEntryReadOnlyTest, ReadOnlyAmountsCanBeSelected)
{
    showWith(Currency::USD, "5.00");
    widget.setReadOnly(true);

    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);

    EXPECT_EQ(field.selectedText(), "5.00");
}

TEST_F(MoneyEntryReadOnlyTest, ReadOnlyCurrenciesStayEvenWhereAFormEnabledThem)
{
    showWith(Currency::USD, "5.00");
    widget.setReadOnly(true);
    widget.enableCurrencySelection();
    QSignalSpy changed(&widget, &MoneyEntryWidget::currentIndexChanged);

    QTest::keyClick(&codes, Qt::Key_Down);
    QTest::keyClicks(&codes, "E");
    turnWheelOver(codes);
    QTest::mouseClick(&codes, Qt::LeftButton);
    auto const opened = QApplication::activePopupWidget();
    QTest::mouseDClick(&codes, Qt::LeftButton);

    EXPECT_EQ(opened, nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(codes.currentCode(), Currency::USD);
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(MoneyEntryReadOnlyTest, TheCurrencyChangesByKeyAndWheelUnlessReadOnly)
{
    showWith(Currency::USD, "5.00");

    turnWheelOver(codes);
    auto const byWheel = codes.currentCode();
    QTest::keyClick(&codes, Qt::Key_Up);

    EXPECT_EQ(byWheel, Currency::EUR);
    EXPECT_EQ(codes.currentCode(), Currency::USD);
}

TEST_F(MoneyEntryReadOnlyTest, EndingReadOnlyEnablesTheSelectionEvenWhereItWasDisabled)
{
    widget.disableCurrencySelection();

    widget.setReadOnly(false);

    EXPECT_TRUE(codes.isEnabled());
}
}
