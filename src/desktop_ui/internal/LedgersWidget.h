#pragma once

#include "ui_LedgersWdgt.h"

#include <fiscora/Currency.h>
#include <tlm/accounting/Account.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/LedgerAccount.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>
#include <QWidget>

#include <optional>
#include <set>
#include <vector>

class QAbstractButton;
class QPushButton;
class QTreeWidgetItem;

namespace tlm::desktop_ui::internal {

/// Browses and edits the general ledger: all accounts by type, and the transactions of the one that is chosen.
///
/// A ledger is asked for when it is first chosen, and stays loaded from then on.
class LedgersWidget : public QWidget, private Ui::LedgersWdgt
{
    Q_OBJECT

public:
    /// \param accounts whose ledgers can be chosen, and which transactions may name
    /// \param usable currencies that amounts may be entered in
    LedgersWidget(std::set<accounting::Account> accounts, std::set<fiscora::Currency> usable,
                  navigation::CurrencyDisplayOptions const& displayAs, bool const& usesEverydayTerms,
                  foundation::QtPtr<QWidget> const& parent);

signals:
    void closing();
    /// onShowLedger() answers, sooner or later.
    void selectedLedger(tlm::accounting::AccountCode const& code);
    void addedTransaction(tlm::accounting::Transaction const& txn);
    void updatedTransaction(tlm::accounting::TransactionNumber const& tn, tlm::accounting::Transaction const& txn);
    void markCleared(std::set<tlm::accounting::TransactionNumber> const& tns);
    void markReconciled(tlm::accounting::TransactionNumber const& txnNum);
    void removedTransaction(tlm::accounting::TransactionNumber const& txnNum);

public slots:
    /// Files the transactions under the account that is chosen now, and shows those of \a ledger.
    void onShowLedger(tlm::accounting::LedgerAccount const& ledger);

    /// Tells that it closes, and ends. It hides QWidget::close().
    bool close();

    void onSaveSucceeded(std::optional<tlm::accounting::TransactionNumber> const& displayed,
                         std::optional<tlm::accounting::TransactionNumber> const& posted);
    void onSaveFailed(std::optional<tlm::accounting::TransactionNumber> const& txnNum, QString const& errorMessage);

private slots:
    void onClicked(tlm::foundation::QtPtr<QAbstractButton> const& button);
    void handleSelectedAccount(tlm::foundation::QtPtr<QTreeWidgetItem> const& current,
                               tlm::foundation::QtPtr<QTreeWidgetItem> const& previous);

private:
    std::vector<accounting::AccountCode> list();
    void joinTransactions();
    void save();
    void add();
    void putCursorIntoNewEntry();

    foundation::QtPtr<QPushButton> addBttn_;
    std::set<accounting::Account> accounts_;
};
}
