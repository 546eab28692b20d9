#pragma once

#include <QObject>

namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::presenter {

class Session;

/// Answers the window's wish for the dashboard with figures of the open budget as they stand today.
class DashboardPresenter : public QObject
{
public:
    /// Both must outlive the presenter.
    DashboardPresenter(tlm::desktop_ui::MainWindow& window, Session& session);

private:
    void onPrepareShowDashboard();

    tlm::desktop_ui::MainWindow& window_;
    Session& session_;
};
}
