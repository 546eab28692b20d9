#include <program/Application.h>

#include <QStandardPaths>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>

/// The monkey plays under the program's own application object, which tells of exceptions that leave a slot.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ::testing::InitGoogleMock(&argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    tallymere::program::Application const application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    tlm::testing::MessageLog::listen();
    return RUN_ALL_TESTS();
}
