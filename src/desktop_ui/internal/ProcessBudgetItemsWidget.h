#pragma once

#include "internal/ProcessBudgetItemEntryWidget.h"
#include "ui_ProcessBudgetItemsWdgt.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetItemDueIdentifier.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QDate>
#include <QList>
#include <QString>
#include <QWidget>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

class QAbstractButton;
class QPushButton;

namespace tlm::desktop_ui::internal {

/// Posts what falls due: an entry for each occurrence, and for as many unexpected ones as the person adds.
///
/// Save sends each changed entry on its own, and each is answered on its own, within the emission or later. Entries that
/// were saved stay as a record until the last one is, with which the view closes. An answer for an entry that isn't here
/// ends the program.
class ProcessBudgetItemsWidget : public QWidget, private Ui::ProcessBudgetItemsWdgt
{
    Q_OBJECT

    using Entry = ProcessBudgetItemEntryWidget;
    using EntryPtr = foundation::QtPtr<Entry>;
    using IsEntry = std::function<bool(Entry const&)>;

public:
    /// \param dueWithin within how many days \a items fall due
    /// \param banks that can pay or store
    /// \param preferred the currency of the total
    /// \param usable currencies of amounts
    /// \param codes of all accounts that a bank may tell
    ProcessBudgetItemsWidget(std::chrono::days const& dueWithin,
                             std::vector<budgeting::BudgetItemAmountDue> const& items,
                             std::set<banking::BankName> const& banks, fiscora::Currency const& preferred,
                             std::set<fiscora::Currency> const& usable,
                             navigation::CurrencyDisplayOptions const& displayAs,
                             std::set<accounting::AccountCode> codes, foundation::QtPtr<QWidget> const& parent);
    ~ProcessBudgetItemsWidget() override;

    /// \return whether onLookedUpBankAccounts() is still to come
    bool isAwaitingBankAccounts() const;

signals:
    /// May come twice: after the last answer, and after the walk in which it was given.
    void closing();
    /// onLookedUpBankAccounts() answers.
    void lookUpBankAccounts(tlm::banking::BankName const& bn);
    /// onLookUpBudgetItemDueSources() answers.
    void lookUpBudgetItemDueSources(tlm::budgeting::BudgetItemDueIdentifier const& requestedBy,
                                    tlm::budgeting::BudgetItemTypes bit);
    /// \param ac a default one when no account was chosen
    void processed(tlm::budgeting::BudgetItemAmountDue const& bid, tlm::accounting::AccountCode const& ac,
                   QDate const& processOn);
    /// \param ac a default one when no account was chosen
    void processedUnexpected(tlm::budgeting::BudgetItemDueIdentifier const& bidi, fiscora::Money const& amount,
                             tlm::accounting::AccountCode const& ac, QDate const& processOn);
    void skipped(tlm::budgeting::BudgetItemDueIdentifier const& bidi);

public slots:
    /// Tells that it closes, and ends. It hides QWidget::close().
    bool close();

    /// Answers the entry that asked first and has no answer yet.
    void onLookedUpBankAccounts(tlm::banking::BankName const& bn,
                                std::set<tlm::banking::AccountNumberBankType> const& accountTypes);
    void onLookUpBudgetItemDueSources(tlm::budgeting::BudgetItemDueIdentifier const& requestedBy,
                                      std::set<tlm::budgeting::BudgetSource> const& sources);

    /// \param txnNum of the posting, none when the occurrence was skipped
    void onSaveSucceeded(tlm::budgeting::BudgetItemDueIdentifier const& bidi,
                         std::optional<tlm::accounting::TransactionNumber> const& txnNum);
    /// \param errorMessage is shown in the entry
    void onSaveFailed(tlm::budgeting::BudgetItemDueIdentifier const& bidi, QString const& errorMessage);

private slots:
    void onClicked(tlm::foundation::QtPtr<QAbstractButton> const& button);
    void updateTotals();
    void onUnexpectedBudgetItemSelected(tlm::budgeting::BudgetItemDueIdentifier const& selectedId);

private:
    EntryPtr add(std::optional<budgeting::BudgetItemAmountDue> const& item);
    void addUnexpected();
    QList<Entry*> entries() const;
    bool hasDirtyEntry() const;
    EntryPtr awaitingBankAccounts() const;
    EntryPtr find(IsEntry const& isEntry) const;
    EntryPtr find(budgeting::BudgetItemDueIdentifier const& id) const;
    static IsEntry makeIsEntryMatcher(budgeting::BudgetItemDueIdentifier const& id);
    std::vector<EntryPtr> sameUnexpected(EntryPtr const& entry) const;

    void save();
    void save(EntryPtr const& entry);
    void send(EntryPtr const& entry);
    void process(EntryPtr const& entry);
    void skip(EntryPtr const& entry);

    std::set<banking::BankName> banks_;
    std::set<fiscora::Currency> usable_;
    navigation::CurrencyDisplayOptions displayAs_;
    std::set<accounting::AccountCode> codes_;
    foundation::QtPtr<QPushButton> addButton_;
    std::map<budgeting::BudgetItemDueIdentifier, EntryPtr> scheduled_; ///< where find() looks first
    EntryPtr current_;           ///< that the person works in, or that was sent last
    mutable EntryPtr lastDirty_; ///< where hasDirtyEntry() looks first
};
}
