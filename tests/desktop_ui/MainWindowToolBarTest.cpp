#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAction>
#include <QSignalSpy>
#include <QToolBar>

#include <gtest/gtest.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;

namespace {

constexpr navigation::ConfigurationOptions accounting{true, false};
constexpr navigation::ConfigurationOptions planning{false, false};

QStringList texts(QToolBar const& toolBar)
{
    QStringList found;
    for (auto const* const action : toolBar.actions()) {
        found.append(action->text());
    }
    return found;
}
}

TEST(MainWindowToolBarTest, AccountantsReadAccounting)
{
    MainWindow const window(accounting);
    auto const& budget = child<QToolBar>(window, "budgetTbr");
    auto const& common = child<QToolBar>(window, "commonActionsTbr");

    EXPECT_EQ(budget.windowTitle(), "Common Budgeting Actions");
    EXPECT_EQ(budget.toolTip(), "");
    EXPECT_EQ(budget.statusTip(), "Click to run a common budget action");
    EXPECT_EQ(texts(budget), QStringList({"Bills", "Goals"}));
    EXPECT_EQ(common.windowTitle(), "Common Accounting Actions");
    EXPECT_EQ(common.toolTip(), "Common Accounting Actions");
    EXPECT_EQ(common.statusTip(), "Click to run a common accounting action");
    EXPECT_EQ(texts(common), QStringList({"Reconciliation", "Process"}));
}

TEST(MainWindowToolBarTest, PlannersReadPlanningAndJournalling)
{
    MainWindow const window(planning);
    auto const& budget = child<QToolBar>(window, "budgetTbr");
    auto const& common = child<QToolBar>(window, "commonActionsTbr");

    EXPECT_EQ(budget.windowTitle(), "Common Planning Actions");
    EXPECT_EQ(budget.toolTip(), "Common planning actions");
    EXPECT_EQ(budget.statusTip(), "Click to run a common planning action");
    EXPECT_EQ(texts(budget), QStringList({"Bills", "Goals"}));
    EXPECT_EQ(common.windowTitle(), "Common Journalling Actions");
    EXPECT_EQ(common.toolTip(), "Common Journalling Actions");
    EXPECT_EQ(common.statusTip(), "Click to run a common journalling action");
    EXPECT_EQ(texts(common), QStringList({"Survey", "Track"}));
}

TEST(MainWindowToolBarTest, CommonActionsAreMadeFirstAndStandLast)
{
    MainWindow window(accounting);
    auto* const budget = &child<QToolBar>(window, "budgetTbr");
    auto* const common = &child<QToolBar>(window, "commonActionsTbr");

    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    EXPECT_EQ(window.findChildren<QToolBar*>(), QList<QToolBar*>({common, budget}));
    EXPECT_EQ(window.toolBarArea(budget), Qt::TopToolBarArea);
    EXPECT_EQ(window.toolBarArea(common), Qt::TopToolBarArea);
    EXPECT_LT(budget->geometry().right(), common->geometry().left());
}

TEST(MainWindowToolBarTest, ToolBarActionsAskLikeTheMenus)
{
    MainWindow window(planning);
    QSignalSpy const bills(&window, &MainWindow::prepareShowBills);
    QSignalSpy const goals(&window, &MainWindow::prepareShowGoals);
    QSignalSpy const survey(&window, &MainWindow::prepareShowSurvey);
    QSignalSpy const process(&window, &MainWindow::prepareShowProcessBudgetItems);

    for (auto const* const name : {"budgetTbr", "commonActionsTbr"}) {
        for (auto* const action : child<QToolBar>(window, name).actions()) {
            action->trigger();
        }
    }

    EXPECT_EQ(bills.count(), 1);
    EXPECT_EQ(goals.count(), 1);
    EXPECT_EQ(survey.count(), 1);
    EXPECT_EQ(process.count(), 1);
}

TEST(MainWindowToolBarTest, ToolBarActionsAreTheirOwn)
{
    MainWindow window(planning);
    auto* const toolBarBills = child<QToolBar>(window, "budgetTbr").actions().constFirst();
    auto& menuBills = child<QAction>(window, "billsActn");

    menuBills.setVisible(false);
    menuBills.setText("Reworded");

    EXPECT_NE(toolBarBills, &menuBills);
    EXPECT_TRUE(toolBarBills->isVisible());
    EXPECT_EQ(toolBarBills->text(), "Bills");
}
}
