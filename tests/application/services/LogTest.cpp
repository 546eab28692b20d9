#include <services/Log.h>

#include <QDebug>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <support/Home.h>
#include <support/MessageLog.h>

namespace tallymere::services {
namespace {

class LogTest : public ::testing::Test
{
protected:
    ~LogTest() override { tlm::testing::MessageLog::listen(); }

    static QByteArray read(QString const& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static bool isPrivate(QString const& path)
    {
        auto const others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        return QFileInfo::exists(path) && !QFileInfo(path).permissions().testAnyFlags(others);
    }

    static void fill(int mebibytes)
    {
        auto const line = QString(1000, 'x');
        for (auto written = 0; written < mebibytes * 1024; ++written) {
            qInfo().noquote() << line;
        }
    }

    tlm::testing::Home home;
    QString path = home.path("state/tallymere/tallymere.log");
};

TEST_F(LogTest, StandsInTheStateFolderOfTheUser)
{
    EXPECT_EQ(logFilePathName(), path);
}

TEST_F(LogTest, AStateFolderThatIsNotAbsoluteIsPassedOver)
{
    qputenv("XDG_STATE_HOME", "relative/state");

    EXPECT_EQ(logFilePathName(), home.path(".local/state/tallymere/tallymere.log"));
}

TEST_F(LogTest, KeepsWhatIsLoggedAndStillPassesItOn)
{
    tlm::testing::expectMessage(QtWarningMsg, "a rate is missing");
    startLogFile(path);

    qWarning() << "a rate is missing";

    EXPECT_TRUE(read(path).contains("a rate is missing"));
}

TEST_F(LogTest, IsPrivateToItsOwner)
{
    startLogFile(path);

    EXPECT_TRUE(isPrivate(path));
}

TEST_F(LogTest, PutsAFullFileAsideAndKeepsThreeOfThem)
{
    startLogFile(path);

    fill(6);

    EXPECT_LE(QFileInfo(path).size(), 1024 * 1024);
    EXPECT_TRUE(QFileInfo::exists(home.path("state/tallymere/tallymere.3.log")));
    EXPECT_FALSE(QFileInfo::exists(home.path("state/tallymere/tallymere.4.log")));
}

TEST_F(LogTest, StaysPrivateWhenAFullFileIsPutAside)
{
    startLogFile(path);

    fill(2);

    EXPECT_TRUE(isPrivate(path));
    EXPECT_TRUE(isPrivate(home.path("state/tallymere/tallymere.1.log")));
    EXPECT_TRUE(isPrivate(home.path("state/tallymere/tallymere.2.log")));
}

TEST_F(LogTest, AFileThatCannotBeWrittenIsToldAndTheProgramGoesOn)
{
    tlm::testing::expectMessage(QtWarningMsg, "Failed to open the log file");
    QFile obstacle(home.path("state"));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));

    startLogFile(path);

    qInfo() << "still here";
    EXPECT_TRUE(tlm::testing::MessageLog::texts(QtInfoMsg).contains("still here"));
}
}
}
