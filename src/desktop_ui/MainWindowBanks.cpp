#include "internal/AccountTransferWidget.h"
#include "internal/BanksWidget.h"
#include "internal/CentralView.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <QDebug>

namespace tlm::desktop_ui {

using foundation::QtPtr;
using internal::AccountTransferWidget;
using internal::BanksWidget;

void MainWindow::onShowMoneyTransfer(std::set<navigation::BankAccountCode> const& fromBanks,
                                     std::set<navigation::BankAccountCode> const& toBanks,
                                     std::set<fiscora::Currency> const& usableCurrencies,
                                     navigation::CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing account money transfer.";
    using View = AccountTransferWidget;
    QtPtr<View> const view = new View(fromBanks, toBanks, usableCurrencies, displayAs, this);
    connect(view.get(), &View::transferRequested, this, &MainWindow::transferRequested);
    connect(this, &MainWindow::transactionSaveSucceeded, view.get(), &View::onSaveSucceeded);
    connect(this, &MainWindow::transactionSaveFailed, view.get(), &View::onSaveFailed);
    connect(view.get(), &View::closing, this, &MainWindow::prepareShowDashboard);
    internal::showCentral(*this, *view);
}

void MainWindow::onShowBanks(banking::BankMap const& banks, std::set<accounting::Account> const& allAccounts,
                             std::set<fiscora::Currency> const& usableCurrencies,
                             navigation::CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing Bank Entry Widget.";
    using View = BanksWidget;
    QtPtr<View> const view = new View(banks, allAccounts, usableCurrencies, displayAs, this);
    connect(view.get(), &View::added, this, &MainWindow::bankAdded);
    connect(view.get(), &View::updated, this, &MainWindow::bankUpdated);
    connect(view.get(), &View::rename, this, &MainWindow::bankRenamed);
    connect(view.get(), &View::closed, this, &MainWindow::bankClosed);
    connect(view.get(), &View::opened, this, &MainWindow::bankOpened);
    connect(view.get(), &View::removed, this, &MainWindow::bankRemoved);
    connect(view.get(), &View::addedAccount, this, &MainWindow::addedBankAccount);
    connect(view.get(), &View::renamedAccount, this, &MainWindow::renamedBankAccount);
    connect(view.get(), &View::removedAccount, this, &MainWindow::removedBankAccount);
    connect(this, &MainWindow::bankSaveSucceeded, view.get(), &View::onSaveSucceeded);
    connect(this, &MainWindow::bankSaveFailed, view.get(), &View::onSaveFailed);
    connect(this, &MainWindow::bankAccountSaveSucceeded, view.get(), &View::onAccountSaveSucceeded);
    connect(this, &MainWindow::bankAccountSaveFailed, view.get(), &View::onAccountSaveFailed);
    connect(view.get(), &View::closing, this, &MainWindow::prepareShowDashboard);
    internal::showCentral(*this, *view);
}
}
