#pragma once

#include "internal/ParentNumbers.h"
#include "internal/TreeRows.h"
#include "ui_BanksWdgt.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/Account.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/accounting/AccountTypes.h>
#include <tlm/banking/Bank.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/banking/BankMap.h>
#include <tlm/banking/BankName.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>
#include <QWidget>

#include <map>
#include <optional>
#include <set>
#include <vector>

class QAbstractButton;
class QPushButton;
class QTreeWidgetItem;

namespace tlm::desktop_ui::internal {

class AccountEntryWidget;
class BankEntryWidget;

/// Edits all banks with their accounts: a tree of them, and the form of the one that is chosen there.
///
/// Save sends the accounts first, and the banks a while after the last account is settled, since a bank tells the numbers of
/// its accounts. Each is answered on its own, within the emission or later. The view closes once nothing is left to save.
/// Whatever a receiver does meanwhile, even to end the view at once, is fine.
class BanksWidget : public QWidget, private Ui::BanksWdgt
{
    Q_OBJECT

public:
    /// \param banks each has a form, or one blank form stands for none
    /// \param allAccounts the chart of accounts
    /// \param usable currencies that an opening balance may be entered in
    /// \throws foundation::Error when \a allAccounts lacks an account of a bank, or the account that one is part of
    BanksWidget(banking::BankMap const& banks, std::set<accounting::Account> const& allAccounts,
                std::set<fiscora::Currency> usable, navigation::CurrencyDisplayOptions const& displayAs,
                foundation::QtPtr<QWidget> const& parent);
    ~BanksWidget() override;

signals:
    /// May come twice: after the last answer, and after the walk in which it was given.
    void closing();
    void rename(tlm::banking::BankName const& original, tlm::banking::BankName const& change);
    void closed(tlm::banking::BankName const& bn);
    void opened(tlm::banking::BankName const& bn);
    /// \param bn as it is typed now
    void removed(tlm::banking::BankName const& bn);
    void added(tlm::banking::Bank const& b);
    /// \param b is told as open, whether or not it is
    void updated(tlm::banking::Bank const& b);
    /// \param name as typed, perhaps empty
    void addedAccount(QString const& name, tlm::banking::BankAccountTypes type, fiscora::Money const& openingBalance);
    void renamedAccount(tlm::accounting::AccountCode const& original, tlm::accounting::AccountCode const& changed);
    void removedAccount(tlm::accounting::AccountCode const& ac);

public slots:
    /// A bank that no form shows ends the program.
    void onSaveSucceeded(tlm::banking::BankName const& bn);

    /// \param errorMessage is shown in the form. A bank that no form shows ends the program.
    void onSaveFailed(std::optional<tlm::banking::BankName> const& original, QString const& errorMessage,
                      std::optional<tlm::banking::BankName> const& displayed);

    /// Tells that it closes, and ends. It hides QWidget::close().
    bool close();

    /// An account that no form shows ends the program.
    void onAccountSaveSucceeded(tlm::accounting::AccountCode const& ac);

    /// \param errorMessage is shown in the form. An account that no form shows ends the program.
    void onAccountSaveFailed(std::optional<tlm::accounting::AccountCode> const& original, QString const& errorMessage,
                             std::optional<tlm::accounting::AccountCode> const& displayed);

protected:
    void showEvent(QShowEvent* event) override;

private slots:
    void saveBanks();
    void onClicked(tlm::foundation::QtPtr<QAbstractButton> const& button);
    void onCurrentItemChanged(tlm::foundation::QtPtr<QTreeWidgetItem> const& current,
                              tlm::foundation::QtPtr<QTreeWidgetItem> const& previous);
    void calculateParentBalances();

private:
    using Row = QTreeWidgetItem*; // which the tree owns

    /// What the current row stands for.
    enum class Kinds : unsigned char
    {
        Nothing = 0,
        Bank = 1,
        BankAccount = 2,
        SubAccount = 3
    };

    using RowsByNumber = std::map<accounting::AccountNumber, Row>;

    void load(banking::BankMap const& banks, std::set<accounting::Account> const& allAccounts);
    void addButtons();
    void layOutColumns();

    Row add(banking::Bank const& bank);
    Row add(Row bank, accounting::Account const& account, banking::BankAccountTypes const& type);
    bool add(accounting::AccountCode const& parent, accounting::Account const& account, RowsByNumber& rows);
    void insert(Row row, accounting::Account const& account, std::optional<accounting::AccountTypes> const& ledgerType,
                std::optional<banking::BankAccountTypes> const& bankType);
    std::set<fiscora::Currency> usableFor(fiscora::Money const& balance) const;
    void place(Row row, QWidget& form);
    void takeUp();
    QWidget* formOf(Row row) const;
    void leadTabToButtonsBehind(QWidget const& form);

    Row currentBank() const;
    void display(Row row);
    void conceal(Row row);
    QString balanceText(Row parent) const;

    void saveAccounts();
    template <typename Form>
    std::optional<std::vector<foundation::QtPtr<Form>>> walk(TreeRows<Form>& entries, char const* failure);
    bool save(AccountEntryWidget& form, QString const& text);
    bool save(BankEntryWidget& form, QString const& text);
    void modify(BankEntryWidget& form, QString const& text);
    banking::BankName await(BankEntryWidget const& form);
    std::map<accounting::AccountNumber, banking::BankAccountTypes> accountsOf(Row bank) const;
    void saveBanksOnceAccountsAreSaved();

    void showError(Row row, QString const& message);
    void removeEntry(Row row);
    void removeRow(Row row);
    bool anyAccountDirty() const;
    bool anyDirty() const;

    ParentNumbers numbers_;
    std::set<fiscora::Currency> usable_;
    navigation::CurrencyDisplayOptions displayAs_;
    foundation::QtPtr<QPushButton> addBankBttn_;
    foundation::QtPtr<QPushButton> addAccountBttn_;
    Kinds selectedKind_ = Kinds::Nothing;
    TreeRows<BankEntryWidget> bankEntries_;
    TreeRows<AccountEntryWidget> accountEntries_;
};
}
