#include "BudgetedEntryFixture.h"
#include "support/Typing.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/budgeting/Bill.h>

#include <QCalendarWidget>
#include <QComboBox>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::budgeting::Bill;
using tlm::budgeting::BudgetedMoney;
using tlm::budgeting::EventFrequency;
using tlm::desktop_ui::DataEntryError;
using tlm::testing::BudgetedEntryFixture;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;
using tlm::testing::PlanningRow;
using tlm::testing::typeOver;

namespace {

class BudgetedMoneyEntryWidgetTest : public BudgetedEntryFixture
{
protected:
    void expectEmpty() const
    {
        EXPECT_EQ(row.source(), std::nullopt);
        EXPECT_EQ(row.originalSource(), std::nullopt);
        EXPECT_EQ(row.amount(), Money());
        EXPECT_EQ(row.period(), EventFrequency::None);
        EXPECT_EQ(row.nextOccurOn(), QDate::currentDate());
        EXPECT_FALSE(row.isDirty());
        EXPECT_FALSE(row.isMarkedForRemoval());
        EXPECT_EQ(row.errorMessage(), std::nullopt);
        EXPECT_EQ(row.bankAccount(), std::nullopt);
    }

    Row row{usable, asCode, nullptr};
    PlanningRow const entries{row};
    Bill const rent{Source("Rent"), euros(950), monthly, mayDay};
};
}

TEST_F(BudgetedMoneyEntryWidgetTest, IsDueTodayAndHoldsNothingElseAtFirst)
{
    expectEmpty();
    EXPECT_THAT(itemTexts(entries.currency()), ElementsAre("", "USD", "EUR"));
}

TEST_F(BudgetedMoneyEntryWidgetTest, MakesNoCalendarBeforeItIsOpened)
{
    showIn(row, entries.dueNext());

    EXPECT_TRUE(entries.dueNext().calendarPopup());
    EXPECT_EQ(row.findChild<QCalendarWidget*>(), nullptr);
}

TEST_F(BudgetedMoneyEntryWidgetTest, ShowsADefaultRecordAsANewItem)
{
    row.setBudgetedMoney(BudgetedMoney());

    expectEmpty();
}

TEST_F(BudgetedMoneyEntryWidgetTest, SelectsALoneCurrencyUntilItLoads)
{
    Row single({Currency::EUR}, asCode, nullptr);
    auto const& currency = PlanningRow(single).currency();
    EXPECT_EQ(currency.currentText(), "EUR");

    single.setBudgetedMoney(BudgetedMoney());
    EXPECT_EQ(currency.currentText(), "");
}

TEST_F(BudgetedMoneyEntryWidgetTest, ShowsAStoredItem)
{
    row.setBudgetedMoney(rent);

    EXPECT_EQ(row.source(), Source("Rent"));
    EXPECT_EQ(row.originalSource(), Source("Rent"));
    EXPECT_EQ(row.amount(), euros(950));
    EXPECT_EQ(row.period(), monthly);
    EXPECT_EQ(row.nextOccurOn(), mayDay);
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryWidgetTest, ShowsTheBeginningOfALongSource)
{
    row.setBudgetedMoney(Bill(Source(QString(200, 'x')), euros(1), monthly, mayDay));

    EXPECT_EQ(entries.source().cursorPosition(), 0);
}

TEST_F(BudgetedMoneyEntryWidgetTest, LoadsTheSourceThenTheAmountThenThePeriodThenTheDate)
{
    hear(row);

    auto const loading = eventsOf([&] { row.setBudgetedMoney(rent); });

    EXPECT_THAT(loading, ElementsAre("dirty", "valueChanged", "dirty", "valueChanged", "dirty"));
    auto const log = MessageLog::texts(QtInfoMsg);
    EXPECT_EQ(log.first(), "Budgeted Money Entry Widget is Dirty: \"Rent\"");
    EXPECT_LT(log.indexOf("Adding new money amount validator. \"EUR\""),
              log.indexOf("Selecting period frequency: EventFrequency(Monthly)"));
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryWidgetTest, LoadsAnotherRecordInPlaceOfTheFirst)
{
    row.setBudgetedMoney(rent);
    QTest::keyClick(&entries.source(), 'x');

    row.setBudgetedMoney(BudgetedMoney());

    expectEmpty();
}

TEST_F(BudgetedMoneyEntryWidgetTest, ShowsTodayForAnItemWithoutADate)
{
    row.setBudgetedMoney(rent);

    row.setBudgetedMoney(Bill(Source("Rent"), euros(950), monthly, QDate()));

    EXPECT_EQ(row.nextOccurOn(), QDate::currentDate());
}

TEST_F(BudgetedMoneyEntryWidgetTest, KeepsTheCurrencyWhereThatOfTheItemIsNotUsable)
{
    row.setBudgetedMoney(rent);

    row.setBudgetedMoney(Bill(Source("Rent"), Money(Currency::GBP, 5, 0, 0), monthly, mayDay));

    EXPECT_EQ(row.amount(), euros(5));
}

TEST_F(BudgetedMoneyEntryWidgetTest, LeavesSurroundingBlanksOutOfTheSource)
{
    typeOver(entries.source(), "  Gym \t");
    EXPECT_EQ(row.source(), Source("Gym"));

    typeOver(entries.source(), "   ");
    EXPECT_EQ(row.source(), std::nullopt);
}

TEST_F(BudgetedMoneyEntryWidgetTest, RefusesToReadAnAmountThatIsNone)
{
    row.setBudgetedMoney(rent);

    entries.amount().setText("1-2");

    EXPECT_THROW(row.amount(), DataEntryError);
}

TEST_F(BudgetedMoneyEntryWidgetTest, TakesWhatIsShownForStoredBlanksIncluded)
{
    row.setBudgetedMoney(rent);
    row.setErrorMessage("Try again.");
    typeOver(entries.source(), " Flat ");

    row.markSaved();

    EXPECT_EQ(row.originalSource(), Source(" Flat "));
    EXPECT_EQ(row.source(), Source("Flat"));
    EXPECT_EQ(entries.source().text(), " Flat ");
    EXPECT_EQ(row.errorMessage(), std::nullopt);
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryWidgetTest, TakesAnEmptySourceForStoredToo)
{
    row.markSaved();

    EXPECT_EQ(row.originalSource(), Source());
}

TEST_F(BudgetedMoneyEntryWidgetTest, IsCleanAndNothingElseWhenTheFlagIsCleared)
{
    row.setBudgetedMoney(rent);
    row.setErrorMessage("Try again.");
    typeOver(entries.source(), "Flat");

    row.clearDirty();

    EXPECT_FALSE(row.isDirty());
    EXPECT_EQ(row.originalSource(), Source("Rent"));
    EXPECT_EQ(row.source(), Source("Flat"));
    EXPECT_EQ(row.errorMessage(), "Try again.");
}

TEST_F(BudgetedMoneyEntryWidgetTest, ShowsAnErrorAndIsDirtyWithoutALine)
{
    hear(row);
    row.setBudgetedMoney(rent);

    auto const heard = eventsOf([&] { row.setErrorMessage("Rent is planned already."); });

    EXPECT_THAT(heard, IsEmpty());
    EXPECT_TRUE(row.isDirty());
    EXPECT_EQ(row.errorMessage(), "Rent is planned already.");
    EXPECT_EQ(entries.error(), "Rent is planned already.");
}

TEST_F(BudgetedMoneyEntryWidgetTest, KeepsItsErrorUntilAnotherComesOrTheItemIsSaved)
{
    row.setErrorMessage("First.");
    row.setBudgetedMoney(rent);
    EXPECT_EQ(entries.error(), "First.");

    row.setErrorMessage("Second.");
    EXPECT_EQ(entries.error(), "Second.");

    row.markSaved();
    EXPECT_EQ(entries.error(), "");
}

TEST_F(BudgetedMoneyEntryWidgetTest, KeepsOneIdentifierForLife)
{
    auto const identifier = row.identifier();
    Row const other(usable, asCode, nullptr);

    row.setBudgetedMoney(rent);
    row.markSaved();

    EXPECT_EQ(row.identifier(), identifier);
    EXPECT_NE(other.identifier(), identifier);
}

TEST_F(BudgetedMoneyEntryWidgetTest, TellsThatItTurnsDirtyAndFromWhat)
{
    row.setBudgetedMoney(rent);
    MessageLog::clear();

    row.markDirty();

    EXPECT_TRUE(row.isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Budgeted Money Entry Widget is Dirty: \"Rent\""));
}

TEST_F(BudgetedMoneyEntryWidgetTest, WarnsOfAnAnswerThatItHasNoUseFor)
{
    row.setBudgetedMoney(rent);
    typeOver(entries.source(), "Flat");
    row.clearDirty();
    expectMessage(QtWarningMsg, "^BudgetSource\\(\"Rent\"\\) Budgeted Money Entry Widget does not support processing "
                                "bank account look-up operations\\.$");

    row.onLookedUpBankAccounts(birch, {});

    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedMoneyEntryWidgetTest, WarnsOfAnAnswerForANewItemToo)
{
    expectMessage(QtWarningMsg, "^BudgetSource\\(\"\"\\) Budgeted Money Entry Widget does not support ");

    row.onLookedUpBankAccounts(birch, {});
}
