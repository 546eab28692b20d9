#include "support/MessageLog.h"

#include <QApplication>
#include <QStandardPaths>
#include <QWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

/// Fails a test that warned without announcing it or left a window behind.
class Listener : public ::testing::EmptyTestEventListener
{
    void OnTestStart(::testing::TestInfo const& /*test*/) override { tlm::testing::MessageLog::clear(); }

    void OnTestEnd(::testing::TestInfo const& /*test*/) override
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (auto const& complaint : tlm::testing::MessageLog::complaints()) {
            ADD_FAILURE() << complaint.toStdString();
        }
        for (auto* const window : QApplication::topLevelWidgets()) {
            ADD_FAILURE() << "left a window behind: " << window->metaObject()->className() << " "
                          << window->objectName().toStdString();
            delete window;
            break; // deleting one may delete others of the list
        }
    }
};
}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ::testing::InitGoogleMock(&argc, argv);
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    QStandardPaths::setTestModeEnabled(true);
    QApplication const application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    tlm::testing::MessageLog::listen();
    ::testing::UnitTest::GetInstance()->listeners().Append(new Listener); // owned by the list
    return RUN_ALL_TESTS();
}
