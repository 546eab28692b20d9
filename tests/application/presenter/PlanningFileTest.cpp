#include "PlanningViewFixture.h"

#include <QTableWidget>

namespace tallymere::presenter {
namespace {

using tlm::foundation::presentationText;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::planningRows;
using tlm::testing::shownWindow;
using tlm::testing::typeOver;

using PlanningFileTest = PlanningView;

TEST_F(PlanningFileTest, ABillIsAddedChangedRenamedAndRemovedInOneSave)
{
    add(BudgetItemTypes::Bill, {"Water", dollars(30)});
    add(BudgetItemTypes::Bill, {"Phone", dollars(20)});
    plan(&MainWindow::prepareShowBills);
    fill(addRow(), "Rent", "700.50");
    enter(row("Old Bill").source(), "New bill");
    enter(row("Water").amount(), "35");
    row("Phone").remove().click();

    press(QDialogButtonBox::Save);

    EXPECT_FALSE(isPlanning()) << "all was saved, so the dashboard is back";
    saveAndReopen();
    EXPECT_EQ(item(BudgetItemTypes::Bill, "Rent").amount, Money(Currency::USD, 700, 50, 0));
    EXPECT_EQ(item(BudgetItemTypes::Bill, "New bill").amount, dollars(40));
    EXPECT_EQ(item(BudgetItemTypes::Bill, "Water").amount, dollars(35));
    EXPECT_FALSE(isPlanned(BudgetItemTypes::Bill, "Phone"));
    EXPECT_FALSE(isPlanned(BudgetItemTypes::Bill, "Old Bill"));
}

TEST_F(PlanningFileTest, ANontrackAndAWageFindTheirWayIntoTheFile)
{
    plan(&MainWindow::prepareShowNontracks);
    fill(addRow(), "Groceries", "90", EventFrequency::Weekly);
    press(QDialogButtonBox::Save);
    plan(&MainWindow::prepareShowWages);
    auto const wage = addRow();
    fill(wage, "Salary", "1500");
    wage.currency().setCurrentText("EUR");
    wage.dueNext().setDate(QDate(2026, 10, 31));
    press(QDialogButtonBox::Save);

    saveAndReopen();

    EXPECT_EQ(item(BudgetItemTypes::Nontrack, "Groceries").period, EventFrequency::Weekly);
    EXPECT_EQ(item(BudgetItemTypes::Wage, "Salary").amount, euros(1'500));
    EXPECT_EQ(item(BudgetItemTypes::Wage, "Salary").nextOccurOn, QDate(2026, 10, 31));
}

TEST_F(PlanningFileTest, ADebtOfABankIsAddedAndChanged)
{
    plan(&MainWindow::prepareShowDebts);
    auto const added = addRow();
    fill(added, "Car loan", "250");
    enter(added.borrowed(), "9000");
    added.bank().setCurrentText("Aspen Bank");
    added.accountType().setCurrentText(presentationText(BankAccountTypes::Loan));
    press(QDialogButtonBox::Save);
    ASSERT_FALSE(isPlanning());
    plan(&MainWindow::prepareShowDebts);
    EXPECT_TRUE(row("Car loan").borrowed().isReadOnly());
    enter(row("Car loan").amount(), "275");

    press(QDialogButtonBox::Save);

    EXPECT_FALSE(isPlanning());
    saveAndReopen();
    auto const& debt = item(BudgetItemTypes::Debt, "Car loan");
    EXPECT_EQ(debt.amount, dollars(275));
    EXPECT_EQ(debt.debt.value().borrowed, dollars(9'000));
    EXPECT_EQ(session.household().balance(debt.account), dollars(9'000));
    EXPECT_EQ(session.household().keptAt(BudgetItemTypes::Debt).begin()->account.bank, bank);
}

TEST_F(PlanningFileTest, AGoalIsStoredUnderAnAccountAndMovedToAnother)
{
    // A goal can't tell its share of the wages before it has an amount and a period.
    expectMessage(QtWarningMsg, "The value, , is not valid");
    expectMessage(QtWarningMsg, "What has no period can't be reckoned up");
    plan(&MainWindow::prepareShowGoals);
    auto const added = addRow();
    fill(added, "Bicycle", "50");
    enter(added.finalTotal(), "850");
    added.bank().setCurrentText("Aspen Bank");
    ASSERT_EQ(added.account().count(), 2) << "a blank row and the one account of an asset";
    added.account().setCurrentIndex(1);

    press(QDialogButtonBox::Save);

    EXPECT_FALSE(isPlanning());
    saveAndReopen();
    EXPECT_EQ(item(BudgetItemTypes::Goal, "Bicycle").goalTotal, dollars(850));
    auto const kept = session.household().keptAt(BudgetItemTypes::Goal);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept.begin()->account, everyday);
}

TEST_F(PlanningFileTest, ARefusedRowStaysWithItsMessageWhileTheOthersAreKept)
{
    expectMessage(QtWarningMsg, "Failed to save,");
    plan(&MainWindow::prepareShowBills);
    fill(addRow(), "old bill", "10");
    fill(addRow(), "Water", "30");

    press(QDialogButtonBox::Save);

    ASSERT_TRUE(isPlanning());
    EXPECT_EQ(row("old bill").error(), "Old Bill is planned already. Change that bill, or give this one another name.");
    EXPECT_EQ(row("Water").error(), "");
    EXPECT_EQ(item(BudgetItemTypes::Bill, "Water").amount, dollars(30));
    enter(row("old bill").source(), "Heating");
    answers.clear();
    press(QDialogButtonBox::Save);
    EXPECT_FALSE(isPlanning());
    EXPECT_EQ(answers.size(), 1U) << "the others were saved before";
    saveAndReopen();
    EXPECT_EQ(item(BudgetItemTypes::Bill, "Heating").amount, dollars(10));
}

TEST_F(PlanningFileTest, ARowRenamedToAnotherItemLeavesThatItemAlone)
{
    expectMessage(QtWarningMsg, "Failed to save,");
    add(BudgetItemTypes::Bill, {"Water", dollars(30)});
    plan(&MainWindow::prepareShowBills);
    auto const before = content();
    enter(row("Old Bill").source(), "water");
    enter(row("water").amount(), "999");

    press(QDialogButtonBox::Save);

    EXPECT_EQ(content(), before);
    EXPECT_EQ(row("water").error(), "Water is planned already. Change that bill, or give this one another name.");
}

TEST_F(PlanningFileTest, ARenamedRowWithNewValuesReachesTheDashboardWhole)
{
    plan(&MainWindow::prepareShowBills);
    enter(row("Old Bill").source(), "Rent");
    enter(row("Rent").amount(), "700");

    press(QDialogButtonBox::Save);

    ASSERT_FALSE(isPlanning());
    EXPECT_EQ(item(BudgetItemTypes::Bill, "Rent").amount, dollars(700));
    EXPECT_EQ(child<QTableWidget>(*window.centralWidget(), "monthlyTotalsTblwdgt").item(3, 0)->text(),
              presentationText(dollars(700)));
}

TEST_F(PlanningFileTest, ARenamedRowWithRefusedValuesIsToldOverTheViewAgain)
{
    expectMessage(QtWarningMsg, "Failed to save,");
    expectMessage(QtWarningMsg, "Not Everything Was Changed");
    plan(&MainWindow::prepareShowBills);
    enter(row("Old Bill").source(), "Rent");
    enter(row("Rent").amount(), "0");

    press(QDialogButtonBox::Save);
    QCoreApplication::processEvents();

    auto* const box = shownWindow<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->text().startsWith("Old Bill is called Rent now."));
    box->button(QMessageBox::Ok)->click();
    ASSERT_TRUE(isPlanning());
    EXPECT_EQ(planningRows(*window.centralWidget()).size(), 1U);
    EXPECT_EQ(row("Rent").amount().text(), presentationText(dollars(40)));
    EXPECT_EQ(item(BudgetItemTypes::Bill, "Rent").amount, dollars(40));
}

TEST_F(PlanningFileTest, ARenamedRowWithAnAmountThatCannotBeReadIsToldOverTheViewAgain)
{
    expectMessage(QtWarningMsg, "Error during the save data transformation");
    expectMessage(QtWarningMsg, "Not Everything Was Changed");
    plan(&MainWindow::prepareShowBills);
    enter(row("Old Bill").source(), "Rent");
    typeOver(row("Rent").amount(), "");

    press(QDialogButtonBox::Save);
    QCoreApplication::processEvents();

    auto* const box = shownWindow<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->text().startsWith("Old Bill is called Rent now. What else was typed"));
    box->button(QMessageBox::Ok)->click();
    ASSERT_TRUE(isPlanning());
    EXPECT_EQ(row("Rent").amount().text(), presentationText(dollars(40)));
}

TEST_F(PlanningFileTest, DiscardKeepsTheBudgetAsItWas)
{
    auto const before = content();
    plan(&MainWindow::prepareShowBills);
    fill(addRow(), "Rent", "700");
    row("Old Bill").remove().click();

    press(QDialogButtonBox::Discard);

    EXPECT_FALSE(isPlanning());
    EXPECT_EQ(content(), before);
    EXPECT_FALSE(session.isDirty());
}
}
}
