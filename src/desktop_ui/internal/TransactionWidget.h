#pragma once

#include "ui_TransactionWdgt.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/accounting/TransactionStatuses.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QDate>
#include <QString>
#include <QWidget>

#include <optional>
#include <set>
#include <vector>

namespace tlm::desktop_ui::internal {

class OtherAccounts;

/// The form of one transaction, seen from one of its two accounts: it shows the other one, and which side that one stands on.
class TransactionWidget : public QWidget, private Ui::TransactionWdgt
{
    Q_OBJECT

public:
    /// \param txn one without a number is new, and nothing else of it is shown
    /// \param ledger the account that the transaction is seen from
    /// \param accounts offered as the other account, but for \a ledger
    /// \param usable currencies that the amount may be entered in
    /// \param usesEverydayTerms whether the sides are named without debit and credit
    TransactionWidget(accounting::Transaction const& txn, accounting::AccountCode const& ledger,
                      std::vector<accounting::AccountCode> accounts, std::set<fiscora::Currency> const& usable,
                      navigation::CurrencyDisplayOptions const& displayAs, bool const& usesEverydayTerms,
                      foundation::QtPtr<QWidget> const& parent);

    /// As above, for many forms of one ledger: it costs the same whatever the number of accounts.
    /// \param accounts made for \a ledger
    TransactionWidget(OtherAccounts const& accounts, accounting::Transaction const& txn,
                      accounting::AccountCode const& ledger, std::set<fiscora::Currency> const& usable,
                      navigation::CurrencyDisplayOptions const& displayAs, bool const& usesEverydayTerms,
                      foundation::QtPtr<QWidget> const& parent);
    ~TransactionWidget() override;

    /// \return none for a new transaction
    std::optional<accounting::TransactionNumber> number() const;
    QDate occurredOn() const;

    /// \return the description as typed
    QString description() const;

    /// \throws DataEntryError as MoneyEntryWidget::amount() does
    fiscora::Money amount() const;

    /// \return whether the other account is credited. Neither side is chosen in a new transaction.
    bool isCredited() const;
    bool isDebited() const;

    /// \return none as long as none is chosen
    std::optional<accounting::AccountCode> otherAccount() const;
    accounting::AccountCode const& ledger() const noexcept { return ledger_; }

    /// \return the account on this side: the ledger as long as the other account isn't chosen for it, a default code when
    ///         that one is chosen for it without being known
    accounting::AccountCode debiting() const;
    accounting::AccountCode crediting() const;

    /// \return what the form shows, with the description as typed
    /// \throws foundation::Error when the form shows no transaction, as amount() does or as its constructor does
    accounting::Transaction transaction() const;

    /// \return what the books are to post in the place of what they have: without number and status, and with the
    ///         description trimmed, none when nothing is left of it
    /// \throws foundation::Error as transaction() does
    accounting::Transaction requested() const;

    accounting::TransactionStatuses status() const;
    bool isCleared() const;
    bool isReconciled() const;

    /// \return whether the person wants the transaction removed
    bool isRemoved() const;
    bool isSelected() const;
    void deselect();

    bool isDirty() const noexcept { return isDirty_; }
    bool isReadOnly() const;
    void setReadOnly(bool isReadOnly);

    /// \param isShown whether the person can select the transaction
    void showSelection(bool isShown);

    /// Offers \a account as the other account, unless it is the ledger.
    void addAccount(accounting::AccountCode const& account);

    /// Shows why the transaction could not be saved, nothing for an empty \a message, and is dirty.
    void showError(QString const& message);
    bool hasError() const;

    /// Is clean. \param posted is the transaction's number from here on, unless it is none
    void saved(std::optional<accounting::TransactionNumber> const& posted);

signals:
    void selected(std::optional<tlm::accounting::TransactionNumber> const& txnNum);
    void deselected(std::optional<tlm::accounting::TransactionNumber> const& txnNum);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void markDirty();
    void onStateChanged(int rawState);

private:
    void setNumber(accounting::TransactionNumber const& number);
    void orderTabs();
    void offer(OtherAccounts const& accounts);
    void fill(accounting::Transaction const& txn, OtherAccounts const& accounts);
    void join();

    bool isDirty_ = false;
    accounting::AccountCode ledger_;
};
}
