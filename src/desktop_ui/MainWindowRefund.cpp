#include "internal/BudgetItemRefundWidget.h"
#include "internal/CentralView.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <QDate>
#include <QDebug>

namespace tlm::desktop_ui {

using accounting::TransactionNumber;
using budgeting::BudgetItemDueIdentifier;
using foundation::QtPtr;

namespace {

using View = internal::BudgetItemRefundWidget;

/// The view asks for the sources of a type, and the window for those of an occurrence.
void joinSources(QtPtr<View> const& view, MainWindow& window)
{
    QObject::connect(view.get(), &View::lookUpBudgetItemSources, &window, [&window](auto const& type) {
        emit window.lookUpBudgetItemSources(BudgetItemDueIdentifier{{type, {}}, QDate()});
    });
    QObject::connect(
        &window, &MainWindow::lookedUpBudgetItemSources, view.get(),
        [view](auto const& /*requestedBy*/, auto const& sources) { view->lookedUpBudgetItemSources(sources); });
}

/// The view has no entry without a number.
void joinAnswers(QtPtr<View> const& view, MainWindow& window)
{
    QObject::connect(
        &window, &MainWindow::transactionSaveSucceeded, view.get(), [view](auto const& displayed, auto const& posted) {
            view->onSaveSucceeded(displayed.value_or(TransactionNumber()), posted.value_or(TransactionNumber()));
        });
    QObject::connect(&window, &MainWindow::transactionSaveFailed, view.get(),
                     [view](auto const& tn, auto const& errorMessage) {
                         view->onSaveFailed(tn.value_or(TransactionNumber()), errorMessage);
                     });
}
}

void MainWindow::onShowBudgetItemRefund(std::set<fiscora::Currency> const& codes,
                                        navigation::CurrencyDisplayOptions displayAs)
{
    qInfo() << "Showing budget item refund.";
    QtPtr<View> const view = new View(codes, displayAs, usesEverydayTerms(), this);
    joinSources(view, *this);
    connect(view.get(), &View::lookUpTransactions, this, &MainWindow::lookUpRefundableTransactions);
    connect(this, &MainWindow::lookedUpRefundableTransactions, view.get(), &View::lookedUpTransactions);
    connect(view.get(), &View::post, this, &MainWindow::postRefund);
    joinAnswers(view, *this);
    connect(view.get(), &View::closing, this, &MainWindow::prepareShowDashboard);
    internal::showCentral(*this, *view);
}
}
