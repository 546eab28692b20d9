#include "internal/TransactionsWidget.h"

#include "internal/GeneralLog.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::Transaction;
using accounting::TransactionNumber;
using foundation::QtPtr;

namespace {

constexpr std::uint8_t noSelection = 0;
constexpr std::uint8_t oneSelection = 1;

/// An entry that the person has changed shows a day of its own.
QDate dayOf(TransactionRecord const& record)
{
    return record.row ? record.row->occurredOn() : record.transaction.occurredOn();
}

/// \return whether \a entry, which follows \a kept in its ledger, is the later one
bool isLater(TransactionRecord const& entry, TransactionRecord const& kept)
{
    return !entry.number || dayOf(kept) <= dayOf(entry) || kept.number < entry.number;
}
}

TransactionsWidget::TransactionsWidget(QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
    rows_ = std::make_unique<TransactionRows>(*transactionsScrllr, *transactionVbxlyt, records_,
                                              [this](TransactionRecord const& record) { return makeRow(record); });
}

TransactionsWidget::~TransactionsWidget() = default;

void TransactionsWidget::setUp(std::vector<AccountCode>&& accounts, std::set<fiscora::Currency>&& usable,
                               navigation::CurrencyDisplayOptions displayAs, bool usesEverydayTerms)
{
    accounts_ = std::move(accounts);
    usable_ = std::move(usable);
    displayAs_ = displayAs;
    usesEverydayTerms_ = usesEverydayTerms;
}

void TransactionsWidget::addAccount(AccountCode const& account)
{
    auto const isSame = [&](AccountCode const& known) {
        return known.number() == account.number() && known.name() == account.name(); // whose text is the same, too
    };
    if (std::ranges::any_of(accounts_, isSame)) {
        return;
    }
    qDebug() << "Adding account" << account << "to the list of accounts.";
    accounts_.push_back(account);
    for (auto const& row : rows_->existing()) {
        row->addAccount(account);
    }
}

void TransactionsWidget::add(AccountCode const& ledger, Transaction const& txn)
{
    rows_->append(addRecord(ledger, Transaction(txn)));
}

void TransactionsWidget::add(AccountCode const& ledger, std::vector<Transaction> txns)
{
    std::vector<Transaction*> inOrder; // a transaction is large to move about
    inOrder.reserve(txns.size());
    for (auto& txn : txns) {
        inOrder.push_back(&txn);
    }
    std::ranges::sort(inOrder, {}, [](Transaction const* txn) -> Transaction const& { return *txn; });
    auto const first = records_.size();
    for (auto* const txn : inOrder) {
        addRecord(ledger, std::move(*txn));
    }
    rows_->append(first);
}

auto TransactionsWidget::addRecord(AccountCode const& ledger, Transaction&& txn) -> Index
{
    qCInfo(generalLog) << "Adding Transaction " << presentationText(txn.number().value_or(TransactionNumber()));
    return records_.add(ledger, std::move(txn), accounts_.size());
}

/// An entry that gets its form late has missed what happened since it was added.
QtPtr<TransactionWidget> TransactionsWidget::makeRow(TransactionRecord const& record)
{
    QtPtr<TransactionWidget> row = new TransactionWidget(othersOf(record), record.transaction, record.ledger, usable_,
                                                         displayAs_, usesEverydayTerms_, transactionWdgt);
    for (auto account = record.accounts; account < accounts_.size(); ++account) {
        row->addAccount(accounts_[account]);
    }
    connect(row.get(), &TransactionWidget::selected, this, &TransactionsWidget::onSelected);
    connect(row.get(), &TransactionWidget::deselected, this, &TransactionsWidget::deselected);
    if (readOnly_) {
        row->setReadOnly(*readOnly_);
    }
    row->showSelection(selectionMode_ != noSelection);
    return row;
}

OtherAccounts const& TransactionsWidget::othersOf(TransactionRecord const& record)
{
    if (!offer_ || offer_->accounts != record.accounts || offer_->ledger != record.ledger) {
        auto const known = accounts_.begin() + static_cast<std::ptrdiff_t>(record.accounts);
        offer_ = Offer{record.ledger, record.accounts, OtherAccounts({accounts_.begin(), known}, record.ledger)};
    }
    return offer_->others;
}

bool TransactionsWidget::isLoaded(AccountCode const& ledger) const
{
    return records_.isLoaded(ledger);
}

void TransactionsWidget::showLedger(AccountCode const& ledger)
{
    rows_->setShown(ledger, true);
    if (auto const latest = latestOf(ledger)) {
        rows_->scrollTo(*latest);
    }
}

void TransactionsWidget::hideLedger(AccountCode const& ledger)
{
    rows_->setShown(ledger, false);
}

auto TransactionsWidget::latestOf(AccountCode const& ledger) const -> std::optional<Index>
{
    std::optional<Index> kept;
    for (auto const index : records_.of(ledger)) {
        auto const& entry = records_.at(index);
        if (!entry.isGone && (!kept || isLater(entry, records_.at(*kept)))) {
            kept = index;
        }
    }
    return kept;
}

void TransactionsWidget::setReadOnly(bool isReadOnly)
{
    readOnly_ = isReadOnly;
    for (auto const& row : rows_->existing()) {
        row->setReadOnly(isReadOnly);
    }
}

void TransactionsWidget::setSelectionMode(std::uint8_t mode)
{
    selectionMode_ = mode;
    for (auto const& row : rows_->existing()) {
        row->showSelection(mode != noSelection);
    }
}

void TransactionsWidget::clearSelections()
{
    for (auto const& row : rows_->existing()) {
        if (row) {
            row->deselect();
        }
    }
}

void TransactionsWidget::onSelected(Number const& txnNum)
{
    if (selectionMode_ == oneSelection) {
        auto* const other =
            rows_->find([&](TransactionWidget const& row) { return row.isSelected() && row.number() != txnNum; });
        if (other != nullptr) {
            other->deselect();
        }
    }
    emit selected(txnNum);
}

bool TransactionsWidget::anyDirty() const
{
    return rows_->isAnyDirty();
}

bool TransactionsWidget::hasNewEntry() const
{
    return !records_.numbered(std::nullopt).empty();
}

std::optional<Transaction> TransactionsWidget::find(Number const& txnNum) const
{
    auto const& fitting = records_.numbered(txnNum);
    return fitting.empty() ? std::nullopt : std::optional(rows_->row(fitting.front()).transaction());
}

std::vector<Transaction> TransactionsWidget::selectedTransactions() const
{
    std::vector<Transaction> selection;
    for (auto const& row : rows_->existing()) {
        if (row->isSelected()) {
            selection.push_back(row->transaction());
        }
    }
    return selection;
}
}
