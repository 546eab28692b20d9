#pragma once

#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountTypes.h>

#include <QDebug>

#include <compare>

namespace tlm::accounting {

/// A ledger account with its balance.
///
/// Ordered by code, which is the order of the chart of accounts, then by type, balance and whether it's closed.
class Account
{
public:
    /// An open suspense account without number and name, which holds the empty money.
    Account() = default;
    Account(AccountTypes type, AccountCode code, fiscora::Money const& balance, bool closed);

    AccountTypes const& type() const noexcept { return type_; }
    AccountCode const& code() const noexcept { return code_; }
    fiscora::Money const& balance() const noexcept { return balance_; }
    bool const& isClosed() const noexcept { return isClosed_; }

    friend bool operator==(Account const&, Account const&) = default;
    friend std::strong_ordering operator<=>(Account const&, Account const&) = default;

private:
    // In the order that comparisons follow.
    AccountCode code_;
    AccountTypes type_ = AccountTypes::Suspense;
    fiscora::Money balance_;
    bool isClosed_ = false;
};

QDebug operator<<(QDebug debug, Account const& account);
}
