#include <presenter/BudgetFilePresenter.h>
#include <presenter/Messages.h>
#include <presenter/Session.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/foundation/ScopeExecutor.h>

#include <QFileInfo>
#include <QMessageBox>

namespace tallymere::presenter {

using tlm::desktop_ui::MainWindow;

namespace {

/// A name typed without a suffix gets the one by which the open dialog will find it again.
QString withSuffix(QString const& filePathName)
{
    return QFileInfo(filePathName).suffix().isEmpty() ? filePathName + QStringLiteral(".budget") : filePathName;
}
}

BudgetFilePresenter::BudgetFilePresenter(MainWindow& window, Session& session) : window_(window), session_(session)
{
    using Self = BudgetFilePresenter;
    connect(&window_, &MainWindow::prepareNewBudgetEmpty, this, &Self::onPrepareNewBudgetEmpty);
    connect(&window_, &MainWindow::confirmedNewBudgetEmpty, this, &Self::onConfirmedNewBudgetEmpty);
    connect(&window_, &MainWindow::loadBudgetFile, this, &Self::onLoadBudgetFile);
    connect(&window_, &MainWindow::confirmedLoadBudgetFile, this, &Self::onConfirmedLoadBudgetFile);
    connect(&window_, &MainWindow::reloadBudgetFile, this, &Self::onReloadBudgetFile);
    connect(&window_, &MainWindow::saveBudgetFile, this, &Self::onSaveBudgetFile);
    connect(&window_, &MainWindow::saveAsBudgetFile, this, &Self::onSaveAsBudgetFile);
    connect(&window_, &MainWindow::checkIsBudgetFileDirty, this, &Self::onCheckIsBudgetFileDirty);
}

void BudgetFilePresenter::onPrepareNewBudgetEmpty()
{
    if (session_.isDirty()) {
        window_.onShowConfirmNewBudget();
    } else {
        onConfirmedNewBudgetEmpty();
    }
}

void BudgetFilePresenter::onConfirmedNewBudgetEmpty()
{
    if (attemptOrTell(tr("New Budget"), [this] { session_.beginEmpty(); })) {
        window_.onShowNewBudget();
    }
}

void BudgetFilePresenter::onLoadBudgetFile(QString const& filePathName)
{
    if (session_.isDirty()) {
        window_.onShowConfirmLoadBudgetFile(filePathName);
    } else {
        onConfirmedLoadBudgetFile(filePathName, false);
    }
}

void BudgetFilePresenter::onConfirmedLoadBudgetFile(QString const& filePathName, bool isReloaded)
{
    if (attemptOrTell(tr("Open Budget"), [&] { session_.open(filePathName); })) {
        window_.onLoadedBudgetFile(filePathName, isReloaded);
    }
}

void BudgetFilePresenter::onReloadBudgetFile()
{
    auto const current = session_.document().filePathName();
    if (current.isEmpty()) {
        window_.onShowNoBudgetFileOpened();
        return;
    }
    onConfirmedLoadBudgetFile(current, true);
}

void BudgetFilePresenter::onSaveBudgetFile()
{
    auto const current = session_.document().filePathName();
    if (current.isEmpty()) {
        window_.onShowSaveAsBudgetFile();
        return;
    }
    if (attemptOrTell(tr("Save Budget"), [this] { session_.save(); })) {
        window_.onSavedBudgetFile(current);
    }
}

void BudgetFilePresenter::onSaveAsBudgetFile(QString const& filePathName)
{
    auto const named = withSuffix(filePathName);
    if (named != filePathName && !mayReplace(named)) {
        return;
    }
    if (attemptOrTell(tr("Save Budget"), [&] { session_.saveAs(named); })) {
        window_.onSavedBudgetFile(named);
    }
}

void BudgetFilePresenter::onCheckIsBudgetFileDirty()
{
    // The question waits within this call, so a second wish to close meanwhile finds it on screen already.
    if (!isAskingToExit_) {
        isAskingToExit_ = true;
        tlm::foundation::ScopeExecutor const asked([this] { isAskingToExit_ = false; });
        window_.onCheckCleanExit(session_.isDirty());
    }
}

/// The file dialog asked about the name as it was typed, so a name that got its suffix here has to be asked about
/// again.
bool BudgetFilePresenter::mayReplace(QString const& filePathName) const
{
    if (!QFileInfo::exists(filePathName)) {
        return true;
    }
    QMessageBox box(QMessageBox::Question, tr("Save Budget"),
                    tr("'%1' exists already. Do you want to replace it?").arg(filePathName),
                    QMessageBox::Yes | QMessageBox::No, &window_);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

bool BudgetFilePresenter::attemptOrTell(QString const& title, std::function<void()> const& attempt)
{
    try {
        attempt();
    } catch (std::exception const& failure) {
        tellFailure(window_, title, QString::fromUtf8(failure.what()));
        return false;
    }
    return true;
}
}
