#pragma once

#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/accounting/TransactionStatuses.h>

#include <QDate>
#include <QDebug>
#include <QString>

#include <compare>
#include <optional>

namespace tlm::accounting {

/// One double-entry posting: an amount that goes to the debited account and comes from the credited one.
///
/// Ordered by date, then number, of which none is the least, then accounts, amount, description and status.
class Transaction
{
public:
    /// No posting yet: no date, no accounts, no amount, no number.
    Transaction() = default;

    /// \param amount above zero, since a posting the other way swaps the accounts
    /// \param number empty when the ledger hasn't seen the transaction
    /// \throws foundation::Error with a sentence for the person who typed, when the date is invalid, both accounts are
    ///         the same, or the amount isn't above zero or has no currency
    Transaction(QDate const& occurredOn, AccountCode const& debiting, AccountCode const& crediting,
                fiscora::Money const& amount, std::optional<QString> description,
                std::optional<TransactionNumber> number, TransactionStatuses const& status);

    QDate const& occurredOn() const noexcept { return occurredOn_; }
    AccountCode const& debiting() const noexcept { return debiting_; }
    AccountCode const& crediting() const noexcept { return crediting_; }
    fiscora::Money const& amount() const noexcept { return amount_; }
    std::optional<QString> const& description() const noexcept { return description_; }
    std::optional<TransactionNumber> const& number() const noexcept { return number_; }
    TransactionStatuses const& status() const noexcept { return status_; }

    /// Raises the status to cleared. A reconciled transaction stays reconciled.
    void markCleared() noexcept;
    void markReconciled() noexcept;

    friend bool operator==(Transaction const&, Transaction const&) = default;
    friend std::strong_ordering operator<=>(Transaction const&, Transaction const&) = default;

private:
    // In the order that comparisons follow.
    QDate occurredOn_;
    std::optional<TransactionNumber> number_;
    AccountCode debiting_;
    AccountCode crediting_;
    fiscora::Money amount_;
    std::optional<QString> description_;
    TransactionStatuses status_ = TransactionStatuses::NotCleared;
};

QDebug operator<<(QDebug debug, Transaction const& transaction);
}
