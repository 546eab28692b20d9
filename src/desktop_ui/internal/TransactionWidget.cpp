#include "internal/TransactionWidget.h"

#include "internal/ComboBoxes.h"
#include "internal/EntryForms.h"
#include "internal/OtherAccounts.h"
#include "internal/TextListModel.h"
#include "internal/Wheel.h"

#include <QDebug>
#include <QEvent>
#include <QLoggingCategory>

#include <array>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::Transaction;
using accounting::TransactionNumber;
using accounting::TransactionStatuses;

namespace {

constexpr int blankRow = 0;

struct ShownStatus
{
    TransactionStatuses status;
    Qt::CheckState state;
};

constexpr std::array shownStatuses{ShownStatus{TransactionStatuses::NotCleared, Qt::Unchecked},
                                   ShownStatus{TransactionStatuses::Cleared, Qt::PartiallyChecked},
                                   ShownStatus{TransactionStatuses::Reconciled, Qt::Checked}};

Qt::CheckState toCheckState(TransactionStatuses status)
{
    for (auto const& shown : shownStatuses) {
        if (shown.status == status) {
            return shown.state;
        }
    }
    return shownStatuses.front().state;
}

TransactionStatuses toStatus(Qt::CheckState state)
{
    for (auto const& shown : shownStatuses) {
        if (shown.state == state) {
            return shown.status;
        }
    }
    return shownStatuses.front().status;
}

/// The number alone tells accounts apart: a code that was read back from a text has lost its parent.
bool isOf(AccountCode const& account, AccountCode const& ledger)
{
    return account == ledger.number();
}

void logOffer(AccountCode const& account, AccountCode const& ledger)
{
    qDebug() << "Adding account" << account << "to transaction widget" << ledger;
}
}

TransactionWidget::TransactionWidget(Transaction const& txn, AccountCode const& ledger,
                                     std::vector<AccountCode> accounts, std::set<fiscora::Currency> const& usable,
                                     navigation::CurrencyDisplayOptions const& displayAs, bool const& usesEverydayTerms,
                                     foundation::QtPtr<QWidget> const& parent)
    : TransactionWidget(OtherAccounts(std::move(accounts), ledger), txn, ledger, usable, displayAs, usesEverydayTerms,
                        parent)
{}

TransactionWidget::TransactionWidget(OtherAccounts const& accounts, Transaction const& txn, AccountCode const& ledger,
                                     std::set<fiscora::Currency> const& usable,
                                     navigation::CurrencyDisplayOptions const& displayAs, bool const& usesEverydayTerms,
                                     foundation::QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), ledger_(ledger)
{
    setupUi(this);
    orderTabs();
    setAttribute(Qt::WA_DeleteOnClose);
    errorWdgt->showMessage(std::nullopt); // its form comes with a text
    amountMnyntry->showLabel(false);
    amountMnyntry->setUsableCurrencies(usable, displayAs);
    offer(accounts);
    fill(txn, accounts);
    join();
    selectedChckbx->hide();
    if (usesEverydayTerms) {
        debitRdbttn->setText(tr("Payment For"));
        creditRdbttn->setText(tr("Monies From"));
    }
}

TransactionWidget::~TransactionWidget()
{
    stopListening(*this);
}

/// The form puts the boxes behind the amount, which takes no focus itself: Qt leaves them where they were made, ahead of all.
void TransactionWidget::orderTabs()
{
    QWidget* before = amountMnyntry->findChild<QLineEdit*>(QStringLiteral("amountLndt"));
    for (QWidget* const box : {selectedChckbx, reconciledChckbx, removeChckbx}) {
        setTabOrder(before, box);
        before = box;
    }
}

/// Offers all at once. Only the log tells of each, so nothing is done for each while nobody listens.
void TransactionWidget::offer(OtherAccounts const& accounts)
{
    if (QLoggingCategory::defaultCategory()->isDebugEnabled()) {
        for (auto const& account : accounts.codes()) {
            logOffer(account, ledger_);
        }
    }
    settleSize(*accountCmbbx, accounts.widestText());
    appendTexts(*accountCmbbx, accounts.texts());
}

void TransactionWidget::fill(Transaction const& txn, OtherAccounts const& accounts)
{
    if (!txn.number()) {
        occurredOnDtdt->setDate(QDate::currentDate());
        numberLbl->clear();
        return;
    }
    auto const isDebit = isOf(txn.debiting(), ledger_);
    occurredOnDtdt->setDate(txn.occurredOn());
    setNumber(*txn.number());
    descriptionLndt->setText(txn.description().value_or(QString()));
    descriptionLndt->setCursorPosition(0);
    reconciledChckbx->setCheckState(toCheckState(txn.status()));
    accountCmbbx->setCurrentIndex(accounts.rowOf(isDebit ? txn.crediting() : txn.debiting()));
    debitRdbttn->setChecked(!isDebit);
    if (!isOf(txn.crediting(), ledger_)) {
        creditRdbttn->setChecked(true); // which wins where the ledger is on neither side
    }
    amountMnyntry->setAmount(txn.amount());
    if (txn.status() == TransactionStatuses::Reconciled) {
        setReadOnly(true);
    }
}

/// Comes last, so that filling the form leaves it clean.
void TransactionWidget::join()
{
    connect(occurredOnDtdt, &QDateEdit::dateChanged, this, &TransactionWidget::markDirty);
    connect(descriptionLndt, &QLineEdit::editingFinished, this, &TransactionWidget::markDirty);
    connect(reconciledChckbx, &QCheckBox::stateChanged, this, &TransactionWidget::markDirty);
    connect(debitRdbttn, &QRadioButton::clicked, this, &TransactionWidget::markDirty);
    connect(creditRdbttn, &QRadioButton::clicked, this, &TransactionWidget::markDirty);
    connect(accountCmbbx, &QComboBox::currentIndexChanged, this, &TransactionWidget::markDirty);
    connect(amountMnyntry, &MoneyEntryWidget::editingFinished, this, &TransactionWidget::markDirty);
    connect(amountMnyntry, &MoneyEntryWidget::currentIndexChanged, this, &TransactionWidget::markDirty);
    connect(removeChckbx, &QCheckBox::stateChanged, this, &TransactionWidget::markDirty);
    connect(selectedChckbx, &QCheckBox::stateChanged, this, &TransactionWidget::onStateChanged);
    accountCmbbx->installEventFilter(this);
    leaveWheelToList(*this);
}

bool TransactionWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == accountCmbbx && opensPopUp(*event)) {
        makeRoomForItems(*accountCmbbx);
    }
    return QWidget::eventFilter(watched, event);
}

void TransactionWidget::setNumber(TransactionNumber const& number)
{
    qInfo() << "Set Transaction Number for" << descriptionLndt->text() << "to" << number;
    numberLbl->setText(accounting::transactionCaption().arg(presentationText(number)));
}

std::optional<TransactionNumber> TransactionWidget::number() const
{
    return accounting::toTransactionNumber(numberLbl->text());
}

QDate TransactionWidget::occurredOn() const
{
    return occurredOnDtdt->date();
}

QString TransactionWidget::description() const
{
    return descriptionLndt->text();
}

fiscora::Money TransactionWidget::amount() const
{
    return amountMnyntry->amount();
}

bool TransactionWidget::isCredited() const
{
    return creditRdbttn->isChecked();
}

bool TransactionWidget::isDebited() const
{
    return debitRdbttn->isChecked();
}

std::optional<AccountCode> TransactionWidget::otherAccount() const
{
    return accountCmbbx->currentIndex() <= blankRow
               ? std::nullopt
               : std::optional(accounting::toAccountCode(accountCmbbx->currentText()));
}

AccountCode TransactionWidget::debiting() const
{
    return isDebited() ? otherAccount().value_or(AccountCode()) : ledger_;
}

AccountCode TransactionWidget::crediting() const
{
    return isCredited() ? otherAccount().value_or(AccountCode()) : ledger_;
}

Transaction TransactionWidget::transaction() const
{
    return {occurredOn(), debiting(), crediting(), amount(), description(), number(), status()};
}

Transaction TransactionWidget::requested() const
{
    auto const trimmed = description().trimmed();
    return {occurredOn(),
            debiting(),
            crediting(),
            amount(),
            trimmed.isEmpty() ? std::nullopt : std::optional(trimmed),
            std::nullopt,
            TransactionStatuses::NotCleared};
}

TransactionStatuses TransactionWidget::status() const
{
    return toStatus(reconciledChckbx->checkState());
}

bool TransactionWidget::isCleared() const
{
    return status() == TransactionStatuses::Cleared;
}

bool TransactionWidget::isReconciled() const
{
    return status() == TransactionStatuses::Reconciled;
}

bool TransactionWidget::isRemoved() const
{
    return removeChckbx->isChecked();
}

bool TransactionWidget::isSelected() const
{
    return selectedChckbx->isChecked();
}

void TransactionWidget::deselect()
{
    selectedChckbx->setChecked(false);
}

bool TransactionWidget::isReadOnly() const
{
    return !reconciledChckbx->isEnabledTo(this); // a view that is disabled as a whole leaves its entries editable
}

void TransactionWidget::setReadOnly(bool isReadOnly)
{
    occurredOnDtdt->setReadOnly(isReadOnly);
    descriptionLndt->setReadOnly(isReadOnly);
    amountMnyntry->setReadOnly(isReadOnly);
    reconciledChckbx->setDisabled(isReadOnly);
    accountCmbbx->setDisabled(isReadOnly);
    debitRdbttn->setDisabled(isReadOnly);
    creditRdbttn->setDisabled(isReadOnly);
    removeChckbx->setHidden(isReadOnly);
}

void TransactionWidget::showSelection(bool isShown)
{
    selectedChckbx->setVisible(isShown);
}

void TransactionWidget::addAccount(AccountCode const& account)
{
    logOffer(account, ledger_);
    if (!isOf(account, ledger_)) {
        appendTexts(*accountCmbbx, {presentationText(account)});
    }
}

void TransactionWidget::showError(QString const& message)
{
    errorWdgt->showMessage(message.isEmpty() ? std::nullopt : std::optional(message));
    isDirty_ = true;
}

bool TransactionWidget::hasError() const
{
    return !errorWdgt->isHidden();
}

void TransactionWidget::saved(std::optional<TransactionNumber> const& posted)
{
    if (posted) {
        setNumber(*posted);
    }
    errorWdgt->showMessage(std::nullopt);
    isDirty_ = false;
}

void TransactionWidget::markDirty()
{
    if (isReadOnly()) {
        return;
    }
    qInfo() << "Marking transaction" << numberLbl->text() << "dirty";
    isDirty_ = true;
}

void TransactionWidget::onStateChanged(int rawState)
{
    qInfo() << "Transaction" << numberLbl->text() << "state changed to" << rawState;
    if (selectedChckbx->isHidden()) {
        return;
    }
    if (rawState == Qt::Checked) {
        emit selected(number());
    } else if (rawState == Qt::Unchecked) {
        emit deselected(number());
    }
}
}
