#pragma once

#include <tlm/accounting/AccountNumber.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/banking/BankName.h>

#include <QDebug>

#include <compare>

namespace tlm::banking {

/// An account at a bank. What hasn't been chosen yet is empty, invalid or unspecified.
struct BankAccount
{
    BankName bank;
    accounting::AccountNumber number;
    BankAccountTypes type = BankAccountTypes::Unspecified;

    /// \return the account without its bank
    AccountNumberBankType numberBankType() const noexcept { return {number, type}; }

    friend auto operator<=>(BankAccount const&, BankAccount const&) = default;
};

QDebug operator<<(QDebug debug, BankAccount const& account);
}
