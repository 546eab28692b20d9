#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAction>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;

namespace {

constexpr navigation::ConfigurationOptions accounting{true, false};
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
}
