#include <presenter/DashboardPresenter.h>
#include <presenter/Session.h>
#include <tlm/desktop_ui/MainWindow.h>

#include <QDate>

namespace tallymere::presenter {

using tlm::desktop_ui::MainWindow;

DashboardPresenter::DashboardPresenter(MainWindow& window, Session& session) : window_(window), session_(session)
{
    connect(&window_, &MainWindow::prepareShowDashboard, this, &DashboardPresenter::onPrepareShowDashboard);
}

void DashboardPresenter::onPrepareShowDashboard()
{
    auto const& household = session_.household();
    auto const& settings = household.content().settings;
    window_.onShowDashboard(household.monthlyTotals(), household.due(QDate::currentDate()), household.health(),
                            settings.dueWithin, settings.preferred, settings.displayAs);
}
}
