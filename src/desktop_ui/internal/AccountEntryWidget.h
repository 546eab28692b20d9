#pragma once

#include "ui_AccountEntryWdgt.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/accounting/AccountTypes.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>
#include <QWidget>

#include <optional>
#include <set>

namespace tlm::desktop_ui::internal {

class ParentNumbers;
class ParentNumbersModel;

/// The form of one account: as the ledger keeps it, or as a bank does.
///
/// The form of a ledger account has a number and a parent, that of a bank account has neither.
class AccountEntryWidget : public QWidget, private Ui::AccountEntryWdgt
{
    Q_OBJECT

public:
    /// \param code none for an account that the ledger hasn't seen
    /// \param type shown unless it is none
    /// \param numbers offered as parents
    /// \param usable currencies that the balance may be entered in
    /// \param bankType shown unless it is none, in the place of number and parent
    AccountEntryWidget(std::optional<accounting::AccountCode> code, bool closed,
                       std::optional<accounting::AccountTypes> type, fiscora::Money const& balance,
                       std::set<accounting::AccountNumber> const& numbers, std::set<fiscora::Currency> const& usable,
                       navigation::CurrencyDisplayOptions const& displayAs,
                       std::optional<banking::BankAccountTypes> bankType, foundation::QtPtr<QWidget> const& parent);

    /// As above, for many forms of one chart: it costs the same whatever the number of accounts.
    AccountEntryWidget(ParentNumbers const& numbers, std::optional<accounting::AccountCode> code, bool closed,
                       std::optional<accounting::AccountTypes> type, fiscora::Money const& balance,
                       std::set<fiscora::Currency> const& usable, navigation::CurrencyDisplayOptions const& displayAs,
                       std::optional<banking::BankAccountTypes> bankType, foundation::QtPtr<QWidget> const& parent);

    /// The form of a ledger account.
    AccountEntryWidget(std::optional<accounting::AccountCode> code, bool closed, accounting::AccountTypes type,
                       fiscora::Money const& balance, std::set<accounting::AccountNumber> const& numbers,
                       std::set<fiscora::Currency> const& usable, navigation::CurrencyDisplayOptions const& displayAs,
                       foundation::QtPtr<QWidget> const& parent);

    /// The form of a new bank account, which shows the ledger's type too and offers no currency yet.
    explicit AccountEntryWidget(foundation::QtPtr<QWidget> const& parent);
    ~AccountEntryWidget() override;

    /// \return what a row says of an account that has neither number nor name yet
    static QString const& newEntryText();

    /// \return the number as typed, cut to 32 bits; AccountNumber::invalid_ for what is no number
    unsigned int number() const;

    /// \return why number() isn't what was typed, none where it is
    std::optional<QString> numberErrorMessage() const;

    QString name() const;

    /// \return number of the account that this one is part of, none for none. It hides QObject::parent().
    std::optional<unsigned int> parent() const;

    /// \throws DataEntryError as MoneyEntryWidget::amount() does
    fiscora::Money balance() const;

    /// Lets the balance be entered in \a usable, and chooses none of them unless it is the only one.
    void setUsableCurrencies(std::set<fiscora::Currency> const& usable,
                             navigation::CurrencyDisplayOptions const& displayAs);

    /// \return the text of the chosen AccountTypes
    QString ledgerType() const;

    /// \return none for an unspecified one
    std::optional<banking::BankAccountTypes> bankType() const;

    /// \return the account as the ledger knows it; none as long as it doesn't
    std::optional<accounting::AccountCode> const& code() const noexcept { return code_; }

    bool isClosed() const;

    /// \return whether the person wants the account removed
    bool isRemoved() const;

    /// \return whether the account was closed when the form was made
    bool wasClosed() const noexcept { return wasClosed_; }

    bool isDirty() const noexcept { return isDirty_; }

    /// \return whether neither a number nor a name is typed
    bool isEmpty() const;

    /// \return what the account's row says
    QString displayText() const;

    /// Offers \a n as parent, unless it is this account's own number or on offer already.
    void addParentNumber(accounting::AccountNumber const& n);
    bool offersParent(accounting::AccountNumber const& n) const;

    void hideClosed();
    void hideRemove();

    /// \param isEditable false leaves the form to be read only, and never dirty
    void setEditable(bool isEditable);

    /// Takes \a code for the account's, whose number and balance are fixed from here on, and is clean. The name stays as it
    /// was typed.
    void saved(accounting::AccountCode code);

    /// Shows why the account could not be saved, and stays dirty.
    void showError(QString const& message);

    /// Is clean from here on, until something changes.
    void resetDirty();

private:
    void offerTypes();
    void offerParents();
    void restrictNumber();
    void showTypes(std::optional<accounting::AccountTypes> const& type,
                   std::optional<banking::BankAccountTypes> const& bankType);
    void showCode();
    void fixWhatIsKnown();
    void join();
    void markDirty();

    bool isDirty_ = false;
    bool isEditable_ = true;
    std::optional<accounting::AccountCode> code_;
    bool wasClosed_ = false;
    foundation::QtPtr<ParentNumbersModel> parents_;
};
}
