#pragma once

#include <fiscora/Currency.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/banking/BankName.h>

#include <QDebug>

#include <compare>

namespace tlm::navigation {

/// A ledger account with the bank that keeps it.
class BankAccountCode
{
public:
    /// \param type what kind of account the bank keeps
    /// \param issuedIn the currency of the account
    BankAccountCode(banking::BankName bank, accounting::AccountCode account, banking::BankAccountTypes type,
                    fiscora::Currency issuedIn);

    banking::BankName const& bank() const noexcept { return bank_; }
    accounting::AccountCode const& account() const noexcept { return account_; }
    /// \return the number of account() with the kind of account that the bank keeps
    banking::AccountNumberBankType const& bankAccountType() const noexcept { return bankAccountType_; }
    fiscora::Currency const& issuedIn() const noexcept { return issuedIn_; }

    /// Orders by bank, then account, kind and currency.
    friend auto operator<=>(BankAccountCode const&, BankAccountCode const&) = default;

private:
    banking::BankName bank_;
    accounting::AccountCode account_;
    banking::AccountNumberBankType bankAccountType_;
    fiscora::Currency issuedIn_;
};

QDebug operator<<(QDebug debug, BankAccountCode const& code);
}
