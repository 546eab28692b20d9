#pragma once

#include <fiscora/Money.h>

#include <map>

namespace fiscora::math::detail {

/// Makes one total in \a target of running totals by currency, by the rates registered (see Conversions.h).
///
/// Totals of code `XXX` are left out. So is a total without a rate, with a warning in the log: at par it would falsify.
/// The total is made to be shown, so it is rounded to whole minor units, halves away from zero.
/// \throws std::overflow_error when the total leaves 64 bits
Money accumulateRunningTotals(Currency const& target, std::map<Currency, Money> const& totals);
}
