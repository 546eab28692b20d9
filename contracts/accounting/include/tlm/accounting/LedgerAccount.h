#pragma once

#include <tlm/accounting/Account.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/accounting/TransactionNumber.h>

#include <QDebug>

#include <map>

namespace tlm::accounting {

/// An account with all that was posted to it.
struct LedgerAccount
{
    Account account;
    std::map<TransactionNumber, Transaction> transactions; ///< each debits or credits the account

    friend bool operator==(LedgerAccount const&, LedgerAccount const&) = default;
};

/// Tells how many transactions there are, since all of them would flood the log.
QDebug operator<<(QDebug debug, LedgerAccount const& ledger);
}
