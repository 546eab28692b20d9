#include "Checked.h"
#include "Texts.h"

#include <fiscora/Conversions.h>
#include <fiscora/Rounders.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <stdexcept>
#include <utility>

namespace fiscora {

namespace {

__extension__ using Wide = __int128;

/// digits * 10^exponent
struct Decimal
{
    long long digits;
    int exponent;
};

std::map<std::pair<Currency, Currency>, Decimal>& rates()
{
    static std::map<std::pair<Currency, Currency>, Decimal> registered;
    return registered;
}

/// The shortest decimal number that stands for \a rate: what a person or a bank wrote, without binary dust.
Decimal shortestDecimal(double rate)
{
    std::array<char, 32> buffer{};
    auto const written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), rate, std::chars_format::scientific);
    Decimal decimal{0, 0};
    auto fractionDigits = 0;
    auto const* sign = buffer.data();
    for (auto isFraction = false; *sign != 'e'; ++sign) {
        if (*sign == '.') {
            isFraction = true;
        } else {
            decimal.digits = decimal.digits * 10 + (*sign - '0');
            fractionDigits += isFraction ? 1 : 0;
        }
    }
    // from_chars takes no plus.
    auto const* const exponent = sign[1] == '+' ? sign + 2 : sign + 1;
    std::from_chars(exponent, written.ptr, decimal.exponent);
    decimal.exponent -= fractionDigits;
    return decimal;
}

/// \return \a value * 10^\a exponent, an integer again, halves rounded away from zero
Wide scale(Wide value, int exponent)
{
    for (; exponent > 0 && value != 0; --exponent) {
        if (__builtin_mul_overflow(value, Wide{10}, &value)) {
            checked::raiseOverflow();
        }
    }
    auto firstDigitCutOff = Wide{0};
    for (; exponent < 0; ++exponent) {
        firstDigitCutOff = value % 10;
        value /= 10;
    }
    return value + firstDigitCutOff / 5; // one away from zero from five on
}

/// \param cutOff number of digits at the end of a stored amount that are to be zeros
std::optional<Money> convertedTo(Currency const& to, Money const& money, int cutOff)
{
    auto const rate = rates().find({money.code(), to});
    if (rate == rates().end()) {
        return std::nullopt;
    }
    auto const [digits, exponent] = rate->second;
    auto const rounded =
        scale(Wide{money.amount()} * digits, exponent + storedDigits(to) - storedDigits(money.code()) - cutOff);
    auto const converted = scale(rounded, cutOff);
    if (converted > std::numeric_limits<long long>::max() || converted < std::numeric_limits<long long>::min()) {
        checked::raiseOverflow();
    }
    return Money::fromAmount(to, static_cast<long long>(converted));
}
}

void registerConversion(Currency const& from, Currency const& to, FloatingPoint const& rate)
{
    if (!std::isfinite(rate.underlying()) || rate.underlying() <= 0.0) {
        throw std::invalid_argument(Texts::tr("An exchange rate has to be a number above zero.").toStdString());
    }
    if (from == to || from == Currency::XXX || to == Currency::XXX) {
        throw std::invalid_argument(Texts::tr("An exchange rate needs two different currencies.").toStdString());
    }
    rates().insert_or_assign({from, to}, shortestDecimal(rate.underlying()));
}

void clearConversions() noexcept
{
    rates().clear();
}

std::optional<Money> convert(Money const& money, Currency const& to)
{
    return money.code() == to ? money : convertedTo(to, money, 0);
}

std::optional<Money> convertToMinorUnits(Money const& money, Currency const& to)
{
    auto const below = storedDigits(to) - static_cast<int>(minorUnitDigits(to));
    return money.code() == to ? money.round(rounders::currency::nearest, minorUnitDigits(to))
                              : convertedTo(to, money, below);
}
}
