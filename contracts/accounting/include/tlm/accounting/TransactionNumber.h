#pragma once

#include <QDebug>
#include <QString>

#include <compare>
#include <optional>

namespace tlm::accounting {

/// Number of a transaction in the general ledger.
///
/// A transaction that the ledger hasn't seen has no number at all, which is told by an empty optional.
class TransactionNumber
{
public:
    constexpr TransactionNumber() noexcept = default;
    explicit constexpr TransactionNumber(unsigned short number) noexcept : number_(number) {}

    constexpr unsigned short const& integer() const noexcept { return number_; }

    friend constexpr auto operator<=>(TransactionNumber const&, TransactionNumber const&) noexcept = default;

private:
    unsigned short number_ = 0;
};

/// \return decimal digits without grouping, whatever the locale
QString presentationText(TransactionNumber const& number);

/// \return "TXN %1" in the person's language, to be filled with a number's presentationText()
QString transactionCaption();

/// Reads the number back from a filled caption, be it that of transactionCaption() or another one without digits.
/// \return empty for an empty text
/// \throws foundation::Error when \a text has no number, one beyond 65 535, or several without being transactionCaption()
std::optional<TransactionNumber> toTransactionNumber(QString const& text);

QDebug operator<<(QDebug debug, TransactionNumber const& number);
}
