#include "internal/AccountsWidget.h"
#include "internal/CentralView.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <QDebug>

namespace tlm::desktop_ui {

using foundation::QtPtr;
using internal::AccountsWidget;

namespace {

void join(AccountsWidget& view, MainWindow& window)
{
    using View = AccountsWidget;
    QObject::connect(&view, &View::added, &window, &MainWindow::addedAct);
    QObject::connect(&view, &View::recoded, &window, &MainWindow::recoded);
    QObject::connect(&view, &View::closed, &window, &MainWindow::closed);
    QObject::connect(&view, &View::opened, &window, &MainWindow::opened);
    QObject::connect(&view, &View::removed, &window, &MainWindow::removedAct);
    QObject::connect(&window, &MainWindow::accountSaveSucceeded, &view, &View::onSaveSucceeded);
    QObject::connect(&window, &MainWindow::accountSaveFailed, &view, &View::onSaveFailed);
    QObject::connect(&view, &View::closing, &window, &MainWindow::prepareShowDashboard);
}
}

void MainWindow::onShowAccounts(std::set<accounting::Account> const& accounts,
                                std::set<fiscora::Currency> const& usableCurrencies,
                                navigation::CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing Accounts Widget.";
    QtPtr<AccountsWidget> const view = new AccountsWidget(accounts, usableCurrencies, displayAs, this);
    join(*view, *this);
    internal::showCentral(*this, *view);
}
}
