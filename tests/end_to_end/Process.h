#pragma once

#include <QProcess>

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

    bool end() { return process.waitForFinished(20'000) && process.exitStatus() == QProcess::NormalExit; }

    /// \return what xdotool prints, empty on failure
    static QString xdotool(QStringList const& arguments)
    {
        QProcess tool;
        tool.start("xdotool", arguments);
        tool.waitForFinished(20'000);
        return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    }

    /// Waits for a window whose title has \a title, a regular expression, in it.
    /// \return what xdotool calls it, empty when none comes
    static QString windowOf(QString const& title)
    {
        return xdotool({"search", "--sync", "--onlyvisible", "--name", title});
    }

    tlm::testing::Home home;
    QProcess process;
};
}
