#include "internal/LedgersWidget.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <tlm/navigation/ConfigurationOptions.h>

#include <QDebug>

#include <memory>

namespace tlm::desktop_ui {

namespace {

void join(internal::LedgersWidget& view, MainWindow& window)
{
    using View = internal::LedgersWidget;
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
} // namespace

void MainWindow::onShowLedgers(std::set<accounting::Account> const& accounts,
                               std::set<fiscora::Currency> const& usableCurrencies,
                               navigation::CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing Ledgers Widget.";
    auto const everydayTerms = configuration_.usesEverydayTerms || !configuration_.isAccounting;
    auto view = std::make_unique<internal::LedgersWidget>(accounts, usableCurrencies, displayAs, everydayTerms, this);
    join(*view, *this);
    setCentralWidget(view.release());
}
} // namespace tlm::desktop_ui
