#include "MoneyEntryFixture.h"

#include <QFocusEvent>

#include <gmock/gmock.h>
#include <support/MessageLog.h>
#include <support/Typing.h>

namespace tlm::desktop_ui {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;
using tlm::testing::pasteOver;
using tlm::testing::tabOrder;
using tlm::testing::type;
using tlm::testing::typeOver;

namespace {

struct End
{
    char const* name;
    Qt::Key key;
};

constexpr char const* noMoneyWarning = "^The changed money value does not create a valid money type\\. ";
}

class MoneyEntryTypingTest : public MoneyEntryFixture
{};

/// All ways in which a person says that the amount is complete.
class MoneyEntryEndTest : public MoneyEntryFixture, public ::testing::WithParamInterface<End>
{
protected:
    void end() { QTest::keyClick(&field, GetParam().key); }
};

INSTANTIATE_TEST_SUITE_P(Keys, MoneyEntryEndTest,
                         ::testing::Values(End{"Tab", Qt::Key_Tab}, End{"Return", Qt::Key_Return},
                                           End{"Enter", Qt::Key_Enter}),
                         [](auto const& end) { return end.param.name; });

TEST_P(MoneyEntryEndTest, ATypedAmountIsToldAfterTheEndOfItsEditing)
{
    showWith(Currency::USD, "5.00");

    typeOver(field, "7.25");
    auto const whileTyping = heard;
    end();

    EXPECT_THAT(whileTyping, IsEmpty());
    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 7.25 USD"));
}

TEST_P(MoneyEntryEndTest, AnEmptiedAmountIsToldAsTheEmptyMoney)
{
    showWith(Currency::USD, "5.00");
    MessageLog::clear();

    typeOver(field, "");
    end();

    EXPECT_EQ(field.text(), "");
    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 0.00 XXX"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("The changed money value results in an empty amount."));
}

TEST_P(MoneyEntryEndTest, AnAmountThatEndsInItsPointIsTold)
{
    showWith(Currency::USD, "5.00");

    typeOver(field, "7.");
    end();

    EXPECT_EQ(field.text(), "7.");
    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 7.00 USD"));
}

TEST_P(MoneyEntryEndTest, ALonePointIsToldAsTheEmptyMoney)
{
    showWith(Currency::USD, "5.00");
    expectMessage(QtWarningMsg, noMoneyWarning);

    typeOver(field, ".");
    end();

    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 0.00 XXX"));
}

TEST_P(MoneyEntryEndTest, AnUntouchedEmptyAmountTellsNothing)
{
    showWith(Currency::USD, "");

    end();

    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(MoneyEntryTypingTest, AnEmptiedAmountIsToldOnce)
{
    showWith(Currency::USD, "5.00");
    typeOver(field, "");
    QTest::keyClick(&field, Qt::Key_Tab);
    heard.clear();

    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Tab);

    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(MoneyEntryTypingTest, OpeningAContextMenuDoesNotEndTheEditing)
{
    showWith(Currency::USD, "5.00");
    typeOver(field, "");
    QFocusEvent toMenu(QEvent::FocusOut, Qt::PopupFocusReason);

    QApplication::sendEvent(&field, &toMenu);

    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(MoneyEntryTypingTest, AnEntryThatEndsWhileItHasTheFocusTellsNothing)
{
    auto* const ending = new MoneyEntryWidget(nullptr);
    auto& endingField = testing::child<QLineEdit>(*ending, "amountLndt");
    auto told = 0;
    QObject::connect(ending, &MoneyEntryWidget::editingFinished, &widget, [&told] { ++told; });
    QObject::connect(ending, &MoneyEntryWidget::moneyChanged, &widget, [&told] { ++told; });
    ending->show();
    ending->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(ending));
    endingField.setFocus();
    type(endingField, "5");

    delete ending;

    EXPECT_EQ(told, 0);
}

TEST_F(MoneyEntryTypingTest, ALonePointIsNotAcceptable)
{
    showWith(Currency::USD, "");

    type(field, ".");

    EXPECT_EQ(field.text(), ".");
    EXPECT_FALSE(field.hasAcceptableInput());
}

TEST_F(MoneyEntryTypingTest, ASecondPointIsRefusedWhereverItIsTyped)
{
    showWith(Currency::USD, "");
    type(field, "1.5");

    type(field, ".");
    QTest::keyClick(&field, Qt::Key_Home);
    type(field, ".");

    EXPECT_EQ(field.text(), "1.5");
}

TEST_F(MoneyEntryTypingTest, SignsThatAreNoPartOfAnAmountAreRefused)
{
    showWith(Currency::USD, "");

    type(field, "a1,b2 3$e+");

    EXPECT_EQ(field.text(), "123");
}

TEST_F(MoneyEntryTypingTest, NegativeAmountsCanBeTyped)
{
    showWith(Currency::EUR, "");

    type(field, "-0.50");
    QTest::keyClick(&field, Qt::Key_Tab);

    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged -0.50 EUR"));
}

TEST_F(MoneyEntryTypingTest, AMinusBehindADigitIsNoMoney)
{
    showWith(Currency::EUR, "");
    expectMessage(QtWarningMsg, noMoneyWarning);

    type(field, "1-2");
    QTest::keyClick(&field, Qt::Key_Tab);

    EXPECT_EQ(field.text(), "1-2");
    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 0.00 XXX"));
    EXPECT_EQ(widget.tryAmount(), std::nullopt);
}

TEST_F(MoneyEntryTypingTest, AnAmountBeyondAllMoneyIsToldAsTheEmptyMoney)
{
    showWith(Currency::EUR, "");
    expectMessage(QtWarningMsg, noMoneyWarning);

    type(field, QString(40, '9'));
    QTest::keyClick(&field, Qt::Key_Tab);

    EXPECT_EQ(field.text(), QString(40, '9'));
    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 0.00 XXX"));
}

TEST_F(MoneyEntryTypingTest, TooManyDecimalsAreToldAsTheEmptyMoney)
{
    showWith(Currency::EUR, "");
    expectMessage(QtWarningMsg, noMoneyWarning);

    type(field, "1.23456");
    QTest::keyClick(&field, Qt::Key_Tab);

    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 0.00 XXX"));
}

TEST_F(MoneyEntryTypingTest, AnAmountWithoutACurrencyIsToldAsTheEmptyMoney)
{
    showWith(Currency::XXX, "");
    expectMessage(QtWarningMsg, noMoneyWarning);

    type(field, "5");
    QTest::keyClick(&field, Qt::Key_Tab);

    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 0.00 XXX"));
}

TEST_F(MoneyEntryTypingTest, ACurrencyThatIsNotKnownIsToldAsTheEmptyMoney)
{
    showWith(Currency::USD, "5.00");
    auto const silenced = codes.blockSignals(true);
    codes.addItem("Florins");
    codes.setCurrentIndex(3);
    codes.blockSignals(silenced);
    expectMessage(QtWarningMsg, QString(noMoneyWarning) + "The value, Florins, is not valid");

    typeOver(field, "6");
    QTest::keyClick(&field, Qt::Key_Tab);

    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 0.00 XXX"));
}

TEST_F(MoneyEntryTypingTest, APastedAmountIsToldLikeATypedOne)
{
    showWith(Currency::USD, "5.00");

    pasteOver(field, "-1234.56");
    QTest::keyClick(&field, Qt::Key_Tab);

    EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged -1234.56 USD"));
}

TEST_F(MoneyEntryTypingTest, PastedGroupsOfDigitsLeaveTheFieldAsItWas)
{
    showWith(Currency::USD, "5.00");

    for (auto const* const grouped : {"1,234.56", "1.234,56", "1 234.56", "$5", "5 USD", "\u00A05", "12\n34"}) {
        pasteOver(field, grouped);

        EXPECT_EQ(field.text(), "5.00") << grouped;
    }
}

TEST_F(MoneyEntryTypingTest, TabWalksFromTheCurrencyToTheAmount)
{
    showWith(Currency::USD, "5.00");

    EXPECT_THAT(tabOrder(codes), ElementsAre("codeCmbbx", "amountLndt"));
}

TEST_F(MoneyEntryTypingTest, TabPassesACurrencyThatCannotBeSelected)
{
    showWith(Currency::USD, "5.00");
    widget.disableCurrencySelection();

    EXPECT_THAT(tabOrder(field), ElementsAre("amountLndt"));
}

TEST_F(MoneyEntryTypingTest, TheLabelsKeyLeadsToTheAmount)
{
    showWith(Currency::USD, "5.00");
    codes.setFocus();

    QTest::keyClick(&codes, Qt::Key_U, Qt::AltModifier);

    EXPECT_EQ(QApplication::focusWidget(), &field);
}
}
