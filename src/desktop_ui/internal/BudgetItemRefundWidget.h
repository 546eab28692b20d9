#pragma once

#include "ui_budgetItemRefundWdgt.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/budgeting/BudgetItemIdentifier.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>
#include <QWidget>

#include <optional>
#include <set>

class QAbstractButton;

namespace tlm::desktop_ui::internal {

/// Posts a refund of a transaction that was made from a budget item, once: the view closes soon after it.
///
/// Nothing is kept of what was chosen: Discard closes the view at any time.
class BudgetItemRefundWidget : public QWidget, private Ui::budgetItemRefundWdgt
{
    Q_OBJECT

public:
    /// \param usable currencies of refunds; that of a transaction has to be among them
    BudgetItemRefundWidget(std::set<fiscora::Currency> const& usable,
                           navigation::CurrencyDisplayOptions const& displayAs, bool const& usesEverydayTerms,
                           foundation::QtPtr<QWidget> const& parent);
    ~BudgetItemRefundWidget() override;

signals:
    void closing();
    /// lookedUpBudgetItemSources() answers.
    void lookUpBudgetItemSources(tlm::budgeting::BudgetItemTypes const& bit);
    /// lookedUpTransactions() answers.
    void lookUpTransactions(tlm::budgeting::BudgetItemIdentifier const& bii);
    /// onSaveSucceeded() or onSaveFailed() answers.
    /// \param refund as entered, which may be any amount
    void post(tlm::accounting::TransactionNumber const& txnNum, fiscora::Money const& refund);

public slots:
    /// Tells that it closes, and ends. It hides QWidget::close().
    bool close();

    void lookedUpBudgetItemSources(std::set<tlm::budgeting::BudgetSource> const& sources);

    /// Shows the transactions.
    /// \param ac the ledger that each of \a txns belongs to
    void lookedUpTransactions(tlm::budgeting::BudgetItemIdentifier const& bii, tlm::accounting::AccountCode const& ac,
                              std::set<tlm::accounting::Transaction> const& txns);

    /// Tells the number \a posted of the refund for a moment, and closes.
    void onSaveSucceeded(tlm::accounting::TransactionNumber const& original,
                         tlm::accounting::TransactionNumber const& posted);

    /// \param errorMessage is shown
    void onSaveFailed(tlm::accounting::TransactionNumber const& original, QString const& errorMessage);

private slots:
    void onTypeChanged();
    void onSourceChanged();
    void onSelectedTransaction(std::optional<tlm::accounting::TransactionNumber> const& txnNum);
    void onDeselectedTransaction(std::optional<tlm::accounting::TransactionNumber> const& txnNum);
    void onClicked(tlm::foundation::QtPtr<QAbstractButton> const& button);

private:
    void setUpItem();
    void setUpTransactions(std::set<fiscora::Currency> usable, navigation::CurrencyDisplayOptions displayAs,
                           bool usesEverydayTerms);
    void setUpAmount(std::set<fiscora::Currency> const& usable, navigation::CurrencyDisplayOptions displayAs);
    void forgetTransactions();
    void postSelected();

    std::optional<accounting::AccountCode> ledger_; ///< whose transactions are on show
};
}
