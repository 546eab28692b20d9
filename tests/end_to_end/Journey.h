#pragma once

#include <program/Program.h>

#include <QAction>
#include <QFileDialog>
#include <QSettings>
#include <QStatusBar>

#include <gtest/gtest.h>
#include <memory>
#include <support/Dialogs.h>
#include <support/Home.h>
#include <support/Widgets.h>

namespace tallymere {

/// The whole program in a real window and in a home of its own.
class Journey : public ::testing::Test
{
protected:
    Journey()
    {
        QCoreApplication::setOrganizationName("Tallymere");
        QCoreApplication::setApplicationName("tallymere");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path("settings"));
    }

    void start(program::StartOptions const& options)
    {
        program = std::make_unique<program::Program>(options);
        program->start();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()));
        window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    void startOn(QString const& filePathName) { start({filePathName, false, {}}); }
    void startSample() { start({{}, true, {}}); }

    tlm::desktop_ui::MainWindow& window() { return program->window(); }

    template <typename T>
    T& find(QString const& name)
    {
        return tlm::testing::child<T>(window(), name);
    }

    QString status() { return find<QStatusBar>("infoSttsbr").currentMessage(); }

    /// Presses a shortcut as a person does, with the window in front.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&window(), key, modifiers); }

    /// Types \a fileName into the file dialog that is on screen, which shows the documents folder, and presses Enter.
    static void chooseFile(QString const& fileName)
    {
        QFileDialog* dialog = nullptr;
        ASSERT_TRUE(QTest::qWaitFor([&] { return (dialog = tlm::testing::shownWindow<QFileDialog>()) != nullptr; }));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog));
        auto& name = tlm::testing::child<QLineEdit>(*dialog, "fileNameEdit");
        name.clear();
        QTest::keyClicks(&name, fileName);
        QTest::keyClick(&name, Qt::Key_Return);
        ASSERT_TRUE(QTest::qWaitFor([] { return tlm::testing::shownWindow<QFileDialog>() == nullptr; }));
    }

    /// Makes a change that is not saved.
    void changeSomething()
    {
        auto settings = program->session().household().content().settings;
        settings.dueWithin = std::chrono::days(9);
        program->session().change([&](engine::Household& household) { household.configure(settings); });
    }

    tlm::testing::Home home;
    std::unique_ptr<program::Program> program;
};
}
