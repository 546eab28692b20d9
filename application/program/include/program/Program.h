#pragma once

#include <presenter/AccountsPresenter.h>
#include <presenter/BanksPresenter.h>
#include <presenter/BudgetFilePresenter.h>
#include <presenter/DashboardPresenter.h>
#include <presenter/LedgersPresenter.h>
#include <presenter/PlanningPresenter.h>
#include <presenter/Session.h>
#include <presenter/UnansweredPresenter.h>
#include <presenter/WindowTitle.h>
#include <program/CommandLine.h>
#include <services/Preferences.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

namespace tallymere::program {

/// Wires the rooms: one window, one open budget, and the presenters between them.
class Program
{
public:
    explicit Program(StartOptions const& options);
    ~Program();

    /// Shows the window with the budget that was asked for, the one open last, or a new one.
    ///
    /// A file that can't be opened is told on the window, over a new budget.
    /// \throws storage::DocumentError when not even a new budget can be begun, on a full disk for example
    void start();

    tlm::desktop_ui::MainWindow& window() { return window_; }
    presenter::Session& session() { return session_; }

private:
    QString openFirst();
    /// \throws storage::DocumentError when the sample can't be made
    QString firstFile() const;
    void rememberOpenedFile();
    void rememberFile();

    StartOptions options_;
    services::Preferences preferences_;
    tlm::navigation::ConfigurationOptions wording_;
    presenter::Session session_;
    tlm::desktop_ui::MainWindow window_;
    presenter::WindowTitle title_;
    presenter::DashboardPresenter dashboard_;
    presenter::PlanningPresenter planning_;
    presenter::AccountsPresenter accounts_;
    presenter::LedgersPresenter ledgers_;
    presenter::BanksPresenter banks_;
    presenter::BudgetFilePresenter budgetFile_;
    presenter::UnansweredPresenter unanswered_;
};
}
