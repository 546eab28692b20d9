#include "internal/GeneralLog.h"
#include "internal/TransactionsWidget.h"

#include <tlm/foundation/Error.h>
#include <tlm/foundation/ScopeExecutor.h>

#include <QDebug>

#include <algorithm>
#include <utility>

// The walk that sends what has changed, and the answers to it.

namespace tlm::desktop_ui::internal {

using accounting::TransactionNumber;
using foundation::Error;
using foundation::QtPtr;
using foundation::ScopeExecutor;

namespace {

QString descriptionOf(TransactionRecord const& record)
{
    return record.row ? record.row->description() : record.transaction.description().value_or(QString());
}
}

void TransactionsWidget::save()
{
    qInfo() << "Saving Transactions";
    QtPtr<TransactionsWidget> const self = this;
    auto const present = records_.size();
    for (Index index = 0; self && index < present; ++index) {
        if (!records_.at(index).isGone) {
            examine(index);
        }
    }
    qInfo() << "Processed all ledger transactions.";
}

void TransactionsWidget::examine(Index index)
{
    auto const& record = records_.at(index);
    qCInfo(generalLog) << "Examining Transaction:" << record.number.value_or(TransactionNumber())
                       << descriptionOf(record);
    if (record.row && record.row->isDirty()) {
        send(index);
    } else {
        qCInfo(generalLog) << "Transaction Not Changed";
    }
}

/// A receiver may answer inside the emission, and end the entry, or this list, as it likes.
void TransactionsWidget::send(Index index)
{
    QtPtr<TransactionsWidget> const self = this;
    auto const row = records_.at(index).row;
    auto const number = records_.at(index).number;
    ScopeExecutor const over([self, before = std::exchange(sending_, Sending{index, number})] {
        if (self) {
            self->sending_ = before;
        }
    });
    try {
        sendChange(*row, number);
    } catch (Error const& error) {
        if (self && row) {
            saveFailed(number, error.message());
        } else {
            qWarning() << "Failure saving" << number.value_or(TransactionNumber()) << error.message();
        }
    }
}

void TransactionsWidget::sendChange(TransactionWidget const& row, Number const& number)
{
    if (row.isRemoved()) {
        sendRemoval(number);
    } else if (number) {
        sendUpdate(row, *number);
    } else {
        sendAddition(row);
    }
}

// What is sent is read off the row first: an answer changes the row, or ends it, while others still listen.

void TransactionsWidget::sendRemoval(Number const& number)
{
    qInfo() << "Transaction to be Removed";
    if (number) {
        emit removed(*number);
    } else {
        saveSucceeded(std::nullopt, std::nullopt); // the books have never seen it
    }
}

void TransactionsWidget::sendUpdate(TransactionWidget const& row, TransactionNumber const& number)
{
    QtPtr<TransactionsWidget> const self = this;
    auto const isCleared = row.isCleared();
    auto const isReconciled = row.isReconciled();
    auto const txn = row.requested();
    qInfo() << "Transaction to be Updated:" << number;
    emit updated(number, txn);
    if (self && isCleared) {
        emit markCleared({number});
    }
    if (self && isReconciled) {
        emit markReconciled(number);
    }
}

void TransactionsWidget::sendAddition(TransactionWidget const& row)
{
    auto txn = row.requested();
    qInfo() << "Transaction to be Added" << row.description();
    if (row.isCleared()) {
        txn.markCleared();
    }
    if (row.isReconciled()) {
        txn.markReconciled();
    }
    emit added(txn);
}

/// An answer is for the entry that is being sent. An entry may show the number of another one in a second ledger, and what
/// was not changed waits for no answer.
auto TransactionsWidget::answeredEntry(Number const& number) const -> Index
{
    if (sending_ && !records_.at(sending_->index).isGone &&
        (number == sending_->number || number == records_.at(sending_->index).number)) {
        return sending_->index;
    }
    auto const& fitting = records_.numbered(number);
    if (fitting.empty()) {
        qFatal("Didn't locate the transaction that succeeded to be saved.");
    }
    auto const waiting = std::ranges::find_if(fitting, [this](Index index) {
        auto const& row = records_.at(index).row;
        return row && row->isDirty();
    });
    return waiting == fitting.end() ? fitting.front() : *waiting;
}

void TransactionsWidget::saveSucceeded(Number const& displayed, Number const& posted)
{
    qInfo() << "Succeeded to save transaction" << displayed.value_or(TransactionNumber());
    auto const index = answeredEntry(displayed);
    auto& row = rows_->row(index);
    row.saved(posted);
    records_.at(index).wasAnswered = true;
    if (posted) {
        records_.renumber(index, *posted);
    }
    if (row.isRemoved()) {
        records_.remove(index);
        row.deleteLater();
    }
}

void TransactionsWidget::saveFailed(Number const& txnNum, QString const& errorMessage)
{
    qWarning() << "Failure saving" << txnNum.value_or(TransactionNumber()) << errorMessage;
    auto const index = answeredEntry(txnNum);
    rows_->row(index).showError(errorMessage);
    records_.at(index).wasAnswered = true;
}
}
