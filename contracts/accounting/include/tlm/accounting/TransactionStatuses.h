#pragma once

#include <QDebug>

namespace tlm::accounting {

/// How far a transaction has been checked against the bank. Each status includes those before it.
enum class TransactionStatuses : unsigned char
{
    NotCleared = 0,
    Cleared = 1,   ///< the bank has carried it out
    Reconciled = 2 ///< it has been part of a reconciled balance
};

QDebug operator<<(QDebug debug, TransactionStatuses const& status);
}
