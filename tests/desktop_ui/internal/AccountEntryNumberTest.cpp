#include "AccountEntryFixture.h"
#include "support/LocaleForScope.h"

#include <QIntValidator>
#include <QSignalSpy>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using tlm::testing::itemTexts;
using tlm::testing::pasteOver;
using tlm::testing::typeOver;

/// The numbers of an account and of its parent, as typed.
class AccountEntryNumberTest : public tlm::testing::AccountEntryFixture
{
protected:
    std::unique_ptr<Entry> const form = newForm();
};

TEST_F(AccountEntryNumberTest, ANumberIsReadInTensAndCutToThirtyTwoBits)
{
    for (auto const& [text, number] : {std::pair("", 0U),
                                       {"0", 0U},
                                       {"0017", 17U},
                                       {"4294967295", 4294967295U},
                                       {"4294967301", 5U},
                                       {"18446744073709551616", 0U},
                                       {"0x11", 0U},
                                       {"-5", 0U},
                                       {"rent", 0U}}) {
        AccountEntryNumberTest::number(*form).setText(text);

        EXPECT_EQ(form->number(), number) << text;
    }
}

TEST_F(AccountEntryNumberTest, ANumberThatIsNotWhatWasTypedTellsWhy)
{
    for (auto const* text : {"", "0", "0017", "4294967295"}) {
        number(*form).setText(text);
        EXPECT_EQ(form->numberErrorMessage(), std::nullopt) << text;
    }
    for (auto const* text : {"4294967296", "4294967301", "18446744073709551621", "rent", "-5"}) {
        number(*form).setText(text);
        ASSERT_TRUE(form->numberErrorMessage()) << text;
        EXPECT_EQ(*form->numberErrorMessage(),
                  QString("An account can't have the number %1. Type one of at most nine digits.").arg(text));
    }
}

TEST_F(AccountEntryNumberTest, TheFieldTakesWholeNumbersFromZeroOn)
{
    auto const* const validator = qobject_cast<QIntValidator const*>(number(*form).validator());
    ASSERT_NE(validator, nullptr);
    EXPECT_EQ(validator->bottom(), 0);
    EXPECT_EQ(validator->QObject::parent(), form.get());

    typeOver(number(*form), "-1a7.b ");

    EXPECT_EQ(number(*form).text(), "17");
}

TEST_F(AccountEntryNumberTest, TheFieldTakesPlainDigitsInEveryLocale)
{
    for (auto const* const place : {"de_DE", "en_US", "ar_EG", "hi_IN", "fr_CH"}) {
        tlm::testing::LocaleForScope const locale{QLocale(place)};
        Entry entry(std::nullopt, false, Types::Expense, Money(), {}, {}, Display::Code, nullptr);

        typeOver(number(entry), QStringLiteral(u"1,2.3'4\u00A05\u0667\u0966"));

        EXPECT_EQ(number(entry).text(), "12345") << place;
        EXPECT_EQ(entry.number(), 12345U) << place;
    }
}

TEST_F(AccountEntryNumberTest, ANumberThatIsTooLongMakesTheFormDirtyAsItIsTyped)
{
    typeOver(number(*form), "429496730");
    EXPECT_FALSE(form->isDirty());

    typeOver(number(*form), "4294967301");

    EXPECT_TRUE(form->numberErrorMessage());
    EXPECT_TRUE(form->isDirty());
}

TEST_F(AccountEntryNumberTest, ANumberThatIsTooLongMakesTheFormDirtyAsItIsPasted)
{
    pasteOver(number(*form), "4294967301");

    EXPECT_TRUE(form->numberErrorMessage());
    EXPECT_TRUE(form->isDirty());
}

TEST_F(AccountEntryNumberTest, AllNumbersAreOfferedAsParentsBelowNoneInTheirOrder)
{
    EXPECT_THAT(itemTexts(parents(*form)), ElementsAre("No Parent", "1000", "4000", "5000"));
    EXPECT_EQ(parents(*form).insertPolicy(), QComboBox::InsertAlphabetically);
}

TEST_F(AccountEntryNumberTest, AnAccountNeverOffersItself)
{
    auto const known = ledgerForm(groceries());

    known->addParentNumber(Number(5000));

    EXPECT_THAT(itemTexts(parents(*known)), ElementsAre("No Parent", "1000", "4000"));
}

TEST_F(AccountEntryNumberTest, ANumberThatIsTypedIsNotOfferedToItself)
{
    number(*form).setText("17");

    form->addParentNumber(Number(17));

    EXPECT_THAT(itemTexts(parents(*form)), ElementsAre("No Parent", "1000", "4000", "5000"));
}

TEST_F(AccountEntryNumberTest, ANewNumberIsOfferedOnceBelowTheOthers)
{
    auto const known = ledgerForm(groceries());
    known->addParentNumber(Number(17));
    known->addParentNumber(Number(9000));
    known->addParentNumber(Number(17));
    known->addParentNumber(Number(1000));
    known->addParentNumber(Number());

    EXPECT_THAT(itemTexts(parents(*known)), ElementsAre("No Parent", "1000", "4000", "17", "9000", "0"));
    EXPECT_EQ(parents(*known).currentText(), "4000");
    EXPECT_FALSE(known->isDirty());
}

TEST_F(AccountEntryNumberTest, NoNumberIsNoneToANewAccount)
{
    form->addParentNumber(Number());

    EXPECT_THAT(itemTexts(parents(*form)), ElementsAre("No Parent", "1000", "4000", "5000"));
}

TEST_F(AccountEntryNumberTest, TheParentIsTheNumberThatIsChosen)
{
    EXPECT_EQ(form->parent(), std::nullopt);

    form->addParentNumber(Number(17));
    for (auto const number : {4000U, 17U, 5000U}) {
        parents(*form).setCurrentText(QString::number(number));
        EXPECT_EQ(form->parent(), number);
    }
    parents(*form).setCurrentIndex(0);

    EXPECT_EQ(form->parent(), std::nullopt);
}

TEST_F(AccountEntryNumberTest, EveryPlaceInTheChartCanBeItsOwnOrItsParents)
{
    for (auto const own : chart()) {
        for (auto const parent : chart()) {
            auto const known = ledgerForm(Code(own, "Account", parent));

            // Nothing else keeps an account from being its own parent.
            EXPECT_EQ(known->parent(), own == parent ? std::nullopt : std::optional(parent.integer()));
            EXPECT_EQ(parents(*known).count(), 3);
            EXPECT_EQ(parents(*known).findText(presentationText(own)), -1);
        }
    }
}

TEST_F(AccountEntryNumberTest, AParentThatIsNotOfferedLeavesNone)
{
    auto const known = ledgerForm(Code(Number(5000), "Groceries", Number(77)));

    EXPECT_EQ(known->parent(), std::nullopt);
}

TEST_F(AccountEntryNumberTest, ThePopUpListsTheNumbers)
{
    QSignalSpy const chosen(&parents(*form), &QComboBox::currentIndexChanged);

    QTest::keyClick(&parents(*form), Qt::Key_Down);
    QTest::keyClick(&parents(*form), Qt::Key_End);

    EXPECT_EQ(chosen.count(), 2);
    EXPECT_EQ(form->parent(), 5000U);
    EXPECT_TRUE(form->isDirty());
}
