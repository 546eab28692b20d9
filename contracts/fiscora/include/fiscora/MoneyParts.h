#pragma once

#include <fiscora/Currency.h>

#include <optional>
#include <string>

namespace fiscora {

/// An amount as a person wrote it, taken apart, but not yet checked against the range of Money.
///
/// The sign is that of major(). A negative amount under one whole unit has a major part of zero, which holds no sign;
/// its subMinor() carries minusFlag_ instead, so that the sign reaches the Money made from these parts.
class MoneyParts
{
public:
    /// Bit of subMinor() that makes an amount negative whose major part is zero.
    static constexpr unsigned short minusFlag_ = 0x8000;

    MoneyParts(Currency const& code, long long const& major, std::optional<unsigned short> const& minor,
               unsigned short const& subMinor)
        : code_(code), major_(major), minor_(minor), subMinor_(subMinor)
    {}

    Currency const& code() const noexcept { return code_; }

    /// \return whole units, negative for a negative amount
    long long const& major() const noexcept { return major_; }

    /// \return minor units, empty when the text had none or the currency has none
    std::optional<unsigned short> const& minorOnly() const noexcept { return minor_; }

    /// \return hundredths of a minor unit, 0 to 99, and perhaps the minusFlag_
    unsigned short const& subMinor() const noexcept { return subMinor_; }

    friend bool operator==(MoneyParts const&, MoneyParts const&) noexcept = default;

private:
    Currency code_;
    long long major_;
    std::optional<unsigned short> minor_;
    unsigned short subMinor_;
};

/// Takes apart an amount immediately followed by a currency code, "-12.50EUR".
///
/// Reads decimal digits of every script, a minus in front in its various forms, and marks of the writing direction, but
/// no group separators, since they are points elsewhere. The bare code "XXX" gives the parts of the empty money.
///
/// \param text UTF-8
/// \param decimalPoint as Latin-1; the Arabic decimal separator is always read as a point, too. Where the locale's
///        point isn't ASCII, this is 0 or another stand-in, and means the full stop.
/// \throws std::invalid_argument with a sentence for the person who typed, when \a text isn't an amount, names no
///         known currency, has no currency, or has more digits after the point than are stored
/// \throws std::overflow_error likewise, when the whole units leave 64 bits
MoneyParts split(std::string const& text, char decimalPoint);
}
