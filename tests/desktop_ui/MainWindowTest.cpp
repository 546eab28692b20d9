#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QMenuBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolBar>

#include <gtest/gtest.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;

namespace {

constexpr navigation::ConfigurationOptions accounting{true, false};
constexpr navigation::ConfigurationOptions planning{false, false};
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
}
