#pragma once

#include <QDebug>
#include <QString>

#include <compare>

namespace tlm::accounting {

/// Number of a ledger account in the chart of accounts.
///
/// Ranges from 1 to 4 294 967 295; 0, `invalid_`, means that no number has been given yet.
/// Numbers order the chart. They aren't quantities, so there is no arithmetic on them.
class AccountNumber
{
public:
    static constexpr unsigned int invalid_ = 0;

    constexpr AccountNumber() noexcept = default;
    explicit constexpr AccountNumber(unsigned int number) noexcept : number_(number) {}

    constexpr unsigned int const& integer() const noexcept { return number_; }

    friend constexpr auto operator<=>(AccountNumber const&, AccountNumber const&) noexcept = default;

private:
    unsigned int number_ = invalid_;
};

/// \return decimal digits without grouping, whatever the locale, so that the text can be read back base 10
QString presentationText(AccountNumber const& number);

QDebug operator<<(QDebug debug, AccountNumber const& number);
}
