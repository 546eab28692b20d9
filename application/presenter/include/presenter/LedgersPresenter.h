#pragma once

#include <presenter/Refusal.h>
#include <presenter/SaveWalk.h>
#include <presenter/TransactionNumbers.h>
#include <tlm/accounting/LedgerAccount.h>

#include <QObject>

#include <optional>
#include <set>

namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::presenter {

class Session;

/// Shows the ledgers of the open budget and the transfer between its bank accounts, and answers each change to a transaction
/// at once by exactly one success or failure.
///
/// A view changes a transaction and marks it right afterwards. Where the change was refused the mark is refused too, with the
/// same sentence, since an accepted mark would pass the entry off as saved. Where the view went away over the accepted
/// change, and the mark is refused, a message box tells so over a fresh view.
///
/// Marks of several transactions are all made or none, and answered once, by the least of their numbers.
class LedgersPresenter : public QObject
{
    Q_OBJECT

public:
    /// Numbers that ledgers leave to new transactions.
    static constexpr std::size_t leftToNew_ = 535;
    /// Transactions that all ledgers of a view show together.
    static constexpr std::size_t shownAtMost_ = TransactionNumbers::most_ - leftToNew_;

    /// Both must outlive the presenter.
    LedgersPresenter(tlm::desktop_ui::MainWindow& window, Session& session);

private:
    using Number = tlm::accounting::TransactionNumber;
    using Numbers = std::set<Number>;
    using Transaction = tlm::accounting::Transaction;
    using AccountNumber = tlm::accounting::AccountNumber;
    using LedgerAccount = tlm::accounting::LedgerAccount;

    void joinChanges();
    void onPrepareShowLedgers();
    void onPrepareShowMoneyTransfer();
    void onSelectedLedger(tlm::accounting::AccountCode const& code);
    void onAdded(Transaction const& txn);
    void onUpdated(Number const& tn, Transaction const& txn);
    void onMarkCleared(Numbers const& numbers);
    void onMarkUnreconciled(Numbers const& numbers);
    void onMarkReconciled(Number const& number);
    void onRemoved(Number const& number);
    void onTransferRequested(AccountNumber const& from, AccountNumber const& to, fiscora::Money const& amount,
                             QString const& reason);

    void post(std::function<engine::PostingId(engine::Household&)> const& change);
    LedgerAccount ledger(AccountNumber const& number);
    void tellLength(LedgerAccount const& ledger);
    engine::PostingId idOf(Number const& number) const;
    std::set<engine::PostingId> idsOf(Numbers const& numbers) const;
    void mark(Numbers const& numbers, std::function<void(engine::Household&)> const& change);
    Refusal refusedBefore(Numbers const& numbers) const;
    void answer(std::optional<Number> const& displayed, std::optional<Number> const& posted, Refusal const& refusal);

    tlm::desktop_ui::MainWindow& window_;
    Session& session_;
    SaveWalk walk_;
    TransactionNumbers numbers_;
    RefusedStep<Number> refused_;
};
}
