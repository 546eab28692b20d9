#pragma once

#include <fiscora/Money.h>
#include <tlm/banking/BankAccount.h>

#include <QDate>
#include <QDebug>

#include <optional>

namespace tlm::banking {

/// A bank account with its last reconciled balance.
class ReconciledBankAccount
{
public:
    /// An unspecified account of no bank, never reconciled, with the empty money.
    ReconciledBankAccount() = default;

    /// \param reconciledOn empty when the account was never reconciled; \a balance is then what it started with
    ReconciledBankAccount(BankAccount bankAccount, fiscora::Money const& balance, std::optional<QDate> reconciledOn);

    BankAccount const& bankAccount() const noexcept { return bankAccount_; }
    fiscora::Money const& balance() const noexcept { return balance_; }
    std::optional<QDate> const& reconciledOn() const noexcept { return reconciledOn_; }

    friend bool operator==(ReconciledBankAccount const&, ReconciledBankAccount const&) = default;

private:
    BankAccount bankAccount_;
    fiscora::Money balance_;
    std::optional<QDate> reconciledOn_;
};

QDebug operator<<(QDebug debug, ReconciledBankAccount const& account);
}
