#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>
#include <support/Home.h>

namespace tallymere {
namespace {

/// The program as a person starts it, in a process of its own.
class ProcessTest : public ::testing::Test
{
protected:
    ProcessTest()
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_DATA_HOME", home.path("data"));
        environment.insert("XDG_CONFIG_HOME", home.path("config"));
        process.setProcessEnvironment(environment);
    }

    void start(QStringList const& arguments) { process.start(TALLYMERE, arguments); }

    bool end() { return process.waitForFinished(20'000) && process.exitStatus() == QProcess::NormalExit; }

    /// \return what xdotool prints, empty on failure
    static QString xdotool(QStringList const& arguments)
    {
        QProcess tool;
        tool.start("xdotool", arguments);
        tool.waitForFinished(20'000);
        return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    }

    tlm::testing::Home home;
    QProcess process;
};

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
    auto const box = xdotool({"search", "--sync", "--onlyvisible", "--name", "Can't Start"});
    ASSERT_FALSE(box.isEmpty());

    xdotool({"windowfocus", "--sync", box, "key", "Return"});

    ASSERT_TRUE(end());
    EXPECT_EQ(process.exitCode(), EXIT_FAILURE);
    EXPECT_TRUE(process.readAllStandardError().contains("Tallymere can't start: "));
}

TEST_F(ProcessTest, TheSampleOpensInAWindowAndTheKeyboardEndsIt)
{
    start({"--sample"});
    auto const window = xdotool({"search", "--sync", "--onlyvisible", "--name", "Sample household"});
    ASSERT_FALSE(window.isEmpty());

    xdotool({"windowfocus", "--sync", window, "key", "ctrl+q"});

    ASSERT_TRUE(end());
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_TRUE(QFileInfo::exists(home.path("state/tallymere/tallymere.log")));
}
}
}
