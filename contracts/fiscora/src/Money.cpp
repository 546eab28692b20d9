#include "Checked.h"
#include "Texts.h"

#include <fiscora/Money.h>
#include <fiscora/MoneyParts.h>

#include <stdexcept>

namespace fiscora {

namespace {

long long storedUnitsIn(Currency code)
{
    return checked::powerOfTen(storedDigits(code));
}

long long subMinorUnitsInMinor()
{
    return checked::powerOfTen(Money::subMinorDigits_);
}

void requireSame(Currency left, Currency right)
{
    if (left != right) {
        throw std::invalid_argument(
            Texts::tr("Amounts of different currencies can't be reckoned with each other. Convert one of them first.")
                .toStdString());
    }
}

/// \return stored units of \a other to reckon with in \a code
long long unitsFor(Currency code, Money const& other)
{
    if (other.code() == Currency::XXX) {
        return code == Currency::XXX ? other.amount() : 0;
    }
    requireSame(code, other.code());
    return other.amount();
}

/// \return stored units that lie below the whole ones, without sign
long long fraction(Currency code, unsigned short minor, unsigned short subMinor)
{
    auto const subMinorUnits = static_cast<unsigned short>(subMinor & ~MoneyParts::minusFlag_);
    if (minor >= checked::powerOfTen(minorUnitDigits(code)) || subMinorUnits >= subMinorUnitsInMinor()) {
        throw std::invalid_argument(
            Texts::tr("The part after the decimal point has more digits than this currency has.").toStdString());
    }
    return minor * subMinorUnitsInMinor() + subMinorUnits;
}
}

Money::Money(Currency const& code, long long const& major, unsigned short const& minor, unsigned short const& subMinor)
    : code_(code), amount_(checked::multiply(major, storedUnitsIn(code)))
{
    auto const hasMinusFlag = (subMinor & MoneyParts::minusFlag_) != 0;
    if (hasMinusFlag && major != 0) {
        throw std::invalid_argument(
            Texts::tr("Whole units and the part after the decimal point differ in sign.").toStdString());
    }
    auto const below = fraction(code, minor, subMinor);
    amount_ = major < 0 || hasMinusFlag ? checked::subtract(amount_, below) : checked::add(amount_, below);
}

Money Money::fromAmount(Currency const& code, long long const& storedAmount) noexcept
{
    Money money(code);
    money.amount_ = storedAmount;
    return money;
}

long long Money::major() const
{
    return amount_ / storedUnitsIn(code_);
}

std::optional<unsigned short> Money::minorOnly() const
{
    if (minorUnitDigits(code_) == 0) {
        return std::nullopt;
    }
    auto const below = amount_ % storedUnitsIn(code_) / subMinorUnitsInMinor();
    return static_cast<unsigned short>(below < 0 ? -below : below);
}

Money& Money::operator+=(Money const& other)
{
    amount_ = checked::add(amount_, unitsFor(code_, other));
    return *this;
}

Money& Money::operator-=(Money const& other)
{
    amount_ = checked::subtract(amount_, unitsFor(code_, other));
    return *this;
}

Money Money::operator-(Money const& other) const
{
    auto difference = *this;
    return difference -= other;
}

Money Money::operator-() const
{
    return fromAmount(code_, checked::subtract(0, amount_));
}

double Money::operator/(Money const& other) const
{
    requireSame(code_, other.code_);
    if (other.amount_ == 0) {
        throw std::domain_error(Texts::tr("An amount can't be measured against zero.").toStdString());
    }
    return static_cast<double>(amount_) / static_cast<double>(other.amount_);
}

Money Money::round(Rounder const& rounder, unsigned char digits) const
{
    return fromAmount(code_, rounder(amount_, storedDigits(code_), digits));
}

unsigned char storedDigits(Currency const& code)
{
    return static_cast<unsigned char>(minorUnitDigits(code) + Money::subMinorDigits_);
}

std::string toDecimal(Money const& money)
{
    auto const isNegative = money < 0;
    // Negated without sign, since the least amount has no positive counterpart.
    auto const magnitude = isNegative ? 0 - static_cast<unsigned long long>(money.amount())
                                      : static_cast<unsigned long long>(money.amount());
    auto digits = std::to_string(magnitude);
    auto const below = std::size_t{storedDigits(money.code())};
    if (digits.size() <= below) {
        digits.insert(0, below + 1 - digits.size(), '0');
    }
    auto shown = below;
    if (digits.ends_with("00")) {
        shown -= Money::subMinorDigits_;
        digits.resize(digits.size() - Money::subMinorDigits_);
    }
    if (shown > 0) {
        digits.insert(digits.size() - shown, 1, '.');
    }
    return isNegative ? '-' + digits : digits;
}

std::string toStdString(Money const& money)
{
    return toDecimal(money) + ' ' + toStdString(money.code());
}
}
