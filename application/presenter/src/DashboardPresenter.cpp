#include <presenter/DashboardPresenter.h>
#include <presenter/Session.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/foundation/Error.h>

#include <QDate>
#include <QDebug>

#include <utility>
#include <vector>

namespace tallymere::presenter {

using tlm::adviser::BudgetHealth;
using tlm::budgeting::BudgetItemAmountDue;
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

/// \return nothing where even a single day is too large to count: the advice then tells so, since its month is as well
std::vector<BudgetItemAmountDue> dueToday(engine::Household const& household)
{
    try {
        return household.due(QDate::currentDate());
    } catch (tlm::foundation::Error const& uncountable) {
        qWarning() << "Failed to count what is due:" << uncountable.message();
        return {};
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
    window_.onShowDashboard(totals, dueToday(household), health, settings.dueWithin, settings.preferred,
                            settings.displayAs);
}
}
