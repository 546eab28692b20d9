#include "internal/LedgersWidget.h"

#include "internal/TransactionWidget.h"
#include "internal/Views.h"

#include <tlm/accounting/AccountTypes.h>
#include <tlm/foundation/Error.h>

#include <QDateEdit>
#include <QDebug>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidgetItemIterator>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::Account;
using accounting::AccountCode;
using accounting::AccountTypes;
using accounting::LedgerAccount;
using accounting::Transaction;
using accounting::TransactionNumber;
using foundation::QtPtr;

namespace {

constexpr std::array types{AccountTypes::Suspense, AccountTypes::Asset,     AccountTypes::Equity,
                           AccountTypes::Expense,  AccountTypes::Liability, AccountTypes::Income};

/// \return the account whose row \a item is, none for the row of a type
std::optional<AccountCode> accountOf(QtPtr<QTreeWidgetItem> const& item)
{
    auto const text = item ? item->text(0) : QString();
    return text.contains(AccountCode::separator_) ? std::optional(accounting::toAccountCode(text)) : std::nullopt;
}

std::unique_ptr<QTreeWidgetItem> typeRow(AccountTypes type)
{
    auto row = std::make_unique<QTreeWidgetItem>(QStringList(presentationText(type)));
    row->setFlags(Qt::ItemIsEnabled);
    return row;
}

/// Scrolls sideways to what is too wide, rather than to cut it off.
void makeRoomForTexts(QTreeWidget& tree)
{
    auto const metrics = tree.fontMetrics();
    auto widest = 0;
    QTreeWidgetItem const* widestRow = nullptr;
    for (QTreeWidgetItemIterator row(&tree); *row != nullptr; ++row) {
        if (auto const width = metrics.horizontalAdvance((*row)->text(0)); width > widest) {
            widest = width;
            widestRow = *row;
        }
    }
    auto const hint = tree.sizeHintForIndex(tree.indexFromItem(widestRow));
    tree.header()->setMinimumSectionSize(2 * tree.indentation() + hint.width());
}
}

LedgersWidget::LedgersWidget(std::set<Account> accounts, std::set<fiscora::Currency> usable,
                             navigation::CurrencyDisplayOptions const& displayAs, bool const& usesEverydayTerms,
                             QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), accounts_(std::move(accounts))
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    transactionsWdgt->setUp(list(), std::move(usable), displayAs, usesEverydayTerms);
    joinTransactions();
    ledgersTrwdgt->sortItems(0, Qt::AscendingOrder);
    makeRoomForTexts(*ledgersTrwdgt);
    connect(ledgersTrwdgt, &QTreeWidget::currentItemChanged, this, &LedgersWidget::handleSelectedAccount);
    addBttn_ = addButton(*saveDiscardDlgbttnbx, tr("&Add"), tr("Failed to create the add push button."));
    addBttn_->setEnabled(false);
    connect(saveDiscardDlgbttnbx, &QDialogButtonBox::clicked, this, &LedgersWidget::onClicked);
}

/// Gives each type a row, and each account one below its type's.
/// \return the accounts in the order of the rows
std::vector<AccountCode> LedgersWidget::list()
{
    std::vector<AccountCode> listed;
    for (auto const type : types) {
        auto row = typeRow(type);
        for (auto const& account : accounts_) {
            if (account.type() == type) {
                row->addChild(new QTreeWidgetItem(QStringList(presentationText(account.code()))));
                listed.push_back(account.code());
            }
        }
        ledgersTrwdgt->addTopLevelItem(row.release());
    }
    return listed;
}

void LedgersWidget::joinTransactions()
{
    using List = TransactionsWidget;
    connect(transactionsWdgt, &List::added, this, &LedgersWidget::addedTransaction);
    connect(transactionsWdgt, &List::updated, this, &LedgersWidget::updatedTransaction);
    connect(transactionsWdgt, &List::markCleared, this, &LedgersWidget::markCleared);
    connect(transactionsWdgt, &List::markReconciled, this, &LedgersWidget::markReconciled);
    connect(transactionsWdgt, &List::removed, this, &LedgersWidget::removedTransaction);
}

void LedgersWidget::handleSelectedAccount(QtPtr<QTreeWidgetItem> const& current, QtPtr<QTreeWidgetItem> const& previous)
{
    if (auto const left = accountOf(previous)) {
        qInfo() << "Hiding transactions for selected account" << presentationText(*left);
        transactionsWdgt->hideLedger(*left);
    }
    auto const code = accountOf(current);
    if (!code) {
        addBttn_->setEnabled(false);
        return;
    }
    qInfo() << "Requesting to display" << current->text(0);
    addBttn_->setEnabled(true);
    if (transactionsWdgt->isLoaded(*code)) {
        transactionsWdgt->showLedger(*code);
    } else {
        emit selectedLedger(*code);
    }
}

void LedgersWidget::onShowLedger(LedgerAccount const& ledger)
{
    auto const& code = ledger.account.code();
    qInfo() << "Showing Ledger:" << presentationText(code);
    std::vector<Transaction> transactions;
    transactions.reserve(ledger.transactions.size());
    for (auto const& [number, transaction] : ledger.transactions) {
        transactions.push_back(transaction);
    }
    if (auto const selected = accountOf(ledgersTrwdgt->currentItem())) {
        transactionsWdgt->add(*selected, std::move(transactions));
        transactionsWdgt->showLedger(code);
    } else {
        // No account is chosen by now, so nothing may show; the ledger waits for its account to be chosen again.
        transactionsWdgt->add(code, std::move(transactions));
        transactionsWdgt->hideLedger(code);
    }
}

bool LedgersWidget::close()
{
    return tellAndClose(this);
}

void LedgersWidget::onClicked(QtPtr<QAbstractButton> const& button)
{
    qInfo() << "Handling button clicked" << button->text();
    if (button == saveDiscardDlgbttnbx->button(QDialogButtonBox::Discard)) {
        close();
    } else if (button == saveDiscardDlgbttnbx->button(QDialogButtonBox::Save)) {
        save();
    } else if (button == addBttn_) {
        add();
    }
}

void LedgersWidget::save()
{
    QtPtr<LedgersWidget> const self = this;
    transactionsWdgt->save();
    if (self && !transactionsWdgt->anyDirty()) {
        close();
    }
}

void LedgersWidget::add()
{
    auto const code = accountOf(ledgersTrwdgt->currentItem());
    if (!code) {
        return;
    }
    if (!transactionsWdgt->hasNewEntry()) {
        transactionsWdgt->add(*code, Transaction());
    }
    transactionsWdgt->showLedger(*code);
    putCursorIntoNewEntry();
}

/// The new entry may belong to a ledger that isn't shown.
void LedgersWidget::putCursorIntoNewEntry()
{
    auto const entries = transactionsWdgt->findChildren<TransactionWidget*>();
    auto const entry =
        std::ranges::find_if(entries, [this](auto const* each) { return each->isVisibleTo(this) && !each->number(); });
    if (entry != entries.end()) {
        (*entry)->findChild<QDateEdit*>(QStringLiteral("occurredOnDtdt"))->setFocus(Qt::OtherFocusReason);
    }
}

void LedgersWidget::onSaveSucceeded(std::optional<TransactionNumber> const& displayed,
                                    std::optional<TransactionNumber> const& posted)
{
    transactionsWdgt->saveSucceeded(displayed, posted);
    qDebug() << "Checking if everything is saved.";
    if (!transactionsWdgt->anyDirty()) {
        close();
    }
}

void LedgersWidget::onSaveFailed(std::optional<TransactionNumber> const& txnNum, QString const& errorMessage)
{
    transactionsWdgt->saveFailed(txnNum, errorMessage);
}
}
