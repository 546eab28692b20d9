#include "TransactionFixture.h"
#include "support/OwnProcess.h"
#include "support/Typing.h"

#include <QAccessible>

#include <algorithm>

using tlm::testing::inOwnProcess;
using tlm::testing::showActive;
using tlm::testing::tabOrder;
using tlm::testing::TransactionFixture;
using tlm::testing::typeOver;

namespace {

/// How the form of a transaction is laid out, what the Tab key and assistive tools find, and other locales.
class TransactionEntryLookTest : public TransactionFixture
{
protected:
    std::string tabs() const
    {
        showActive(*form);
        auto stops = tabOrder(description());
        stops.erase(std::unique(stops.begin(), stops.end()), stops.end()); // a date has three parts
        return stops.join(' ').toStdString();
    }

    QRect place(QWidget const& part) const { return {part.mapTo(form.get(), QPoint()), part.size()}; }
};

class TransactionEntryLocaleTest : public TransactionFixture, public ::testing::WithParamInterface<char const*>
{};

INSTANTIATE_TEST_SUITE_P(Locales, TransactionEntryLocaleTest, ::testing::Values("en_US", "de_DE", "ar_EG", "sv_SE"),
                         [](auto const& locale) { return locale.param; });
}

TEST_F(TransactionEntryLookTest, TabLeadsThroughANewEntryAndStopsAtOneSide)
{
    show(Transaction());
    form->showSelection(true);

    EXPECT_EQ(tabs(), "descriptionLndt debitRdbttn accountCmbbx codeCmbbx "
                      "amountLndt selectedChckbx reconciledChckbx removeChckbx occurredOnDtdt");
}

TEST_F(TransactionEntryLookTest, TabStopsAtTheChosenSide)
{
    showPurchase();

    EXPECT_EQ(
        tabs(),
        "descriptionLndt debitRdbttn accountCmbbx codeCmbbx amountLndt reconciledChckbx removeChckbx occurredOnDtdt");
}

TEST_F(TransactionEntryLookTest, TheArrowsLeadFromSideToSide)
{
    show(Transaction());
    showActive(*form);
    debit().setFocus();

    QTest::keyClick(&debit(), Qt::Key_Down);
    EXPECT_TRUE(credit().hasFocus());

    QTest::keyClick(&credit(), Qt::Key_Up);
    EXPECT_TRUE(debit().hasFocus());
}

TEST_F(TransactionEntryLookTest, TheFieldsOfARowStandOnOneLine)
{
    showPurchase();
    showActive(*form);
    auto const middle = place(description()).center().y();

    for (auto* const part :
         std::initializer_list<QWidget*>{&date(), &other(), &currency(), &amount(), &credit(), &reconciled()}) {
        EXPECT_NEAR(place(*part).center().y(), middle, 1) << part->objectName().toStdString();
    }
    EXPECT_LT(place(number()).bottom(), place(description()).top());
    EXPECT_LT(place(debit()).bottom(), place(credit()).top());
    EXPECT_GT(place(remove()).top(), place(reconciled()).bottom());
}

TEST_F(TransactionEntryLookTest, TheDescriptionTakesTheSpareWidth)
{
    showPurchase();
    form->resize(form->minimumSize());
    showActive(*form);
    auto const narrow = place(description()).width();
    auto const amountWidth = place(amount()).width();
    auto const accountWidth = place(other()).width();

    form->resize(1300, form->height());
    QCoreApplication::processEvents();

    EXPECT_GT(narrow, 200);
    EXPECT_EQ(place(description()).width(), narrow + 1300 - form->minimumWidth());
    EXPECT_EQ(place(other()).width(), accountWidth);
    EXPECT_EQ(place(amount()).width(), amountWidth);
    EXPECT_EQ(place(reconciled()).right(), form->width() - 1);
}

TEST_F(TransactionEntryLookTest, LongNamesLeaveRoomForTheDescriptionWhereThereIsLittle)
{
    accounts.push_back(account(5000, QString(200, 'W')));
    showPurchase();
    form->resize(form->minimumSize());
    showActive(*form);
    auto const narrow = place(other()).width();
    EXPECT_GE(place(description()).width(), 200);

    form->resize(1000, form->height());
    QCoreApplication::processEvents();

    EXPECT_LT(narrow, 300);
    EXPECT_EQ(place(other()).width(), 300);
    EXPECT_GE(place(description()).width(), 200);
}

TEST_F(TransactionEntryLookTest, ARefusalStandsBelowTheFields)
{
    showPurchase();
    form->showError("The account is closed.");
    showActive(*form);
    auto const& line = part<QWidget>("errorWdgt");

    EXPECT_GT(place(line).top(), place(description()).bottom());
    EXPECT_LT(place(line).bottom(), place(part<QWidget>("separatorLn")).top());
    EXPECT_LE(place(line).right(), place(remove()).left());
}

TEST_F(TransactionEntryLookTest, AssistiveToolsFindANameForEachField)
{
    showPurchase();

    for (auto* const part : std::initializer_list<QWidget*>{&date(), &description(), &debit(), &credit(), &other(),
                                                            &currency(), &amount(), &reconciled(), &remove()}) {
        auto const* const told = QAccessible::queryAccessibleInterface(part);
        ASSERT_NE(told, nullptr);
        EXPECT_NE(told->text(QAccessible::Name), "") << part->objectName().toStdString();
    }
}

TEST_P(TransactionEntryLocaleTest, AnAmountIsShownAndReadAsItIsWrittenThere)
{
    inOwnProcess(QLocale(GetParam()), [this] {
        showPurchase();
        EXPECT_EQ(amount().text(), tlm::foundation::presentationText(Money(Currency::EUR, 40, 50, 0)));
        EXPECT_EQ(form->number(), Number(7));

        typeOver(amount(), tlm::foundation::presentationText(Money(Currency::EUR, 12, 75, 0)));
        QTest::keyClick(&amount(), Qt::Key_Return);

        EXPECT_TRUE(form->isDirty());
        EXPECT_EQ(form->requested().amount(), Money(Currency::EUR, 12, 75, 0));
    });
}
