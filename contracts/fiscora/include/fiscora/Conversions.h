#pragma once

#include <fiscora/FloatingPoint.h>
#include <fiscora/Money.h>

#include <optional>

/// Exchange rates registered for the whole process, used by one thread.
namespace fiscora {

/// Registers or replaces the rate of one direction: one unit of \a from is worth \a rate units of \a to.
/// Nothing is derived for the other direction, since a bank's two rates are no inverses of each other.
/// \throws std::invalid_argument when \a rate isn't a finite number above zero, a code is `XXX`, or both are the same
void registerConversion(Currency const& from, Currency const& to, FloatingPoint const& rate);

/// Forgets all rates.
void clearConversions() noexcept;

/// Converts by the registered rate, read as the shortest decimal number that stands for it, and rounds to a stored unit,
/// halves away from zero. A money of the currency \a to comes back as it is.
/// \return empty when no rate of that direction is registered
/// \throws std::overflow_error when the result leaves 64 bits
std::optional<Money> convert(Money const& money, Currency const& to);

/// As convert(), but to whole minor units. Rounding what convert() gives would round twice, and 0.4950 up to 1.
std::optional<Money> convertToMinorUnits(Money const& money, Currency const& to);
}
