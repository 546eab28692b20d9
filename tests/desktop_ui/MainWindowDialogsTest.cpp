#include "MessageBoxAnswer.h"

#include <fiscora/About.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>
#include <tlm/updating/SemanticVersion.h>

#include <QAction>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;
using tlm::testing::MessageBoxAnswer;
using tlm::testing::MessageLog;

class MainWindowDialogsTest : public ::testing::Test
{
protected:
    navigation::ConfigurationOptions const options{true, false};
    MainWindow window{options};
};

TEST_F(MainWindowDialogsTest, AboutTellsTheProductThenTheMoneyLibraryLineByLine)
{
    MessageBoxAnswer const answer(QMessageBox::Ok);

    child<QAction>(window, "aboutActn").trigger();

    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(answer.asked()->title, "About TLM");
    EXPECT_EQ(answer.asked()->parent, &window);
    auto const lines = answer.asked()->text.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 8);
    EXPECT_EQ(lines.at(0), "Tallymere " TLM_TEST_VERSION);
    EXPECT_EQ(lines.at(1), "Written by the Tallymere authors.");
    EXPECT_THAT(lines.at(2).toStdString(), ::testing::StartsWith("More Information: https://"));
    EXPECT_THAT(lines.at(3).toStdString(), ::testing::HasSubstr("no warranty"));
    EXPECT_EQ(lines.at(4).toStdString(), "fiscora " + fiscora::version() + ": " + fiscora::description());
    EXPECT_EQ(lines.at(5).toStdString(), fiscora::copyright());
    EXPECT_EQ(lines.at(6).toStdString(), fiscora::licence());
    EXPECT_EQ(lines.at(7).toStdString(), "More Information: " + fiscora::url());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("Showing about information."));
}

TEST_F(MainWindowDialogsTest, AboutQtIsToldInTheProductsName)
{
    MessageBoxAnswer const answer(QMessageBox::Ok);

    child<QAction>(window, "aboutQtActn").trigger();

    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(answer.asked()->title, "TLM Qt Information");
    EXPECT_EQ(answer.asked()->parent, &window);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("Showing about Qt information."));
}

TEST_F(MainWindowDialogsTest, ANewerVersionIsAcknowledgedOnceItsNoticeIsClosed)
{
    QSignalSpy const acknowledged(&window, &MainWindow::updateAvailableAcknowledged);
    auto acknowledgedEarly = false;
    MessageBoxAnswer const answer([&](QMessageBox& box) {
        acknowledgedEarly = acknowledged.count() > 0;
        box.button(QMessageBox::Ok)->click();
    });

    window.onUpdateReleased(updating::SemanticVersion(1, 2, 3));

    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(answer.asked()->title, "Update Available");
    EXPECT_THAT(answer.asked()->text.toStdString(),
                ::testing::MatchesRegex("A new version, 1\\.2\\.3, is available\\. For more information, check the "
                                        "release notes under the Help menu\\. The update can be downloaded from:\n\t"
                                        "https://.+"));
    EXPECT_EQ(answer.asked()->icon, QMessageBox::Information);
    EXPECT_EQ(answer.asked()->buttons, QMessageBox::Ok);
    EXPECT_EQ(answer.asked()->parent, &window);
    EXPECT_FALSE(acknowledgedEarly);
    EXPECT_EQ(acknowledged.count(), 1);
}

TEST_F(MainWindowDialogsTest, ANoticeThatIsDismissedIsAcknowledgedToo)
{
    QSignalSpy const acknowledged(&window, &MainWindow::updateAvailableAcknowledged);
    MessageBoxAnswer const answer([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });

    window.onUpdateReleased(updating::SemanticVersion(1, 2, 3));

    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(acknowledged.count(), 1);
}
}
