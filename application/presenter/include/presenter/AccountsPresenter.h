#pragma once

#include <presenter/Refusal.h>
#include <presenter/SaveWalk.h>
#include <tlm/accounting/AccountCode.h>

#include <QObject>

#include <optional>

namespace tlm::accounting {
class Account;
}
namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::presenter {

class Session;

/// Shows the chart of accounts of the open budget, and answers each change to it at once by exactly one success or failure.
///
/// A view tells an entry in two steps: whether the account is closed, then its new code or its removal. Where the first step
/// was refused the code is refused too, with the same sentence, since an accepted code would pass the whole entry off as
/// saved. A removal is judged on its own: what is gone needs no closing. Where the view went away over an accepted first
/// step, and the second is refused, a message box tells so.
class AccountsPresenter : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the presenter.
    AccountsPresenter(tlm::desktop_ui::MainWindow& window, Session& session);

private:
    using Code = tlm::accounting::AccountCode;
    using Number = tlm::accounting::AccountNumber;

    /// How the closing or reopening went that the present walk told last.
    struct FirstStep
    {
        Number account;
        Refusal refusal;
    };

    void onPrepareShowAccounts();
    void onAdded(tlm::accounting::Account const& a);
    void onRecoded(Code const& current, Code const& changed);
    void onClosed(Code const& code);
    void onOpened(Code const& code);
    void onRemoved(Code const& code);

    void takeFirstStep(Code const& code, void (engine::Household::*change)(Number const&));
    bool isAfterFirstStepOf(Number const& account) const { return firstStep_ && firstStep_->account == account; }
    Code storedCode(Code const& told) const;
    void answer(std::optional<Code> const& original, Code const& displayed, Refusal const& refusal);
    /// Sees to it that a refused second step is told where the view went away over the accepted first.
    void tellIfUnseen(Number const& account, Refusal const& refusal);

    tlm::desktop_ui::MainWindow& window_;
    Session& session_;
    SaveWalk walk_;
    std::optional<FirstStep> firstStep_;
};
}
