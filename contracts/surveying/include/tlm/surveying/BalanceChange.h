#pragma once

#include <tlm/accounting/Transaction.h>

#include <compare>

namespace tlm::surveying {

/// A transaction as the surveyed bank account saw it. What lowered its balance orders before what raised it.
struct BalanceChange
{
    bool isIncrease = false; ///< whether the transaction raises the account's balance
    accounting::Transaction transaction;

    friend bool operator==(BalanceChange const&, BalanceChange const&) = default;
    friend std::strong_ordering operator<=>(BalanceChange const&, BalanceChange const&) = default;
};
}
