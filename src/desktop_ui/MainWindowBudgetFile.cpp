#include "tlm/desktop_ui/MainWindow.h"
#include "ui_TlmMnwndw.h"

#include <QDebug>
#include <QFileDialog>
#include <QMessageBox>
#include <QStandardPaths>

namespace tlm::desktop_ui {

using foundation::QtPtr;

namespace {

constexpr std::chrono::milliseconds statusStays{5000};
}

// Built while the library loads, before a translator can be installed: its words are the same in every language.
QString const MainWindow::budgetFileExtensionFilter_ =
    MainWindow::tr("Budget Files (*%1);;All Files (*.*)").arg(QStringLiteral(".budget"));

void MainWindow::onShowConfirmNewBudget()
{
    if (!isConfirmed(tr("Confirm New Budget"),
                     tr("Are you sure you wish to create a new budget?\nThis will lose all current changes."))) {
        return;
    }
    // A presenter may ask although no new budget was wished for; that is an empty one.
    if (useWizard_.value_or(false)) {
        emit confirmedNewBudgetFirstTimeWizard();
    } else {
        emit confirmedNewBudgetEmpty();
    }
    useWizard_.reset();
}

void MainWindow::onShowNewBudget()
{
    showStatus(tr("Created New Budget"));
    emit prepareShowDashboard();
}

void MainWindow::onShowOpenBudgetFile()
{
    qInfo() << "Displaying Open Budget File Dialog.";
    auto const dialog = makeFileDialog(tr("Open Budget"));
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    connect(dialog.get(), &QFileDialog::fileSelected, this, &MainWindow::loadBudgetFile);
    dialog->show();
}

void MainWindow::onShowSaveAsBudgetFile()
{
    qInfo() << "Displaying Save As Budget File Dialog.";
    auto const dialog = makeFileDialog(tr("Save Budget As..."));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    connect(dialog.get(), &QFileDialog::fileSelected, this, &MainWindow::saveAsBudgetFile);
    dialog->show();
}

QtPtr<QFileDialog> MainWindow::makeFileDialog(QString const& caption)
{
    QtPtr<QFileDialog> dialog = new QFileDialog(
        this, caption, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), budgetFileExtensionFilter_);
    connect(dialog.get(), &QDialog::finished, dialog.get(), &QObject::deleteLater);
    return dialog;
}

void MainWindow::onShowConfirmLoadBudgetFile(QString const& filePathName)
{
    auto const question =
        tr("Are you sure you wish to open a the budget file:\n\t'%1'?\nThis will lose all the current changes.");
    if (isConfirmed(tr("Confirm Open Budget"), question.arg(filePathName))) {
        emit confirmedLoadBudgetFile(filePathName, false);
    }
}

void MainWindow::onLoadedBudgetFile(QString const& filePathName, bool isReloaded)
{
    showStatus(tr("%1: '%2'").arg(isReloaded ? tr("Reloaded") : tr("Opened"), filePathName));
    // No view may outlive its budget, even when no dashboard comes. One that was dropped so already is gone by now.
    if (auto* const view = centralWidget()) {
        view->deleteLater();
    }
    emit prepareShowDashboard();
}

void MainWindow::onSavedBudgetFile(QString const& filePathName)
{
    qInfo() << "Successfully stored budget.";
    showStatus(tr("Saved: '%1'").arg(filePathName));
}

void MainWindow::onShowNoBudgetFileOpened()
{
    qInfo() << "There is not a budget file currently to reload.";
    showStatus(tr("No budget file opened to reload."));
}

void MainWindow::onCheckCleanExit(bool isDirty)
{
    if (isDirty && !isConfirmed(tr("Confirm Exiting"),
                                tr("Are you sure you wish to exit?\nThere are unsaved changes. Exiting will lose all "
                                   "current changes."))) {
        isExitConfirmed_ = false;
        return;
    }
    isExitConfirmed_ = true;
    close();
}

bool MainWindow::isConfirmed(QString const& title, QString const& question)
{
    return QMessageBox::question(this, title, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) !=
           QMessageBox::No;
}

void MainWindow::showStatus(QString const& message)
{
    ui_->infoSttsbr->showMessage(message, static_cast<int>(statusStays.count()));
}
}
