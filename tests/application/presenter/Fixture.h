#pragma once

#include <engine/SampleHousehold.h>
#include <presenter/Session.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QStatusBar>

#include <gtest/gtest.h>
#include <support/Dialogs.h>
#include <support/Home.h>
#include <support/MessageLog.h>
#include <support/Widgets.h>

namespace tallymere::presenter {

/// A window and a session in a home of their own; each test adds the presenter that it is about.
class PresenterTest : public ::testing::Test
{
protected:
    PresenterTest() { session.beginEmpty(); }

    static storage::Places placesIn(tlm::testing::Home const& home)
    {
        return {home.path(QStringLiteral("working")), home.path(QStringLiteral("backups"))};
    }

    /// A change that makes the budget differ from its file.
    void changeSomething()
    {
        auto settings = session.household().content().settings;
        settings.dueWithin += std::chrono::days(1);
        session.change([&](engine::Household& household) { household.configure(settings); });
    }

    QString writeSample(QString const& name)
    {
        auto const path = home.path(name);
        auto const sample = engine::sampleHousehold(QDate::currentDate());
        storage::Document::create(session.places(), sample.content, sample.postings)->saveAs(path);
        return path;
    }

    QString status() const { return window.findChild<QStatusBar*>(QStringLiteral("infoSttsbr"))->currentMessage(); }

    tlm::testing::Home home;
    tlm::navigation::ConfigurationOptions wording{};
    tlm::desktop_ui::MainWindow window{wording};
    Session session{placesIn(home)};
};
}
