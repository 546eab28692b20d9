#include "internal/CentralView.h"
#include "internal/ProcessBudgetItemsWidget.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <QDebug>

namespace tlm::desktop_ui {

using foundation::QtPtr;

namespace {

using View = internal::ProcessBudgetItemsWidget;

void joinLookUps(View& view, MainWindow& window)
{
    QObject::connect(&view, &View::lookUpBankAccounts, &window, [&window](auto const& bn) {
        emit window.lookUpBankAccounts(bn, navigation::AllowSubAccounts::Yes);
    });
    QObject::connect(&window, &MainWindow::lookedUpBankAccounts, &view,
                     [&view](auto const& bn, auto const& accountTypes) {
                         if (view.isAwaitingBankAccounts()) { // and not the view that is about to follow
                             view.onLookedUpBankAccounts(bn, accountTypes);
                         }
                     });
    QObject::connect(&view, &View::lookUpBudgetItemDueSources, &window, &MainWindow::lookUpBudgetItemSources);
    QObject::connect(&window, &MainWindow::lookedUpBudgetItemSources, &view, &View::onLookUpBudgetItemDueSources);
}

void joinChanges(View& view, MainWindow& window)
{
    QObject::connect(&view, &View::processed, &window, &MainWindow::processBudgetItemPosted);
    QObject::connect(&view, &View::processedUnexpected, &window, &MainWindow::processBudgetItemPostedUnexpected);
    QObject::connect(&view, &View::skipped, &window, &MainWindow::processBudgetItemSkipped);
    QObject::connect(&window, &MainWindow::processBudgetItemSaveSucceeded, &view, &View::onSaveSucceeded);
    QObject::connect(&window, &MainWindow::processBudgetItemSaveFailed, &view, &View::onSaveFailed);
    QObject::connect(&view, &View::closing, &window, &MainWindow::prepareShowDashboard);
}
}

void MainWindow::onShowProcessBudgetItems(std::chrono::days dueWithin,
                                          std::vector<budgeting::BudgetItemAmountDue> const& items,
                                          std::set<banking::BankName> const& banks, fiscora::Currency preferredCurrency,
                                          std::set<fiscora::Currency> const& usableCurrencies,
                                          navigation::CurrencyDisplayOptions displayAs,
                                          std::set<accounting::AccountCode> const& codes)
{
    qInfo() << "Showing Post Budget Items Widget.";
    QtPtr<View> const view =
        new View(dueWithin, items, banks, preferredCurrency, usableCurrencies, displayAs, codes, this);
    joinLookUps(*view, *this);
    joinChanges(*view, *this);
    internal::showCentral(*this, *view);
}
}
