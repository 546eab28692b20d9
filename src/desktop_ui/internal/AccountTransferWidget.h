#pragma once

#include "ui_AccountTransferWdgt.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/banking/BankName.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/BankAccountCode.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>
#include <QWidget>

#include <optional>
#include <set>

class QAbstractButton;

namespace tlm::desktop_ui::internal {

/// Moves money from one bank account to another, once: the view closes with the first transfer that is posted.
class AccountTransferWidget : public QWidget, private Ui::AccountTransferWdgt
{
    Q_OBJECT

public:
    /// \param fromBanks accounts that money can leave, at most one of a number
    /// \param toBanks accounts that money can enter, at most one of a number
    /// \param usable currencies that an amount may be entered in; those of \a fromBanks are so anyway
    AccountTransferWidget(std::set<navigation::BankAccountCode> const& fromBanks,
                          std::set<navigation::BankAccountCode> const& toBanks,
                          std::set<fiscora::Currency> const& usable,
                          navigation::CurrencyDisplayOptions const& displayAs,
                          foundation::QtPtr<QWidget> const& parent);
    ~AccountTransferWidget() override;

signals:
    void closing();
    /// \param from invalid when a bank was chosen without an account, as is \a to
    /// \param amount in the currency of the account \a from
    /// \param reason as typed, empty for none
    void transferRequested(tlm::accounting::AccountNumber const& from, tlm::accounting::AccountNumber const& to,
                           fiscora::Money const& amount, QString const& reason);

public slots:
    /// The transfer was posted, and the view closes.
    void onSaveSucceeded(std::optional<tlm::accounting::TransactionNumber> const& displayed,
                         std::optional<tlm::accounting::TransactionNumber> const& posted);

    /// \param errorMessage is shown
    void onSaveFailed(std::optional<tlm::accounting::TransactionNumber> const& tn, QString const& errorMessage);

    /// Tells that it closes, and ends. It hides QWidget::close().
    bool close();

private slots:
    void lookUpFromBankAccounts(tlm::banking::BankName const& bn);
    void lookUpToBankAccounts(tlm::banking::BankName const& bn);
    void changedFromAccountNumber(std::optional<tlm::accounting::AccountNumber> const& an);
    void onClicked(tlm::foundation::QtPtr<QAbstractButton> const& button);

private:
    void save();
    void put(fiscora::Money const& amount);

    std::set<navigation::BankAccountCode> fromBanks_;
    std::set<navigation::BankAccountCode> toBanks_;
    navigation::CurrencyDisplayOptions displayAs_;
};
}
