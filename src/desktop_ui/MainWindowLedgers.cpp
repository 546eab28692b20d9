#include "internal/CentralView.h"
#include "internal/LedgersWidget.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <QDebug>

namespace tlm::desktop_ui {

using foundation::QtPtr;
using internal::LedgersWidget;

namespace {

void join(LedgersWidget& view, MainWindow& window)
{
    using View = LedgersWidget;
    QObject::connect(&view, &View::selectedLedger, &window, &MainWindow::selectedLedger);
    QObject::connect(&window, &MainWindow::showLedger, &view, &View::onShowLedger);
    QObject::connect(&view, &View::removedTransaction, &window, &MainWindow::removedTransaction);
    QObject::connect(&view, &View::addedTransaction, &window, &MainWindow::addedTransaction);
    QObject::connect(&view, &View::updatedTransaction, &window, &MainWindow::updatedTransaction);
    QObject::connect(&view, &View::markCleared, &window, &MainWindow::markCleared);
    QObject::connect(&view, &View::markReconciled, &window, &MainWindow::markReconciled);
    QObject::connect(&window, &MainWindow::transactionSaveSucceeded, &view, &View::onSaveSucceeded);
    QObject::connect(&window, &MainWindow::transactionSaveFailed, &view, &View::onSaveFailed);
    QObject::connect(&view, &View::closing, &window, &MainWindow::prepareShowDashboard);
}
}

void MainWindow::onShowLedgers(std::set<accounting::Account> const& accounts,
                               std::set<fiscora::Currency> const& usableCurrencies,
                               navigation::CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing Ledgers Widget.";
    QtPtr<LedgersWidget> const view =
        new LedgersWidget(accounts, usableCurrencies, displayAs, usesEverydayTerms(), this);
    join(*view, *this);
    internal::showCentral(*this, *view);
}
}
