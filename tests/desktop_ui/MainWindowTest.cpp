#include <tlm/adjutor/HelpWidget.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QElapsedTimer>
#include <QMenuBar>
#include <QPointer>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBar>

#include <gtest/gtest.h>
#include <support/MessageLog.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;
using tlm::testing::MessageLog;

namespace {

constexpr navigation::ConfigurationOptions accounting{true, false};
constexpr navigation::ConfigurationOptions planning{false, false};

adjutor::HelpWidget* handbook()
{
    for (auto* const window : QApplication::topLevelWidgets()) {
        if (auto* const found = qobject_cast<adjutor::HelpWidget*>(window)) {
            return found;
        }
    }
    return nullptr;
}

QStringList texts(QToolBar const& toolBar)
{
    QStringList found;
    for (auto const* const action : toolBar.actions()) {
        found.append(action->text());
    }
    return found;
}
}

TEST(MainWindowTest, BearsTheProductsNameAndItsWorkingTitle)
{
    MainWindow const window(accounting);

    EXPECT_EQ(window.windowTitle(), "Tallymere (Purse Warden)");
    EXPECT_EQ(window.objectName(), "TlmMnwndw");
}

TEST(MainWindowTest, StartsHiddenAtItsUsualSizeAroundAnEmptyView)
{
    MainWindow const window(accounting);

    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.size(), QSize(1280, 800));
    EXPECT_EQ(window.minimumSize(), QSize(1024, 576));
    EXPECT_EQ(window.centralWidget(), &child<QWidget>(window, "centralwidget"));
}

TEST(MainWindowTest, FitsItsLeastSizeAlthoughTheStatusBarIsWider)
{
    MainWindow window(accounting);
    auto& status = child<QStatusBar>(window, "infoSttsbr");

    window.resize(1024, 576);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    EXPECT_EQ(status.minimumSize(), QSize(1280, 25));
    EXPECT_EQ(window.size(), QSize(1024, 576));
    EXPECT_EQ(window.centralWidget()->width(), 1024);
    EXPECT_EQ(status.x(), 0) << "messages begin where they can be read";
    EXPECT_EQ(status.geometry().bottom(), window.rect().bottom());
}

TEST(MainWindowTest, ShowingAsksForTheDashboardEachTime)
{
    MainWindow window(accounting);
    QSignalSpy const dashboard(&window, &MainWindow::prepareShowDashboard);

    window.show();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(dashboard.count(), 1);

    window.show();
    EXPECT_EQ(dashboard.count(), 2);
}

TEST(MainWindowTest, IsVisibleAlreadyWhenItAsksForTheDashboard)
{
    MainWindow window(accounting);
    auto wasVisible = false;
    QObject::connect(&window, &MainWindow::prepareShowDashboard, &window, [&] { wasVisible = window.isVisible(); });

    window.show();

    EXPECT_TRUE(wasVisible);
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

TEST(MainWindowAccessibilityTest, EveryPartOfTheFrameHasAName)
{
    for (auto const& options : {accounting, planning}) {
        MainWindow const window(options);

        for (auto const* const toolBar : window.findChildren<QToolBar*>()) {
            EXPECT_EQ(toolBar->accessibleName(), toolBar->windowTitle());
        }
        EXPECT_FALSE(child<QMenuBar>(window, "mainMnbr").accessibleName().isEmpty());
        EXPECT_FALSE(child<QStatusBar>(window, "infoSttsbr").accessibleName().isEmpty());
    }
}

TEST(MainWindowCloseTest, StaysOpenAsLongAsNobodyAnswers)
{
    MainWindow window(accounting);
    QSignalSpy check(&window, &MainWindow::checkIsBudgetFileDirty);
    window.show();
    QElapsedTimer clock;

    clock.start();
    EXPECT_FALSE(window.close());
    EXPECT_EQ(check.count(), 0) << "the close handler has to return first";
    ASSERT_TRUE(check.wait(1000));

    EXPECT_GE(clock.elapsed(), 95); // a coarse timer may be five per cent early
    EXPECT_EQ(check.count(), 1);
    EXPECT_TRUE(window.isVisible());
}

TEST(MainWindowCloseTest, AsksOnEachAttempt)
{
    MainWindow window(accounting);
    QSignalSpy check(&window, &MainWindow::checkIsBudgetFileDirty);
    window.show();

    for (auto attempt = 1; attempt <= 2; ++attempt) {
        window.close();
        ASSERT_TRUE(check.wait(1000));
        EXPECT_EQ(check.count(), attempt);
    }
}

TEST(MainWindowCloseTest, TakesTwoClosesAndOneAnswer)
{
    MainWindow window(accounting);
    QObject::connect(&window, &MainWindow::checkIsBudgetFileDirty, &window,
                     [&window] { window.onCheckCleanExit(false); });
    window.show();

    EXPECT_FALSE(window.close());

    EXPECT_TRUE(QTest::qWaitFor([&window] { return !window.isVisible(); }, 1000));
}

TEST(MainWindowCloseTest, ExitAndItsKeyCloseTheWindow)
{
    MainWindow window(accounting);
    QSignalSpy check(&window, &MainWindow::checkIsBudgetFileDirty);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

    child<QAction>(window, "exitActn").trigger();
    ASSERT_TRUE(check.wait(1000));
    QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);

    EXPECT_TRUE(check.wait(1000));
}

TEST(MainWindowCloseTest, AsksNothingOnceTheWindowIsGone)
{
    auto asked = false;
    {
        MainWindow window(accounting);
        QObject::connect(&window, &MainWindow::checkIsBudgetFileDirty, qApp, [&asked] { asked = true; });
        window.show();
        window.close();
    }

    QTest::qWait(150);

    EXPECT_FALSE(asked);
}

TEST(MainWindowHandbookTest, IsAHiddenWindowOfItsOwn)
{
    MainWindow const window(accounting);

    ASSERT_NE(handbook(), nullptr);
    EXPECT_EQ(handbook()->parentWidget(), nullptr);
    EXPECT_FALSE(handbook()->isVisible());
}

TEST(MainWindowHandbookTest, OpensItsStartPageAfterAMoment)
{
    MainWindow window(accounting);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_FALSE(handbook()->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([] { return handbook()->isVisible(); }, 1000));

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("Showing help handbook start page."));
}

TEST(MainWindowHandbookTest, OpensThePageOnTheWizardForTheWizard)
{
    MainWindow window(accounting);
    QMetaObject::invokeMethod(&window, "onShowHandbookStartPage");
    ASSERT_TRUE(QTest::qWaitFor([] { return handbook()->isVisible(); }, 1000));
    auto const startPage = handbook()->findChild<QTextBrowser*>()->source();

    QMetaObject::invokeMethod(&window, "onShowHandbookWizardPage");

    EXPECT_NE(handbook()->findChild<QTextBrowser*>()->source(), startPage);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("Showing help handbook wizard page."));
}

TEST(MainWindowHandbookTest, LeavesWithTheWindowAtTheNextTurn)
{
    QPointer<adjutor::HelpWidget> help;
    {
        MainWindow const window(accounting);
        help = handbook();
    }
    EXPECT_FALSE(help.isNull());

    QApplication::sendPostedEvents(help, QEvent::DeferredDelete);

    EXPECT_TRUE(help.isNull());
}

TEST(MainWindowHandbookTest, NeverKeepsTheProgramRunning)
{
    MainWindow window(accounting);
    window.show();
    QMetaObject::invokeMethod(&window, "onShowHandbookStartPage");
    ASSERT_TRUE(QTest::qWaitFor([] { return handbook()->isVisible(); }, 1000));
    auto keptRunning = false;
    QTimer::singleShot(0, &window, [&window] { window.onCheckCleanExit(false); });
    QTimer::singleShot(2000, &window, [&keptRunning] {
        keptRunning = true;
        QApplication::exit();
    });

    QApplication::setQuitOnLastWindowClosed(true);
    QApplication::exec();
    QApplication::setQuitOnLastWindowClosed(false);

    EXPECT_FALSE(keptRunning);
}
}
