#include "Process.h"

#include <QFile>
#include <QFileInfo>

namespace tallymere {
namespace {

TEST_F(ProcessTest, AWrongArgumentEndsWithOneSentenceAndStatusTwo)
{
    start({"--colour"});

    ASSERT_TRUE(end());
    EXPECT_EQ(process.exitCode(), 2);
    auto const lines = QString::fromUtf8(process.readAllStandardError()).trimmed().split('\n');
    EXPECT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.constFirst().contains("colour"));
}

TEST_F(ProcessTest, HelpNeedsNoDisplay)
{
    auto environment = process.processEnvironment();
    environment.remove("DISPLAY");
    process.setProcessEnvironment(environment);

    start({"--help"});

    ASSERT_TRUE(end());
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_TRUE(process.readAllStandardOutput().contains("--sample"));
}

TEST_F(ProcessTest, AStartThatNeedsAFolderInVainSaysWhyAndEnds)
{
    QFile obstacle(home.path("data"));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    start({});
    auto const box = windowOf("Can't Start");
    ASSERT_FALSE(box.isEmpty());

    xdotool({"windowfocus", "--sync", box, "key", "Return"});

    ASSERT_TRUE(end());
    EXPECT_EQ(process.exitCode(), EXIT_FAILURE);
    EXPECT_TRUE(process.readAllStandardError().contains("Tallymere can't start: "));
}

TEST_F(ProcessTest, TheSampleOpensInAWindowAndTheKeyboardEndsIt)
{
    start({"--sample"});
    auto const window = windowOf("Sample household");
    ASSERT_FALSE(window.isEmpty());

    xdotool({"windowfocus", "--sync", window, "key", "ctrl+q"});

    ASSERT_TRUE(end());
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_TRUE(QFileInfo::exists(home.path("state/tallymere/tallymere.log")));
}

TEST_F(ProcessTest, TheKeyOfTheAccountsWorksFromWithinATextToo)
{
    start({"--sample", "--accounting"});

    press(windowOf("Sample household"), {"ctrl+u", "Tab", "Tab", "ctrl+u", "ctrl+q"});

    ASSERT_TRUE(end());
    EXPECT_EQ(process.readAllStandardError().count("Showing Accounts Widget."), 2);
}
}
}
