#include <tlm/adjutor/HelpWidget.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>

namespace tlm::desktop_ui {

using tlm::testing::MessageLog;

namespace {

constexpr navigation::ConfigurationOptions accounting{true, false};

adjutor::HelpWidget* handbook()
{
    for (auto* const window : QApplication::topLevelWidgets()) {
        if (auto* const found = qobject_cast<adjutor::HelpWidget*>(window)) {
            return found;
        }
    }
    return nullptr;
}
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
