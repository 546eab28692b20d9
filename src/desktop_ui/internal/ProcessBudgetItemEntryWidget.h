#pragma once

#include "internal/BudgetItemDueAction.h"
#include "ui_ProcessBudgetItemEntryWdgt.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetItemDueIdentifier.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QDate>
#include <QString>
#include <QWidget>

#include <optional>
#include <set>

namespace tlm::desktop_ui::internal {

/// One occurrence of a budget item that can be posted, skipped, or left due.
///
/// Either a scheduled one, of which the item and the day are fixed, or an unexpected one, whose item the person picks.
/// Each starts as ignored; whatever is edited in it turns it into one to process. Once saved it is frozen and tells what
/// became of it.
class ProcessBudgetItemEntryWidget : public QWidget, private Ui::ProcessBudgetItemEntryWdgt
{
    Q_OBJECT

public:
    /// \param item scheduled occurrence, none for an unexpected one
    /// \param banks that can pay or store
    /// \param usable currencies of amounts; that of \a item has to be among them
    /// \param codes of all accounts that a bank may tell
    ProcessBudgetItemEntryWidget(std::optional<budgeting::BudgetItemAmountDue> const& item,
                                 std::set<banking::BankName> const& banks, std::set<fiscora::Currency> const& usable,
                                 navigation::CurrencyDisplayOptions const& displayAs,
                                 std::set<accounting::AccountCode> const& codes,
                                 foundation::QtPtr<QWidget> const& parent);
    ~ProcessBudgetItemEntryWidget() override;

    /// \return what the entry stands for now, without a day if it is unexpected
    budgeting::BudgetItemDueIdentifier identifier() const;
    budgeting::BudgetItemTypes budgetItemType() const;
    budgeting::BudgetSource budgetSource() const;
    /// \return the day on which it falls due, an invalid one if it is unexpected
    QDate dueOn() const;
    QDate processOn() const;
    /// Throws as MoneyEntryWidget::amount() does.
    fiscora::Money amount() const;
    BudgetItemDueAction action() const;
    std::optional<accounting::AccountCode> accountCode() const;
    std::optional<banking::BankName> bankName() const;
    void clearBankName();

    /// \return whether there is something to send
    bool isDirty() const { return isDirty_; }
    bool isReadOnly() const { return isReadOnly_; }
    bool isUnexpected() const { return isUnexpected_; }
    /// \return whether another entry stands for the same item, so that this one isn't to be sent
    bool isDuplicate() const { return isDuplicate_; }
    /// \return whether setBankAccounts() is still to come
    bool isAwaitingBankAccounts() const { return isAwaitingBankAccounts_; }

    void markDuplicate();
    void clearDuplicate();

    std::optional<QString> errorMessage() const;
    void clearErrorMessage();
    /// Shows \a message, and has the entry sent again.
    void setErrorMessage(QString const& message);

    /// Offers \a sources of the type that is selected.
    void setBudgetItems(std::set<budgeting::BudgetSource> const& sources);
    /// Offers the accounts of the bank that was asked for last.
    void setBankAccounts(std::set<banking::AccountNumberBankType> const& accountTypes);

    void markProcessed(accounting::TransactionNumber const& number);
    void markSkipped();
    /// Freezes the entry.
    void markSaved();
    void setReadOnly(bool isReadOnly);

signals:
    /// setBankAccounts() answers.
    void lookUpBankAccounts(tlm::banking::BankName const& name);
    void amountChanged(fiscora::Money const& m);
    void sourceChanged(std::optional<tlm::banking::BankName> const& bn);
    void accountNumberChanged(std::optional<tlm::accounting::AccountNumber> const& an);
    void actionChanged(tlm::desktop_ui::internal::BudgetItemDueAction action);
    /// setBudgetItems() answers.
    void lookUpBudgetItemDueSources(tlm::budgeting::BudgetItemDueIdentifier const& requestedBy,
                                    tlm::budgeting::BudgetItemTypes bit);
    /// Another item was picked for an unexpected entry.
    void budgetItemSelected(tlm::budgeting::BudgetItemDueIdentifier const& selectedId);

private slots:
    void onBudgetTypeIndexChanged();
    void onBudgetSourceIndexChanged();
    void markDirty();
    void onLookUpBankAccounts(tlm::banking::BankName const& name);

private:
    void startUnexpected();
    void startScheduled(budgeting::BudgetItemAmountDue const& item);
    void join();
    void joinActions();
    void labelSource(budgeting::BudgetItemTypes type);
    void ignore();
    void takeAmount(fiscora::Money const& amount);
    void tellResult(QString const& text);

    fiscora::Money amount_; ///< that was told last
    bool isDirty_ = false;
    bool isReadOnly_ = false;
    bool isUnexpected_ = false;
    bool isAwaitingBankAccounts_ = false;
    bool isDuplicate_ = false;
};
}
