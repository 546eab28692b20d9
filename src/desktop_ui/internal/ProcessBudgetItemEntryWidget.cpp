#include "internal/ProcessBudgetItemEntryWidget.h"

#include "internal/EntryForms.h"
#include "internal/Wheel.h"

#include <QDebug>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::TransactionNumber;
using banking::AccountNumberBankType;
using banking::BankName;
using budgeting::BudgetItemAmountDue;
using budgeting::BudgetItemDueIdentifier;
using budgeting::BudgetItemTypes;
using budgeting::BudgetSource;
using fiscora::Currency;
using foundation::QtPtr;

ProcessBudgetItemEntryWidget::ProcessBudgetItemEntryWidget(std::optional<BudgetItemAmountDue> const& item,
                                                           std::set<BankName> const& banks,
                                                           std::set<Currency> const& usable,
                                                           navigation::CurrencyDisplayOptions const& displayAs,
                                                           std::set<AccountCode> const& codes,
                                                           QtPtr<QWidget> const& parent)
    : QWidget(parent.get())
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    for (auto* const dated : {dueOnFrmlyt, processOnFrmlyt}) {
        dated->setFormAlignment(Qt::AlignLeft | Qt::AlignVCenter); // in one line with the item
    }
    leaveWheelToList(*this);
    errorWdgt->showMessage(std::nullopt); // its form comes with a text
    amountMnyntrydgt->setUsableCurrencies(usable, displayAs);
    itemDueCmbbx->setTypeLabel(tr("Budget Type:"));
    itemDueCmbbx->setSourceLabel(tr("Item:"));
    item ? startScheduled(*item) : startUnexpected();
    processLbl->hide();
    processOnDtdt->setDate(QDate::currentDate());
    sourceCmbbx->setBanks(banks);
    sourceCmbbx->setCodes(codes);
    sourceCmbbx->disableType();
    join();
}

ProcessBudgetItemEntryWidget::~ProcessBudgetItemEntryWidget()
{
    stopListening(*this);
}

/// What nobody expected has no day on which it was due, and nothing to skip to.
void ProcessBudgetItemEntryWidget::startUnexpected()
{
    itemDueCmbbx->setReadOnly(false);
    dueOnLbl->hide();
    dueOnDtdt->hide();
    actionSkipRdbttn->hide();
    isUnexpected_ = true;
    labelSource(BudgetItemTypes::None);
}

void ProcessBudgetItemEntryWidget::startScheduled(BudgetItemAmountDue const& item)
{
    itemDueCmbbx->setReadOnly(true);
    itemDueCmbbx->setSources({item.source});
    itemDueCmbbx->select(item);
    dueOnDtdt->setDate(item.dueOn);
    amountMnyntrydgt->setAmount(item.amount);
    amount_ = item.amount;
    labelSource(item.type);
}

void ProcessBudgetItemEntryWidget::join()
{
    using Entry = ProcessBudgetItemEntryWidget;
    connect(amountMnyntrydgt, &MoneyEntryWidget::moneyChanged, this, &Entry::amountChanged);
    connect(amountMnyntrydgt, &MoneyEntryWidget::moneyChanged, this, &Entry::takeAmount);
    connect(sourceCmbbx, &BankAccountsWidget::lookUpBankAccounts, this, &Entry::onLookUpBankAccounts);
    connect(sourceCmbbx, &BankAccountsWidget::changedBankName, this, &Entry::sourceChanged);
    connect(sourceCmbbx, &BankAccountsWidget::changedBankName, this, &Entry::markDirty);
    connect(sourceCmbbx, &BankAccountsWidget::changedAccountNumber, this, &Entry::accountNumberChanged);
    connect(sourceCmbbx, &BankAccountsWidget::changedAccountNumber, this, &Entry::markDirty);
    connect(processOnDtdt, &QDateEdit::dateChanged, this, &Entry::markDirty);
    joinActions();
    connect(itemDueCmbbx, &BudgetItemTypeWidget::typeChanged, this, &Entry::onBudgetTypeIndexChanged);
    connect(itemDueCmbbx, &BudgetItemTypeWidget::sourceChanged, this, &Entry::onBudgetSourceIndexChanged);
    connect(itemDueCmbbx, &BudgetItemTypeWidget::sourceChanged, this, &Entry::markDirty);
}

void ProcessBudgetItemEntryWidget::joinActions()
{
    connect(actionIgnoreRdbttn, &QRadioButton::clicked, this, &ProcessBudgetItemEntryWidget::ignore);
    auto const change = [this](BudgetItemDueAction action) {
        return [this, action] {
            emit actionChanged(action);
            markDirty();
        };
    };
    connect(actionProcessRdbttn, &QRadioButton::clicked, this, change(BudgetItemDueAction::Process));
    connect(actionSkipRdbttn, &QRadioButton::clicked, this, change(BudgetItemDueAction::Skip));
}

BudgetItemDueIdentifier ProcessBudgetItemEntryWidget::identifier() const
{
    return {itemDueCmbbx->identifier(), dueOn()};
}

BudgetItemTypes ProcessBudgetItemEntryWidget::budgetItemType() const
{
    return itemDueCmbbx->budgetItemType();
}

BudgetSource ProcessBudgetItemEntryWidget::budgetSource() const
{
    return itemDueCmbbx->budgetSource();
}

QDate ProcessBudgetItemEntryWidget::dueOn() const
{
    return isUnexpected_ ? QDate() : dueOnDtdt->date();
}

QDate ProcessBudgetItemEntryWidget::processOn() const
{
    return processOnDtdt->date();
}

fiscora::Money ProcessBudgetItemEntryWidget::amount() const
{
    return amountMnyntrydgt->amount();
}

BudgetItemDueAction ProcessBudgetItemEntryWidget::action() const
{
    if (actionProcessRdbttn->isChecked()) {
        return BudgetItemDueAction::Process;
    }
    if (actionIgnoreRdbttn->isChecked()) {
        return BudgetItemDueAction::Ignore;
    }
    return actionSkipRdbttn->isChecked() ? BudgetItemDueAction::Skip : BudgetItemDueAction::Unknown;
}

std::optional<AccountCode> ProcessBudgetItemEntryWidget::accountCode() const
{
    return sourceCmbbx->accountCode();
}

std::optional<BankName> ProcessBudgetItemEntryWidget::bankName() const
{
    return sourceCmbbx->bank();
}

void ProcessBudgetItemEntryWidget::clearBankName()
{
    sourceCmbbx->setBank(std::nullopt);
}

void ProcessBudgetItemEntryWidget::markDuplicate()
{
    isDuplicate_ = true;
}

void ProcessBudgetItemEntryWidget::clearDuplicate()
{
    isDuplicate_ = false;
}

std::optional<QString> ProcessBudgetItemEntryWidget::errorMessage() const
{
    return errorWdgt->message();
}

void ProcessBudgetItemEntryWidget::clearErrorMessage()
{
    qInfo() << "Clearing error message.";
    errorWdgt->showMessage(std::nullopt);
}

void ProcessBudgetItemEntryWidget::setErrorMessage(QString const& message)
{
    qInfo() << "Updating" << presentationText(budgetSource()) << "with error message." << message;
    errorWdgt->showMessage(message);
    isDirty_ = true;
}

void ProcessBudgetItemEntryWidget::setBudgetItems(std::set<BudgetSource> const& sources)
{
    itemDueCmbbx->setSources(sources);
    isDirty_ = true;
}

void ProcessBudgetItemEntryWidget::setBankAccounts(std::set<AccountNumberBankType> const& accountTypes)
{
    qInfo() << "Setting budget item entry account codes";
    sourceCmbbx->lookedUpBankAccounts(accountTypes);
    isAwaitingBankAccounts_ = false;
}

void ProcessBudgetItemEntryWidget::markProcessed(TransactionNumber const& number)
{
    qInfo() << "Marking processed" << presentationText(budgetSource()) << "under" << number;
    tellResult(tr("Processed Transaction %1").arg(presentationText(number)));
}

void ProcessBudgetItemEntryWidget::markSkipped()
{
    qInfo() << "Marking skipped" << presentationText(budgetSource());
    tellResult(tr("Item Due Skipped."));
}

void ProcessBudgetItemEntryWidget::tellResult(QString const& text)
{
    processLbl->setText(text);
    processLbl->show();
}

void ProcessBudgetItemEntryWidget::markSaved()
{
    qInfo() << "Marking" << presentationText(budgetSource()) << "as saved.";
    setReadOnly(true);
    errorWdgt->showMessage(std::nullopt);
    isDirty_ = false;
}

void ProcessBudgetItemEntryWidget::setReadOnly(bool isReadOnly)
{
    isReadOnly_ = isReadOnly;
    itemDueCmbbx->setReadOnly(isReadOnly);
    amountMnyntrydgt->setReadOnly(isReadOnly);
    sourceCmbbx->setReadOnly(isReadOnly);
    processOnDtdt->setEnabled(!isReadOnly);
    for (auto* const button : {actionIgnoreRdbttn, actionProcessRdbttn, actionSkipRdbttn}) {
        button->setEnabled(!isReadOnly);
    }
}

void ProcessBudgetItemEntryWidget::labelSource(BudgetItemTypes type)
{
    switch (type) {
    case BudgetItemTypes::Bill:
    case BudgetItemTypes::Debt:
    case BudgetItemTypes::Nontrack:
        sourceCmbbx->setDescription(tr("Pay From:"));
        break;
    case BudgetItemTypes::Goal:
    case BudgetItemTypes::Wage:
        sourceCmbbx->setDescription(tr("Store In:"));
        break;
    default:
        sourceCmbbx->setDescription(tr("Pay/Store:"));
    }
}

void ProcessBudgetItemEntryWidget::ignore()
{
    emit actionChanged(BudgetItemDueAction::Ignore);
    qInfo() << "Marking" << presentationText(budgetSource()) << "as not dirty since it's ignored";
    isDirty_ = false;
}

void ProcessBudgetItemEntryWidget::markDirty()
{
    auto const source = presentationText(budgetSource());
    if (isReadOnly_) {
        qInfo() << "Not marking" << source << "as dirty since it's read-only";
        return;
    }
    if (isDirty_) {
        return;
    }
    qInfo() << "Marking" << source << "as dirty";
    isDirty_ = true;
    if (actionIgnoreRdbttn->isChecked()) {
        actionProcessRdbttn->setChecked(true);
        emit actionChanged(BudgetItemDueAction::Process);
    }
}

/// An amount is also told when the cursor only leaves it, and who walks through a list by the keyboard changes nothing.
void ProcessBudgetItemEntryWidget::takeAmount(fiscora::Money const& amount)
{
    if (amount != amount_) {
        amount_ = amount;
        markDirty();
    }
}

void ProcessBudgetItemEntryWidget::onLookUpBankAccounts(BankName const& name)
{
    isAwaitingBankAccounts_ = true;
    emit lookUpBankAccounts(name);
}

/// A receiver may end the entry.
void ProcessBudgetItemEntryWidget::onBudgetTypeIndexChanged()
{
    qInfo() << "Budget item type index changed, requesting new budget item sources for the type.";
    auto const type = budgetItemType();
    labelSource(type);
    QtPtr<ProcessBudgetItemEntryWidget> const self = this;
    itemDueCmbbx->setSources({});
    if (!self) {
        return;
    }
    BudgetItemDueIdentifier const requestedBy{{type, BudgetSource()}, dueOn()};
    emit lookUpBudgetItemDueSources(requestedBy, type);
    if (self) {
        emit budgetItemSelected(requestedBy);
    }
}

void ProcessBudgetItemEntryWidget::onBudgetSourceIndexChanged()
{
    qInfo() << "Budget item type source changed.";
    emit budgetItemSelected(identifier());
}
}
