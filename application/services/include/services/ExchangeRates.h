#pragma once

#include <tlm/conversion/ConversionMap.h>

namespace tallymere::services {

/// Makes \a rates the ones with which totals of several currencies are converted from now on, and forgets all others.
///
/// The rates hold for the whole process: one budget is open at a time, and its rates are the ones that count.
/// Expired rates count too, since a total by yesterday's rate tells more than one that leaves an account out.
void registerExchangeRates(tlm::conversion::ConversionMap const& rates);
} // namespace tallymere::services
