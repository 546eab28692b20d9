#pragma once

#include "ui_BankAccountsWidget.h"

#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/banking/BankName.h>
#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QWidget>

#include <memory>
#include <optional>
#include <set>

namespace tlm::desktop_ui::internal {

/// Picks a bank account: a bank, one of its accounts, and the type of that account, which follows the account.
///
/// Knows no accounts by itself. When a bank is chosen it asks with lookUpBankAccounts(), and its owner answers with
/// lookedUpBankAccounts().
class BankAccountsWidget : public QWidget, private Ui::BankAccountsWidget
{
    Q_OBJECT

    using Codes = std::shared_ptr<std::set<accounting::AccountCode> const>;

public:
    /// \param types offered in the order of their values, all when there is no set; `Unspecified` is never offered
    /// \param codes of all accounts that an answer may name
    BankAccountsWidget(std::set<banking::BankName> const& banks,
                       std::optional<std::set<banking::BankAccountTypes>> const& types,
                       std::set<accounting::AccountCode> const& codes, foundation::QtPtr<QWidget> const& parent);

    /// Knows no banks and no codes, and offers all types but `Unspecified`.
    explicit BankAccountsWidget(foundation::QtPtr<QWidget> const& parent);

    /// Offers \a banks anew and chooses none of them, as if the blank row were picked.
    void setBanks(std::set<banking::BankName> const& banks);

    /// Resolves account numbers against \a codes from here on. The accounts offered stay.
    void setCodes(std::set<accounting::AccountCode> const& codes);

    /// As setCodes(), for many widgets that know the same \a codes.
    void shareCodes(Codes codes);

    /// Offers \a types anew, `Unspecified` too if it is among them, and chooses none of them, without a signal.
    void setTypes(std::set<banking::BankAccountTypes> const& types);

    /// Names what the account is picked for, ahead of the boxes. None takes no room.
    void setDescription(std::optional<QString> const& description);

    void setReadOnly(bool isReadOnly);
    void hideAccount();
    void showAccount();

    /// Leaves the type to the account from here on, also when the widget is no longer read-only.
    void disableType();

    std::set<accounting::AccountCode> const& codes() const noexcept { return *codes_; }

    /// \return the bank chosen, if one is
    std::optional<banking::BankName> bank() const;

    /// \return the banks on offer
    std::set<banking::BankName> banks() const;

    /// \return number and name of the account chosen, if one is; its parent isn't told
    std::optional<accounting::AccountCode> accountCode() const;

    /// \return the type chosen, if one is
    std::optional<banking::BankAccountTypes> type() const;

    /// \return none when no bank is chosen; otherwise what is missing stands as a default number and `Unspecified`
    std::optional<banking::BankAccount> bankAccount() const;

    /// Chooses \a bank, or none.
    ///
    /// \throws DataEntryError when \a bank isn't on offer; the choice stays as it was
    void setBank(std::optional<banking::BankName> const& bank);

    /// Chooses all of \a bankAccount, without a signal of this widget. An account that the bank's look-up hasn't told
    /// yet is offered as well, and a type that isn't on offer leaves the type blank.
    ///
    /// \throws DataEntryError when its bank isn't on offer; nothing changes then
    /// \throws banking::BankError when its number is none of codes(); the bank is chosen then
    void select(banking::BankAccount const& bankAccount);

public slots:
    /// Offers the accounts \a accountTypes of the bank chosen, in their order, and chooses none of them.
    ///
    /// \throws banking::BankError when a number is none of codes(); the accounts ahead of it are on offer then
    void lookedUpBankAccounts(std::set<tlm::banking::AccountNumberBankType> accountTypes);

signals:
    /// A bank was chosen, and its accounts are wanted.
    void lookUpBankAccounts(tlm::banking::BankName const& bn);

    /// Another row of its box was chosen; none stands for the blank one.
    void changedBankName(std::optional<tlm::banking::BankName> const& bn);
    /// Another row of its box was chosen, or the rows were emptied; none stands for the blank one.
    void changedAccountNumber(std::optional<tlm::accounting::AccountNumber> const& an);
    /// Another row of its box was chosen, by the person or by the account; `Unspecified` stands for the blank one.
    void changedBankAccountType(tlm::banking::BankAccountTypes sat);

private slots:
    void onBankCurrentIndexChanged(int index);
    void onAccountCodesCurrentIndexChanged(int index);
    void onTypeCurrentIndexChanged(int index);

private:
    struct Accounts;

    void setType(banking::BankAccountTypes type);
    int ensureRow(banking::AccountNumberBankType const& account);
    void raiseUnknown(Accounts const& accounts) const;

    std::set<banking::AccountNumberBankType> accountTypes_;
    Codes codes_;                              ///< shared by all widgets that know the same
    std::shared_ptr<Accounts const> lookedUp_; ///< shared by all widgets that were answered the same
    bool isTypeDisabled_ = false;
};
}
