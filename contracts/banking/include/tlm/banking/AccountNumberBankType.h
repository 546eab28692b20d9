#pragma once

#include <tlm/accounting/AccountNumber.h>
#include <tlm/banking/BankAccountTypes.h>

#include <QDebug>

#include <compare>

namespace tlm::banking {

/// A ledger account with the kind of account that its bank keeps for it. Ordered by number first.
struct AccountNumberBankType
{
    accounting::AccountNumber number;
    BankAccountTypes type = BankAccountTypes::Unspecified;

    friend auto operator<=>(AccountNumberBankType const&, AccountNumberBankType const&) = default;
};

QDebug operator<<(QDebug debug, AccountNumberBankType const& account);
}
