#pragma once

#include <presenter/Refusal.h>
#include <presenter/SaveWalk.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/banking/BankName.h>

#include <QObject>

#include <optional>
#include <set>

namespace fiscora {
class Money;
}
namespace tlm::banking {
class Bank;
}
namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::presenter {

class Session;

/// Shows the banks of the open budget with their accounts, and answers each change to them at once by exactly one success or
/// failure.
///
/// A view tells a bank in steps: its new name, that it is open again, and then that it is closed or which accounts it has.
/// What follows a refused step is refused with the same sentence, since a refused name may be another bank's, and an accepted
/// step would pass the entry off as saved. Where the view went away over an accepted step, and a later one is refused, a
/// message box tells so over a fresh view.
///
/// A new account is told before the bank that is to list it. Where the view goes away in between, nobody could reach the
/// account among the banks, so it is taken back, and the person is told.
class BanksPresenter : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the presenter.
    BanksPresenter(tlm::desktop_ui::MainWindow& window, Session& session);

private:
    using Bank = tlm::banking::Bank;
    using BankName = tlm::banking::BankName;
    using Code = tlm::accounting::AccountCode;
    using Change = std::function<void(engine::Household&)>;

    void joinBanks();
    void joinAccounts();
    void onPrepareShowBanks();

    void onAdded(Bank const& b);
    void onUpdated(Bank const& b);
    void onRenamed(BankName const& original, BankName const& change);
    void onClosed(BankName const& bn);
    void onOpened(BankName const& bn);
    void onRemoved(BankName const& bn);
    void onAddedAccount(QString const& name, tlm::banking::BankAccountTypes type, fiscora::Money const& openingBalance);
    void onRenamedAccount(Code const& original, Code const& changed);
    void onRemovedAccount(Code const& ac);

    void takeStep(BankName const& bn, Change const& change);
    void takeLastStep(BankName const& bn, Change const& change);
    void answer(std::optional<BankName> const& original, BankName const& displayed, Refusal const& refusal);
    void answerAccount(std::optional<Code> const& original, Code const& displayed, Refusal const& refusal);
    void takeBackUnlisted();

    tlm::desktop_ui::MainWindow& window_;
    Session& session_;
    SaveWalk walk_;
    RefusedStep<BankName> refused_;
    std::set<tlm::accounting::AccountNumber> made_; ///< by the present view
};
}
