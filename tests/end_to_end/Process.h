#pragma once

#include <QByteArrayList>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <chrono>
#include <gtest/gtest.h>
#include <support/Home.h>

namespace tallymere {

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

    /// Waits until the program has ended. \return whether it did so by itself
    bool end()
    {
        auto const hasEnded = process.state() == QProcess::NotRunning || process.waitForFinished(20'000);
        return hasEnded && process.exitStatus() == QProcess::NormalExit;
    }

    /// \return what xdotool prints, empty on failure
    static QString xdotool(QStringList const& arguments)
    {
        QProcess tool;
        tool.start("xdotool", arguments);
        tool.waitForFinished(20'000);
        return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    }

    /// Waits for a window whose title has \a title, a regular expression, in it, and until the program is done with it.
    /// \return what xdotool calls it, empty when none comes
    QString windowOf(QString const& title) const
    {
        auto const window = xdotool({"search", "--sync", "--onlyvisible", "--name", title});
        untilAtRest();
        return window;
    }

    /// Waits until the program takes no more time of the processor: keys that come while it is busy may find the view before.
    void untilAtRest() const
    {
        using namespace std::chrono_literals;
        for (auto before = processorTime();;) {
            QTest::qWait(std::chrono::milliseconds(150ms).count());
            auto const now = processorTime();
            if (now == before) {
                return;
            }
            before = now;
        }
    }

    void press(QString const& window, QStringList const& keys)
    {
        ASSERT_FALSE(window.isEmpty());
        xdotool({"windowfocus", "--sync", window});
        for (auto const& key : keys) {
            xdotool({"key", key});
            untilAtRest();
        }
    }

    tlm::testing::Home home;
    QProcess process;

private:
    /// \return what the kernel has counted, in its own unit; nothing for a process that has ended
    QByteArrayList processorTime() const
    {
        QFile status(QString("/proc/%1/stat").arg(process.processId()));
        return status.open(QIODevice::ReadOnly) ? status.readAll().split(')').constLast().split(' ').mid(12, 2)
                                                : QByteArrayList();
    }
};
}
