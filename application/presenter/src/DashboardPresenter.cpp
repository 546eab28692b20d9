#include <presenter/DashboardPresenter.h>
#include <presenter/Session.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/foundation/Error.h>

#include <QDate>
#include <QDebug>

#include <utility>

namespace tallymere::presenter {

using tlm::adviser::BudgetHealth;
using tlm::budgeting::BudgetTotals;
using tlm::desktop_ui::MainWindow;

namespace {

/// What is too large to count gives way to zeros and the advice to plan smaller: without a dashboard nobody could.
std::pair<BudgetTotals, BudgetHealth> figuresOf(engine::Household const& household)
{
    try {
        return {household.monthlyTotals(), household.health()};
    } catch (tlm::foundation::Error const& uncountable) {
        qWarning() << "Failed to count the budget:" << uncountable.message();
        fiscora::Money const zero(household.content().settings.preferred);
        return {{zero, zero, zero, zero, zero},
                {tlm::adviser::HealthStatuses::Unhealthy, 0.0, {uncountable.message()}}};
    }
}
}

DashboardPresenter::DashboardPresenter(MainWindow& window, Session& session) : window_(window), session_(session)
{
    connect(&window_, &MainWindow::prepareShowDashboard, this, &DashboardPresenter::onPrepareShowDashboard);
}

void DashboardPresenter::onPrepareShowDashboard()
{
    auto const& household = session_.household();
    auto const& settings = household.content().settings;
    auto const [totals, health] = figuresOf(household);
    window_.onShowDashboard(totals, household.due(QDate::currentDate()), health, settings.dueWithin, settings.preferred,
                            settings.displayAs);
}
}
