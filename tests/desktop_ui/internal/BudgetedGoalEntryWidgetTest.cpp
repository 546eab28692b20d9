#include "BudgetedGoalEntryFixture.h"
#include "support/Typing.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/budgeting/Debt.h>

#include <gmock/gmock.h>
#include <typeinfo>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using tlm::budgeting::Debt;
using tlm::desktop_ui::DataEntryError;
using tlm::testing::BudgetedGoalEntryFixture;
using tlm::testing::child;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;
using tlm::testing::typeOver;

namespace {

class BudgetedGoalEntryWidgetTest : public BudgetedGoalEntryFixture
{};
}

TEST_F(BudgetedGoalEntryWidgetTest, NamesTheAmountPerPeriodWhatIsSetAside)
{
    EXPECT_EQ(child<QLabel>(entries.perPeriod(), "amountLbl").text(), "Setting Aside:");
    EXPECT_EQ(entries.perPeriod().toolTip(), "Amount per period to expect");
}

TEST_F(BudgetedGoalEntryWidgetTest, AddsTheTotalTheBankAccountAndTheShareOfTheWagesInThisOrder)
{
    auto const added = extras(row);

    ASSERT_EQ(added.size(), 3);
    EXPECT_EQ(added[0].first, "Final Total:");
    EXPECT_EQ(added[0].second->toolTip(), "Final total amount of the goal");
    EXPECT_EQ(child<QLabel>(*added[1].second, "descriptionLbl").text(), "Store Under");
    EXPECT_FALSE(child<QLabel>(*added[1].second, "descriptionLbl").isHidden());
    EXPECT_EQ(added[1].second->toolTip(), "Store the goal money under this bank account");
    EXPECT_EQ(added[2].first, "Monthly Wages:");
    EXPECT_EQ(added[2].second->toolTip(), "Monthly goal amount as a percentage of total monthly wages");
}

TEST_F(BudgetedGoalEntryWidgetTest, OffersTheCurrenciesForTheTotalButLetsNobodyPickOne)
{
    auto const& currency = child<QComboBox>(*extras(row).at(0).second, "codeCmbbx");

    EXPECT_THAT(itemTexts(currency), ElementsAre("", "USD", "EUR"));
    EXPECT_FALSE(currency.isEnabled());
    EXPECT_TRUE(entries.currency().isEnabled());
}

TEST_F(BudgetedGoalEntryWidgetTest, ShowsTheShareInPercentFromNothingToAll)
{
    EXPECT_EQ(percentage.text(), "0.00%");
    EXPECT_EQ(percentage.minimum(), 0.0);
    EXPECT_EQ(percentage.maximum(), 100.0);
    EXPECT_EQ(percentage.decimals(), 2);
}

TEST_F(BudgetedGoalEntryWidgetTest, OffersTheBanksAndLeavesTheTypesOfAssetsToTheAccount)
{
    EXPECT_THAT(itemTexts(entries.bank()), ElementsAre("", "Aspen Bank", "Birch Bank"));
    EXPECT_THAT(itemTexts(entries.account()), ElementsAre(""));
    EXPECT_FALSE(entries.account().isHidden());
    EXPECT_THAT(itemTexts(entries.accountType()), ElementsAre("", "Checking", "Savings", "Goal"));
    EXPECT_FALSE(entries.accountType().isEnabled());
    EXPECT_TRUE(entries.bank().isEnabled());
}

TEST_F(BudgetedGoalEntryWidgetTest, ShowsANewGoal)
{
    row.setBudgetedMoney(Goal());

    EXPECT_EQ(row.originalSource(), std::nullopt);
    EXPECT_EQ(row.nextOccurOn(), QDate::currentDate());
    EXPECT_EQ(row.finalTotal(), Money());
    EXPECT_EQ(row.bankAccount(), std::nullopt);
    EXPECT_FALSE(row.isDirty());
}

TEST_F(BudgetedGoalEntryWidgetTest, ShowsAStoredGoalWhoseTotalCanBeTyped)
{
    row.setBudgetedMoney(goal("Holiday"));

    EXPECT_EQ(row.source(), Source("Holiday"));
    EXPECT_EQ(row.amount(), euros(100));
    EXPECT_EQ(row.finalTotal(), euros(1500));
    EXPECT_FALSE(row.isDirty());
    EXPECT_FALSE(entries.finalTotal().isReadOnly());
    EXPECT_TRUE(entries.bank().isEnabled());
}

TEST_F(BudgetedGoalEntryWidgetTest, RefusesAnotherKindOfItem)
{
    EXPECT_THROW(row.setBudgetedMoney(Debt()), std::bad_cast);
}

TEST_F(BudgetedGoalEntryWidgetTest, RefusesToReadATotalThatIsNone)
{
    row.setBudgetedMoney(goal("Holiday"));

    entries.finalTotal().setText("1-2");

    EXPECT_THROW(row.finalTotal(), DataEntryError);
}

TEST_F(BudgetedGoalEntryWidgetTest, TheCurrencyOfTheTotalFollowsThatOfWhatIsSetAside)
{
    row.setBudgetedMoney(goal("Holiday"));
    hear(row);

    auto const picked = eventsOf([&] { QTest::keyClick(&entries.currency(), Qt::Key_Up); });

    EXPECT_THAT(picked, ElementsAreArray(edited));
    EXPECT_EQ(row.finalTotal(), Money(Currency::USD, 1500, 0, 0));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedGoalEntryWidgetTest, ATypedTotalMovesTheTotalOnceItIsComplete)
{
    row.setBudgetedMoney(goal("Holiday"));
    hear(row);
    showIn(row, entries.finalTotal());

    auto const typing = eventsOf([&] { typeOver(entries.finalTotal(), "2000"); });
    auto const leaving = eventsOf([&] { QTest::keyClick(&entries.finalTotal(), Qt::Key_Tab); });

    EXPECT_THAT(typing, IsEmpty());
    EXPECT_THAT(leaving, ElementsAreArray(edited));
    EXPECT_EQ(row.finalTotal(), euros(2000));
    EXPECT_TRUE(row.isDirty());
}

TEST_F(BudgetedGoalEntryWidgetTest, TellsThatNoBankIsChosen)
{
    MessageLog::clear();

    EXPECT_EQ(row.bankAccount(), std::nullopt);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Bank name not present for widget entry."));
}
