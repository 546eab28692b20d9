#pragma once

#include <tlm/accounting/AccountNumber.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/banking/BankName.h>

#include <QDebug>

#include <map>

namespace tlm::banking {

/// A bank with the accounts that a household has there.
class Bank
{
public:
    /// An open bank without name and accounts.
    Bank() = default;
    Bank(BankName bankName, std::map<accounting::AccountNumber, BankAccountTypes> accounts, bool closed);

    std::map<accounting::AccountNumber, BankAccountTypes> const& accounts() const noexcept { return accounts_; }
    bool const& isClosed() const noexcept { return isClosed_; }

    friend bool operator==(Bank const&, Bank const&) = default;

    BankName name;

private:
    std::map<accounting::AccountNumber, BankAccountTypes> accounts_;
    bool isClosed_ = false;
};

QDebug operator<<(QDebug debug, Bank const& bank);
}
