#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::presenter {

class Session;

/// Answers what the window asks about the budget file: new, open, save, reload, and whether anything would be lost.
///
/// A file that can't be read or written is told in a message box on the window; the open budget then stays as it is.
class BudgetFilePresenter : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the presenter.
    BudgetFilePresenter(tlm::desktop_ui::MainWindow& window, Session& session);

private:
    void onPrepareNewBudgetEmpty();
    void onConfirmedNewBudgetEmpty();
    void onLoadBudgetFile(QString const& filePathName);
    void onConfirmedLoadBudgetFile(QString const& filePathName, bool isReloaded);
    void onReloadBudgetFile();
    void onSaveBudgetFile();
    void onSaveAsBudgetFile(QString const& filePathName);
    void onCheckIsBudgetFileDirty();

    bool mayReplace(QString const& filePathName) const;
    /// \return whether \a attempt went through; else the person has been told why not, under \a title
    bool attemptOrTell(QString const& title, std::function<void()> const& attempt);

    tlm::desktop_ui::MainWindow& window_;
    Session& session_;
    bool isAskingToExit_ = false;
};
}
