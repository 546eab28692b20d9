#include "MainWindowBudgetFixture.h"

#include <QPointer>
#include <QTest>

#include <gmock/gmock.h>
#include <support/MessageLog.h>

namespace tlm::desktop_ui {

using tlm::testing::MessageLog;

namespace {

constexpr Refusal refusals[] = {
    {"No", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); }},
    {"Escape", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }},
    {"CloseButton", [](QMessageBox& box) { box.close(); }},
    {"ReturnOnTheDefaultButton", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }},
};
}

TEST_F(MainWindowBudgetFileTest, OpeningOverChangesIsConfirmed)
{
    MessageBoxAnswer const answer(QMessageBox::Yes);

    window.onShowConfirmLoadBudgetFile("/home/a/it's 100%1.budget");

    expectQuestion(answer, window, "Confirm Open Budget",
                   "Are you sure you wish to open a the budget file:\n\t'/home/a/it's 100%1.budget'?\n"
                   "This will lose all the current changes.");
    ASSERT_EQ(confirmedLoad.count(), 1);
    EXPECT_EQ(confirmedLoad.at(0), QVariantList({"/home/a/it's 100%1.budget", false}));
}

TEST_P(MainWindowRefusalTest, ADeclinedOpeningAsksForNothing)
{
    MessageBoxAnswer const answer(GetParam().act);

    window.onShowConfirmLoadBudgetFile("/home/a/home.budget");

    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(confirmedLoad.count(), 0);
}

TEST_F(MainWindowBudgetFileTest, ALoadedBudgetIsToldByItsPathAsItStands)
{
    window.onLoadedBudgetFile("/home/a/it's %2.budget", false);
    expectStatus("Opened: '/home/a/it's %2.budget'");

    window.onLoadedBudgetFile("/home/a/home.budget", true);
    expectStatus("Reloaded: '/home/a/home.budget'");

    EXPECT_EQ(dashboard.count(), 2);
}

TEST_F(MainWindowBudgetFileTest, TheViewOfTheBudgetBeforeIsOnItsWayOutWhenTheDashboardIsAskedFor)
{
    QPointer<QWidget> const before = window.centralWidget();
    QPointer<QWidget> const after = new QWidget;
    auto stoodUntilAsked = false;
    QObject::connect(&window, &MainWindow::prepareShowDashboard, &window, [&] {
        stoodUntilAsked = !before.isNull();
        QApplication::sendPostedEvents(before, QEvent::DeferredDelete);
        EXPECT_TRUE(before.isNull()) << "its end has to be under way";
        window.setCentralWidget(after);
    });

    window.onLoadedBudgetFile("/home/a/home.budget", false);

    EXPECT_TRUE(stoodUntilAsked);
    EXPECT_EQ(window.centralWidget(), after);
}

TEST_F(MainWindowBudgetFileTest, OldAndNewViewStandSideBySideForATurnOfTheEventLoop)
{
    QPointer<QWidget> const before = window.centralWidget();
    QPointer<QWidget> const after = new QWidget;
    QObject::connect(&window, &MainWindow::prepareShowDashboard, &window, [&] { window.setCentralWidget(after); });

    window.onLoadedBudgetFile("/home/a/home.budget", false);
    EXPECT_FALSE(before.isNull());

    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(before.isNull());
    EXPECT_FALSE(after.isNull());
    EXPECT_EQ(window.centralWidget(), after);
}

TEST_F(MainWindowBudgetFileTest, LoadingTwiceWithoutAnAnswerLeavesNoView)
{
    window.onLoadedBudgetFile("/home/a/home.budget", false);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(window.centralWidget(), nullptr);

    window.onLoadedBudgetFile("/home/a/other.budget", false);

    EXPECT_EQ(dashboard.count(), 2);
}

TEST_F(MainWindowBudgetFileTest, ASavedBudgetIsTold)
{
    window.onSavedBudgetFile("/home/a/it's %1.budget");

    expectStatus("Saved: '/home/a/it's %1.budget'");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("Successfully stored budget."));
}

TEST_F(MainWindowBudgetFileTest, ThatThereIsNothingToReloadIsTold)
{
    window.onShowNoBudgetFileOpened();

    expectStatus("No budget file opened to reload.");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("There is not a budget file currently to reload."));
}

TEST_F(MainWindowBudgetFileTest, ACleanBudgetClosesWithoutAQuestion)
{
    window.show();
    MessageBoxAnswer const answer(QMessageBox::No);

    window.onCheckCleanExit(false);
    QApplication::processEvents();

    EXPECT_FALSE(answer.asked());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowBudgetFileTest, ADirtyBudgetClosesUnsavedWhenThePersonAgrees)
{
    QSignalSpy const save(&window, &MainWindow::saveBudgetFile);
    window.show();
    MessageBoxAnswer const answer(QMessageBox::Yes);

    window.onCheckCleanExit(true);

    expectQuestion(answer, window, "Confirm Exiting",
                   "Are you sure you wish to exit?\nThere are unsaved changes. Exiting will lose all current changes.");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(save.count(), 0);
}

TEST_P(MainWindowRefusalTest, ADirtyBudgetStaysOpenWhenThePersonDeclinesAndIsAskedAbout)
{
    QSignalSpy check(&window, &MainWindow::checkIsBudgetFileDirty);
    window.show();
    MessageBoxAnswer const answer(GetParam().act);

    window.onCheckCleanExit(true);
    ASSERT_TRUE(answer.asked());
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.close());

    EXPECT_TRUE(check.wait(1000));
    EXPECT_TRUE(window.isVisible());
}

INSTANTIATE_TEST_SUITE_P(EveryWay, MainWindowRefusalTest, ::testing::ValuesIn(refusals),
                         [](auto const& row) { return std::string(row.param.name); });
}
