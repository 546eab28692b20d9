#pragma once

#include <fiscora/Currency.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/desktop_ui/Export.h>
#include <tlm/desktop_ui/Records.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/AllowSubAccounts.h>
#include <tlm/navigation/BudgetWizardTemplates.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QDate>
#include <QMainWindow>
#include <QString>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

class QFileDialog;
class QToolBar;
namespace Ui {
class TlmMnwndw;
}
namespace tlm::adjutor {
class HelpWidget;
}

namespace tlm::desktop_ui {

/// The one window of the application, and all that a presenter needs to know of the interface.
///
/// The window holds no budget. It says what the person wants through its signals, a presenter answers through its slots
/// and its answering signals, and the view on screen listens to both. Every join is direct and on the interface thread,
/// so a presenter may answer inside the emission. Money parameters state their own currency.
class TLM_DESKTOP_UI_EXPORT MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Builds the window, still hidden, in the wording that \a options choose.
    /// \param options is read again whenever a view is shown, so it has to outlive the window
    explicit MainWindow(navigation::ConfigurationOptions const& options);
    ~MainWindow() override;

    // The meta object keeps the types of parameters as they are spelled, so they are spelled whole from here on.

signals:
    /// \name Views
    /// The person wants to see a view. The slot `onShow...` of the same name answers with what it shows.
    ///@{
    void prepareShowBills();
    void prepareShowDebts();
    void prepareShowGoals();
    void prepareShowNontracks();
    void prepareShowWages();
    void prepareShowAccounts();
    void prepareShowLedgers();
    void prepareShowBanks();
    void prepareShowProcessBudgetItems();
    void prepareShowSurvey();
    ///@}

    /// \name Budget file
    ///@{

    /// A new empty budget is wanted. onShowConfirmNewBudget() answers when changes would be lost, otherwise the
    /// presenter goes on as if confirmedNewBudgetEmpty() had come.
    void prepareNewBudgetEmpty();
    /// The person accepts that changes are lost. onShowNewBudget() answers.
    void confirmedNewBudgetEmpty();
    /// The file at the absolute path \a filePathName is to be opened. onShowConfirmLoadBudgetFile() answers when
    /// changes would be lost, otherwise the presenter goes on as if confirmedLoadBudgetFile() had come.
    void loadBudgetFile(QString const& filePathName);
    /// The person accepts that changes are lost. onLoadedBudgetFile() answers with both parameters unchanged.
    void confirmedLoadBudgetFile(QString const& filePathName, bool isReloaded);
    /// onSavedBudgetFile() answers, or onShowSaveAsBudgetFile() as long as the budget has no file.
    void saveBudgetFile();
    /// The budget is to be stored under \a filePathName, as the person typed it. onSavedBudgetFile() answers.
    void saveAsBudgetFile(QString const& filePathName);
    /// onLoadedBudgetFile() answers, or onShowNoBudgetFileOpened() as long as the budget has no file.
    void reloadBudgetFile();
    /// The window was asked to close. It stays open until onCheckCleanExit() answers.
    void checkIsBudgetFileDirty();
    /// A new budget by way of the wizard is wanted. Answered like prepareNewBudgetEmpty().
    void prepareNewBudgetFirstTimeWizard();
    /// The person accepts that changes are lost. The wizard answers.
    void confirmedNewBudgetFirstTimeWizard();
    ///@}

    /// \name More views
    /// As the views above.
    ///@{
    void prepareShowDashboard();
    void prepareShowExchangeRates();
    void prepareShowConfigure();
    void prepareShowMoneyTransfer();
    void prepareShowBudgetItemRefund();
    ///@}

    /// The notes of all releases are wanted.
    void fetchReleaseNotes();
    /// The person has read the notice that onUpdateReleased() showed. Expects no answer.
    void updateAvailableAcknowledged();

    /// \name Budget items
    /// Each change names its entry by \a id and is answered by exactly one of saveSucceeded() and saveFailed().
    ///@{

    /// \param item is a record of the kind that \a type tells, read by a dynamic downcast
    /// \param ba is where a debt is paid from or a goal is stored, empty when none is chosen or for other types
    void added(tlm::navigation::GuiElementIdentifier const& id, tlm::budgeting::BudgetItemTypes type,
               tlm::budgeting::BudgetedMoney const& item, std::optional<tlm::banking::BankAccount> const& ba);
    void renamed(tlm::navigation::GuiElementIdentifier const& id, tlm::budgeting::BudgetItemTypes type,
                 tlm::budgeting::BudgetSource const& original, tlm::budgeting::BudgetSource const& changed);
    /// Parameters as in added(); the item of the same source takes over the values of \a item.
    void updated(tlm::navigation::GuiElementIdentifier const& id, tlm::budgeting::BudgetItemTypes type,
                 tlm::budgeting::BudgetedMoney const& item, std::optional<tlm::banking::BankAccount> const& ba);
    void removed(tlm::navigation::GuiElementIdentifier const& id, tlm::budgeting::BudgetItemTypes type,
                 tlm::budgeting::BudgetSource const& source);
    void saveSucceeded(tlm::navigation::GuiElementIdentifier const& id, tlm::budgeting::BudgetSource const& source);
    /// \param original is the source before the change, empty for a new item
    /// \param errorMessage tells the person what was refused, why, and what to do
    /// \param displayed is the source that the entry shows now
    void saveFailed(tlm::navigation::GuiElementIdentifier const& id,
                    std::optional<tlm::budgeting::BudgetSource> const& original, QString const& errorMessage,
                    std::optional<tlm::budgeting::BudgetSource> const& displayed);
    ///@}

    /// The accounts of the bank \a bn are wanted; lookedUpBankAccounts() answers.
    void lookUpBankAccounts(tlm::banking::BankName const& bn, tlm::navigation::AllowSubAccounts shouldAllow);
    void lookedUpBankAccounts(tlm::banking::BankName const& bn,
                              std::set<tlm::banking::AccountNumberBankType> const& accountTypes);

    /// \name Processing
    /// Each change is answered by exactly one of processBudgetItemSaveSucceeded() and processBudgetItemSaveFailed().
    ///@{

    /// A due item was paid from or stored in the account \a ac.
    void processBudgetItemPosted(tlm::budgeting::BudgetItemAmountDue const& bid, tlm::accounting::AccountCode const& ac,
                                 QDate const& postOn);
    /// An amount was posted to an item outside its schedule.
    void processBudgetItemPostedUnexpected(tlm::budgeting::BudgetItemDueIdentifier const& bidi,
                                           fiscora::Money const& amount, tlm::accounting::AccountCode const& ac,
                                           QDate const& postOn);
    void processBudgetItemSkipped(tlm::budgeting::BudgetItemDueIdentifier const& bidi);
    /// \param txnNum is the posting made, empty for a skipped item
    void processBudgetItemSaveSucceeded(tlm::budgeting::BudgetItemDueIdentifier const& bidi,
                                        std::optional<tlm::accounting::TransactionNumber> const& txnNum);
    void processBudgetItemSaveFailed(tlm::budgeting::BudgetItemDueIdentifier const& bidi, QString const& errorMessage);
    ///@}

    /// \name Refunds
    ///@{

    /// The sources of the type of \a requestedBy are wanted; lookedUpBudgetItemSources() answers with it unchanged.
    void lookUpBudgetItemSources(tlm::budgeting::BudgetItemDueIdentifier const& requestedBy);
    void lookedUpBudgetItemSources(tlm::budgeting::BudgetItemDueIdentifier const& requestedBy,
                                   std::set<tlm::budgeting::BudgetSource> const& sources);
    /// The postings made from an item are wanted; lookedUpRefundableTransactions() answers.
    void lookUpRefundableTransactions(tlm::budgeting::BudgetItemIdentifier const& bii);
    void lookedUpRefundableTransactions(tlm::budgeting::BudgetItemIdentifier const& bii,
                                        tlm::accounting::AccountCode const& ac,
                                        std::set<tlm::accounting::Transaction> const& txns);
    /// Answered like a change to a transaction.
    void postRefund(tlm::accounting::TransactionNumber const& txnNum, fiscora::Money const& refund);
    ///@}

    /// \name Accounts
    /// Each change is answered by exactly one of accountSaveSucceeded() and accountSaveFailed().
    ///@{
    void addedAct(tlm::accounting::Account const& a);
    void recoded(tlm::accounting::AccountCode const& current, tlm::accounting::AccountCode const& changed);
    void closed(tlm::accounting::AccountCode const& code);
    void opened(tlm::accounting::AccountCode const& code);
    void removedAct(tlm::accounting::AccountCode const& code);
    void accountSaveSucceeded(tlm::accounting::AccountCode const& code);
    /// Parameters as in saveFailed().
    void accountSaveFailed(std::optional<tlm::accounting::AccountCode> const& original, QString const& errorMessage,
                           std::optional<tlm::accounting::AccountCode> const& displayed);
    ///@}

    /// \name Ledgers and transactions
    /// Each change is answered by exactly one of transactionSaveSucceeded() and transactionSaveFailed().
    ///@{

    /// The ledger of \a code is wanted; showLedger() answers.
    void selectedLedger(tlm::accounting::AccountCode const& code);
    void showLedger(tlm::accounting::LedgerAccount const& ledger);
    void addedTransaction(tlm::accounting::Transaction const& txn);
    void updatedTransaction(tlm::accounting::TransactionNumber const& tn, tlm::accounting::Transaction const& txn);
    void markCleared(std::set<tlm::accounting::TransactionNumber> const& numbers);
    void markUnreconciled(std::set<tlm::accounting::TransactionNumber> const& numbers);
    void markReconciled(tlm::accounting::TransactionNumber const& number);
    void removedTransaction(tlm::accounting::TransactionNumber const& number);
    /// \param displayed is the number that the entry shows, empty for a new one
    /// \param posted is the number that the ledger gave, empty for a transaction that is gone
    void transactionSaveSucceeded(std::optional<tlm::accounting::TransactionNumber> const& displayed,
                                  std::optional<tlm::accounting::TransactionNumber> const& posted);
    void transactionSaveFailed(std::optional<tlm::accounting::TransactionNumber> const& tn,
                               QString const& errorMessage);
    void transferRequested(tlm::accounting::AccountNumber const& from, tlm::accounting::AccountNumber const& to,
                           fiscora::Money const& amount, QString const& reason);
    ///@}

    /// \name Banks
    /// Each change is answered by exactly one of bankSaveSucceeded() and bankSaveFailed().
    ///@{
    void bankAdded(tlm::banking::Bank const& b);
    void bankUpdated(tlm::banking::Bank const& b);
    void bankRenamed(tlm::banking::BankName const& original, tlm::banking::BankName const& change);
    void bankClosed(tlm::banking::BankName const& bn);
    void bankOpened(tlm::banking::BankName const& bn);
    void bankRemoved(tlm::banking::BankName const& bn);
    void bankSaveSucceeded(tlm::banking::BankName const& bn);
    /// Parameters as in saveFailed().
    void bankSaveFailed(std::optional<tlm::banking::BankName> const& original, QString const& errorMessage,
                        std::optional<tlm::banking::BankName> const& displayed);
    ///@}

    /// \name Bank accounts
    /// Each change is answered by exactly one of bankAccountSaveSucceeded() and bankAccountSaveFailed().
    ///@{
    void addedBankAccount(QString const& name, tlm::banking::BankAccountTypes type,
                          fiscora::Money const& openingBalance);
    void renamedBankAccount(tlm::accounting::AccountCode const& original, tlm::accounting::AccountCode const& changed);
    void removedBankAccount(tlm::accounting::AccountCode const& ac);
    void bankAccountSaveSucceeded(tlm::accounting::AccountCode const& ac);
    /// Parameters as in saveFailed().
    void bankAccountSaveFailed(std::optional<tlm::accounting::AccountCode> const& original, QString const& errorMessage,
                               std::optional<tlm::accounting::AccountCode> const& displayed);
    ///@}

    /// \name Survey
    ///@{

    /// lookedUpLastReconciliation() answers.
    void lookUpLastReconciliation(tlm::accounting::AccountNumber const& an);
    /// \param code is the currency of the account
    /// \param reconciliation is empty for an account that was never reconciled
    void lookedUpLastReconciliation(fiscora::Currency code,
                                    std::optional<tlm::banking::ReconciledBalance> const& reconciliation);
    /// generatedMappingSurvey() answers.
    void generateMappingSurvey(tlm::banking::BankName const& bn, tlm::accounting::AccountNumber const& an,
                               QDate const& surveyingOn);
    void generatedMappingSurvey(tlm::surveying::MappingSurvey const& survey);
    /// Answered by exactly one of completedSurveySucceeded() and completedSurveyFailed().
    void completedSurvey(
        QDate const& completedOn, tlm::banking::BankAccount const& ba, fiscora::Money const& balance,
        std::set<tlm::accounting::TransactionNumber> const& allReconciled,
        tlm::surveying::IndexedIncreaseDecreases<tlm::budgeting::BudgetItemIdentifier> const& allAdded,
        tlm::surveying::IndexedIncreaseDecreases<tlm::accounting::AccountNumber> const& allExtra,
        std::map<tlm::budgeting::BudgetItemIdentifier, tlm::surveying::DistributedAmount> const& distributed,
        fiscora::Money const& nondistributed);
    void completedSurveySucceeded();
    void completedSurveyFailed(QString const& errorMessage);
    ///@}

    /// \name Settings
    ///@{

    /// Answered by exactly one of configureSaveSucceeded() and configureSaveFailed().
    void configureUpdated(std::chrono::hours hrInWeek, std::chrono::days dayInWeek, std::chrono::days notifyDueWithin,
                          fiscora::Currency preferred, tlm::navigation::CurrencyDisplayOptions displayAs,
                          std::set<fiscora::Currency> const& usable, tlm::foundation::Percentage const& balanceWindow);
    void configureSaveSucceeded();
    void configureSaveFailed(QString const& errorMessage);
    /// Rates between all of \a currencies are wanted; fetchedExchangeRates() answers, sooner or later.
    void fetchExchangeRates(std::set<fiscora::Currency> const& currencies);
    void fetchedExchangeRates(std::set<fiscora::Currency> const& currencies,
                              tlm::conversion::ConversionMap const& conversions);
    /// Expects no answer.
    void storeExchangeRates(tlm::conversion::ConversionMap const& conversions);
    /// What the person told the wizard, from which the new budget is made.
    void completedNewBudgetFirstTimeWizard(fiscora::Currency preferred, std::set<fiscora::Currency> const& usable,
                                           tlm::navigation::CurrencyDisplayOptions displayAs,
                                           tlm::banking::BankName const& primary, tlm::banking::BankAccountTypes kind,
                                           QString const& accountName, fiscora::Money const& initialBalance,
                                           tlm::navigation::BudgetWizardTemplates selectedTemplate);
    ///@}

public slots:
    /// Asks whether changes may be lost, then emits the confirmation of the kind of budget that was asked for last.
    void onShowConfirmNewBudget();
    /// Says that the new budget is there and asks for the dashboard.
    void onShowNewBudget();
    /// Shows a file dialog, which leads to loadBudgetFile().
    void onShowOpenBudgetFile();
    /// Asks whether changes may be lost, then emits confirmedLoadBudgetFile().
    void onShowConfirmLoadBudgetFile(QString const& filePathName);
    /// Drops the view of the budget before, says what was read, and asks for the dashboard.
    void onLoadedBudgetFile(QString const& filePathName, bool isReloaded);
    void onSavedBudgetFile(QString const& filePathName);
    /// Shows a file dialog, which leads to saveAsBudgetFile().
    void onShowSaveAsBudgetFile();
    /// Says that there is no file to reload.
    void onShowNoBudgetFileOpened();
    /// Closes the window, after a question when \a isDirty.
    void onCheckCleanExit(bool isDirty);
    /// Shows the window and asks for the dashboard, each time it is called. It hides QWidget::show().
    void show();
    /// Tells the person about a newer version and waits until the notice is closed.
    void onUpdateReleased(tlm::updating::SemanticVersion const& latest);

    /// Replaces the central view by a fresh dashboard.
    /// \param bt is what each type of item comes to per month, in \a preferred
    /// \param due is shown in the order given
    /// \param dueWithin is how many days ahead an item is shown, counted from today
    void onShowDashboard(tlm::budgeting::BudgetTotals const& bt,
                         std::vector<tlm::budgeting::BudgetItemAmountDue> const& due,
                         tlm::adviser::BudgetHealth const& bh, std::chrono::days dueWithin, fiscora::Currency preferred,
                         tlm::navigation::CurrencyDisplayOptions displayAs);

    /// \name Planning
    /// Each replaces the central view by one that plans all budget items of a kind, those given, or a new one when
    /// there are none.
    /// \param preferred the currency of the total
    /// \param usableCurrencies currencies that amounts may be entered in
    ///@{
    void onShowBills(tlm::budgeting::BillMap const& bills, fiscora::Currency preferred,
                     std::set<fiscora::Currency> const& usableCurrencies,
                     tlm::navigation::CurrencyDisplayOptions displayAs);
    /// \param accounts which account each debt was borrowed from, where that is known
    /// \param codes of all accounts that \a accounts tell of
    /// \param banks that may be chosen
    void onShowDebts(tlm::budgeting::DebtMap const& debts, std::set<tlm::navigation::BudgetBankAccount> const& accounts,
                     std::set<tlm::accounting::AccountCode> const& codes, std::set<tlm::banking::BankName> const& banks,
                     fiscora::Currency preferred, std::set<fiscora::Currency> const& usableCurrencies,
                     tlm::navigation::CurrencyDisplayOptions displayAs);
    /// Emits lookUpBankAccounts() for each goal that \a accounts tell of, while the view is being built.
    /// \param accounts which account each goal is stored in, where that is known
    /// \param codes of all accounts that an answer to a look-up may tell of
    /// \param banks that may be chosen
    /// \param wagesTotal all wages per month, in \a preferred
    void onShowGoals(tlm::budgeting::GoalMap const& goals, std::set<tlm::navigation::BudgetBankAccount> const& accounts,
                     std::set<tlm::accounting::AccountCode> const& codes, std::set<tlm::banking::BankName> const& banks,
                     fiscora::Currency preferred, std::set<fiscora::Currency> const& usableCurrencies,
                     tlm::navigation::CurrencyDisplayOptions displayAs, fiscora::Money const& wagesTotal);
    void onShowNontracks(tlm::budgeting::NontrackMap const& nontracks, fiscora::Currency preferred,
                         std::set<fiscora::Currency> const& usableCurrencies,
                         tlm::navigation::CurrencyDisplayOptions displayAs);
    void onShowWages(tlm::budgeting::WageMap const& wages, fiscora::Currency preferred,
                     std::set<fiscora::Currency> const& usableCurrencies,
                     tlm::navigation::CurrencyDisplayOptions displayAs);
    ///@}

    /// \name Books
    /// Each replaces the central view.
    /// \param usableCurrencies currencies that amounts may be entered in
    ///@{

    /// \param accounts the whole chart; a new account is offered when there is none
    void onShowAccounts(std::set<tlm::accounting::Account> const& accounts,
                        std::set<fiscora::Currency> const& usableCurrencies,
                        tlm::navigation::CurrencyDisplayOptions displayAs);
    /// Emits selectedLedger() when the person first selects an account.
    /// \param accounts whose ledgers can be seen, and which transactions may name
    void onShowLedgers(std::set<tlm::accounting::Account> const& accounts,
                       std::set<fiscora::Currency> const& usableCurrencies,
                       tlm::navigation::CurrencyDisplayOptions displayAs);
    /// \param fromBanks accounts that money can leave
    /// \param toBanks accounts that money can enter
    void onShowMoneyTransfer(std::set<tlm::navigation::BankAccountCode> const& fromBanks,
                             std::set<tlm::navigation::BankAccountCode> const& toBanks,
                             std::set<fiscora::Currency> const& usableCurrencies,
                             tlm::navigation::CurrencyDisplayOptions displayAs);
    /// \param items that fall due within \a dueWithin days
    /// \param banks that can pay or store
    /// \param preferredCurrency of the total
    /// \param codes of all accounts
    void onShowProcessBudgetItems(std::chrono::days dueWithin,
                                  std::vector<tlm::budgeting::BudgetItemAmountDue> const& items,
                                  std::set<tlm::banking::BankName> const& banks, fiscora::Currency preferredCurrency,
                                  std::set<fiscora::Currency> const& usableCurrencies,
                                  tlm::navigation::CurrencyDisplayOptions displayAs,
                                  std::set<tlm::accounting::AccountCode> const& codes);
    /// Emits lookUpBudgetItemSources() and lookUpRefundableTransactions() as the person picks an item.
    /// \param codes the currencies of all transactions that can be refunded
    void onShowBudgetItemRefund(std::set<fiscora::Currency> const& codes,
                                tlm::navigation::CurrencyDisplayOptions displayAs);
    /// \param banks with the accounts that they keep; a new bank is offered when there is none
    /// \param allAccounts the whole chart
    /// \throws foundation::Error when \a allAccounts lacks an account of a bank, or the account that one is part of
    void onShowBanks(tlm::banking::BankMap const& banks, std::set<tlm::accounting::Account> const& allAccounts,
                     std::set<fiscora::Currency> const& usableCurrencies,
                     tlm::navigation::CurrencyDisplayOptions displayAs);
    ///@}

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void onShowHandbookStartPage();
    void onShowHandbookWizardPage();
    void onShowAbout();
    void onShowAboutQt();
    void onDisplayBudgetInterface(tlm::budgeting::BudgetItemTypes type);

private:
    struct LaterDeleter
    {
        void operator()(adjutor::HelpWidget* help) const;
    };

    static QString const budgetFileExtensionFilter_;

    void applyWording();
    void joinFileActions();
    void joinViewActions();
    void joinHelpActions();
    void fillBudgetToolBar();
    void fillCommonActionsToolBar();
    void nameForAssistiveTools();
    foundation::QtPtr<QFileDialog> makeFileDialog(QString const& caption);
    bool isConfirmed(QString const& title, QString const& question);
    void showStatus(QString const& message);
    /// \return whether transactions tell of payments and income, instead of debits and credits
    bool usesEverydayTerms() const;

    std::unique_ptr<Ui::TlmMnwndw> const ui_;
    navigation::ConfigurationOptions const& configuration_;
    bool isExitConfirmed_ = false;
    std::optional<bool> useWizard_;
    foundation::QtPtr<QToolBar> const commonActionsToolbar_;
    std::unique_ptr<adjutor::HelpWidget, LaterDeleter> const help_;
};
}
