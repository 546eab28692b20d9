#include "MoneyEntryFixture.h"

#include <tlm/foundation/PresentationText.h>

#include <gmock/gmock.h>
#include <support/MessageLog.h>
#include <support/OwnProcess.h>
#include <support/Typing.h>

namespace tlm::desktop_ui {

using ::testing::ElementsAre;
using tlm::testing::inOwnProcess;
using tlm::testing::pasteOver;
using tlm::testing::typeOver;

namespace {

struct LocaleCase
{
    char const* locale;
    QString point;
    QString localDigits; ///< 12.5 as people there write it
    QString grouped;     ///< 1234.5 as people there print it
};

std::ostream& operator<<(std::ostream& out, LocaleCase const& c)
{
    return out << c.locale;
}
}

/// What a person types where the decimal point is another, or the digits are. Each runs in a process of its own.
class MoneyEntryLocaleTest : public MoneyEntryFixture, public ::testing::WithParamInterface<LocaleCase>
{
protected:
    void inItsLocale(std::function<void()> const& body)
    {
        inOwnProcess(QLocale(GetParam().locale), [&] {
            widget.setLayoutDirection(QLocale().textDirection());
            showWith(Currency::EUR, "");
            body();
        });
    }

    void typeAndLeave(QString const& text)
    {
        typeOver(field, text);
        QTest::keyClick(&field, Qt::Key_Tab);
    }
};

INSTANTIATE_TEST_SUITE_P(
    Locales, MoneyEntryLocaleTest,
    ::testing::Values(LocaleCase{"en_US", ".", "12.5", "1,234.5"}, LocaleCase{"de_DE", ",", "12,5", "1.234,5"},
                      LocaleCase{"fr_FR", ",", "12,5", "1\u202F234,5"}, LocaleCase{"de_CH", ".", "12.5", "1’234.5"},
                      LocaleCase{"ar_EG", "٫", "١٢٫٥", "١٬٢٣٤٫٥"}, LocaleCase{"fa_IR", "٫", "۱۲٫۵", "۱٬۲۳۴٫۵"},
                      LocaleCase{"he_IL", ".", "12.5", "1,234.5"}, LocaleCase{"mr_IN", ".", "१२.५", "१,२३४.५"}),
    [](auto const& locale) { return locale.param.locale; });

TEST_P(MoneyEntryLocaleTest, AFullStopBecomesTheDecimalPoint)
{
    inItsLocale([this] {
        typeAndLeave("1.5");

        EXPECT_EQ(field.text(), "1" + GetParam().point + "5");
        EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 1.50 EUR"));
    });
}

TEST_P(MoneyEntryLocaleTest, LocalDigitsAndPointsAreRead)
{
    inItsLocale([this] {
        typeAndLeave(GetParam().localDigits);

        EXPECT_EQ(field.text(), GetParam().localDigits);
        EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged 12.50 EUR"));
    });
}

TEST_P(MoneyEntryLocaleTest, WhatItShowsIsWhatItReads)
{
    inItsLocale([this] {
        for (auto const& money : {Money(Currency::EUR, -1234567, 89, 0), Money(Currency::EUR, 0, 50, 0x8000),
                                  Money(Currency::USD, 0, 1, 23)}) {
            widget.setAmount(money);

            EXPECT_EQ(field.text(), foundation::presentationText(money));
            EXPECT_EQ(widget.amount(), money);
        }
    });
}

TEST_P(MoneyEntryLocaleTest, PastedGroupsOfDigitsAreRefused)
{
    inItsLocale([this] {
        field.setText("7");

        pasteOver(field, GetParam().grouped);

        EXPECT_EQ(field.text(), "7");
    });
}

TEST_P(MoneyEntryLocaleTest, ItsPointStaysWhenTheDefaultLocaleChangesLater)
{
    inItsLocale([this] {
        widget.setAmount(Money(Currency::EUR, 2, 50, 0));
        auto const before = widget.amount();
        QLocale::setDefault(QLocale(GetParam().point == "," ? "en_US" : "de_DE"));

        EXPECT_EQ(widget.amount(), before);
    });
}

class MoneyEntryMixedLocaleTest : public MoneyEntryFixture
{};

TEST_F(MoneyEntryMixedLocaleTest, TheFilterFollowsANewLocaleWhoseAmountsAreNotRead)
{
    inOwnProcess(QLocale("en_US"), [this] {
        showWith(Currency::EUR, "1.5");
        EXPECT_EQ(widget.amount(), Money(Currency::EUR, 1, 50, 0));
        QLocale::setDefault(QLocale("de_DE"));

        typeOver(field, "2.5");

        EXPECT_EQ(field.text(), "2,5");
        EXPECT_EQ(widget.tryAmount(), std::nullopt);
    });
}

TEST_F(MoneyEntryMixedLocaleTest, ThePointIsTakenAtTheFirstAmountAndNotBefore)
{
    inOwnProcess(QLocale("en_US"), [this] {
        MoneyEntryWidget const built(nullptr);
        QLocale::setDefault(QLocale("de_DE"));

        codes.setCurrentCode(Currency::EUR);
        field.setText("2,5");

        EXPECT_EQ(widget.amount(), Money(Currency::EUR, 2, 50, 0));
    });
}

TEST_F(MoneyEntryMixedLocaleTest, AMinusCanBeTypedWhereTheLocaleWritesItWithOneSign)
{
    inOwnProcess(QLocale("sv_SE"), [this] {
        showWith(Currency::EUR, "");

        typeOver(field, "−0,50");
        QTest::keyClick(&field, Qt::Key_Tab);

        EXPECT_THAT(heard, ElementsAre("editingFinished", "moneyChanged -0.50 EUR"));
    });
}
}
