#pragma once

#include <fiscora/CurrencyCodes.h>

#include <benchmark/benchmark.h>
#include <cstddef>
#include <malloc.h>
#include <set>

constexpr auto bytesInKilobyte = 1'024.0;

/// \return what the program has allocated and not given back
inline double usedKilobytes()
{
    return static_cast<double>(mallinfo2().uordblks) / bytesInKilobyte;
}

/// \return the time of an iteration over \a count
inline benchmark::Counter timePer(long long count)
{
    return {static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert};
}

/// \return \a count currencies, the euro among them
inline std::set<fiscora::Currency> usableCurrencies(std::size_t count)
{
    std::set usable{fiscora::Currency::EUR};
    for (auto const code : fiscora::allCurrencies) {
        if (usable.size() < count && code != fiscora::Currency::XXX) {
            usable.insert(code);
        }
    }
    return usable;
}
