#pragma once

#include <fiscora/Currency.h>

#include <compare>
#include <functional>
#include <optional>
#include <string>

namespace fiscora {

/// An amount of one currency, exact to a hundredth of its minor unit.
///
/// One signed 64-bit integer holds the amount, counted in stored units: 1.50 EUR are 15000, since it has two minor digits
/// and two more lie below them. Arithmetic raises rather than leaves that range, and never rounds by itself.
///
/// The empty money is a zero of code `XXX`. Amounts of that code are left out of the sums of every other currency.
class Money
{
public:
    /// Takes an amount in stored units, the number of its decimal digits and how many of these to keep, and gives the
    /// rounded amount, again in stored units.
    using Rounder = std::function<long long(long long const&, unsigned char const&, unsigned char)>;

    /// Decimal digits stored below the minor unit.
    static constexpr unsigned char subMinorDigits_ = 2;

    /// The empty money.
    Money() noexcept = default;

    /// Zero in the currency \a code.
    explicit Money(Currency const& code) noexcept : code_(code) {}

    /// Makes an amount of the parts of a MoneyParts, or of \a major whole units.
    ///
    /// A negative \a major makes the whole amount negative; where it is zero, MoneyParts::minusFlag_ in \a subMinor does.
    /// \param minor below one whole unit: 0 to 99 for the euro, 0 for a currency without minor units
    /// \param subMinor hundredths of a minor unit, 0 to 99, and perhaps the flag
    /// \throws std::invalid_argument when the parts don't fit the currency, or the flag meets a \a major that isn't zero
    /// \throws std::overflow_error when the amount leaves 64 bits
    Money(Currency const& code, long long const& major, unsigned short const& minor, unsigned short const& subMinor);

    /// Makes a money from what amount() gave, for storage.
    static Money fromAmount(Currency const& code, long long const& storedAmount) noexcept;

    Currency const& code() const noexcept { return code_; }

    /// \return amount in stored units, 10^storedDigits() to one whole unit
    long long const& amount() const noexcept { return amount_; }

    /// \return whole units, what lies below them cut off
    long long major() const;

    /// \return minor units below the whole ones, without sign; empty for a currency without minor units
    std::optional<unsigned short> minorOnly() const;

    Money& assign(Money const& other) noexcept { return *this = other; }
    Money& assign(Money&& other) noexcept { return *this = other; }

    /// Adds \a other in place.
    /// \throws std::invalid_argument when the currencies differ; but an \a other of code `XXX` is left out
    /// \throws std::overflow_error when the sum leaves 64 bits; this money then keeps its amount
    Money& operator+=(Money const& other);

    /// Subtracts \a other in place. Throws as operator+=() does.
    Money& operator-=(Money const& other);

    /// Throws as operator+=() does.
    Money operator-(Money const& other) const;

    /// \throws std::overflow_error for the least amount of 64 bits, which has no counterpart
    Money operator-() const;

    /// \return how many times \a other goes into this money
    /// \throws std::invalid_argument when the currencies differ
    /// \throws std::domain_error when \a other is zero
    double operator/(Money const& other) const;

    /// \return this money rounded by \a rounder to \a digits after the decimal point
    /// \throws what \a rounder throws
    Money round(Rounder const& rounder, unsigned char digits) const;

    /// Monies of different currencies are different, zeros too.
    bool operator==(Money const& other) const noexcept = default;

    /// Orders by currency first, so that any monies can be keys; only like currencies compare by worth.
    std::strong_ordering operator<=>(Money const& other) const noexcept = default;

    /// Compares amount() with \a storedAmount; mostly with 0, which means the same in every unit.
    bool operator==(int const& storedAmount) const noexcept { return amount_ == storedAmount; }
    std::strong_ordering operator<=>(int const& storedAmount) const noexcept { return amount_ <=> storedAmount; }

private:
    Currency code_ = Currency::XXX;
    long long amount_ = 0;
};

/// \return decimal digits of Money::amount() that lie after the decimal point: minorUnitDigits() and two more
unsigned char storedDigits(Currency const& code);

/// Writes the amount exactly, in ASCII whatever the locale: "-1234.50".
/// \return all of the currency's minor digits, and those below where they aren't zero; no groups
std::string toDecimal(Money const& money);

/// \return amount and code for the log, "-12.50 EUR"
std::string toStdString(Money const& money);
}
