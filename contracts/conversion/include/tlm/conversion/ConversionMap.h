#pragma once

#include <fiscora/Currency.h>
#include <fiscora/FloatingPoint.h>
#include <tlm/conversion/AllowExpiredConversion.h>
#include <tlm/conversion/RateLookedUp.h>

#include <chrono>
#include <map>
#include <ratio>
#include <set>
#include <utility>

namespace tlm::conversion {

/// Exchange rates between currencies, each for one direction: what one unit of the first is worth in the second.
///
/// A rate that was looked up expires `lookedUpRatesLast_` after the last fetch, and counts as expired where that is told to
/// lie ahead; a rate that a person typed never does.
/// Nothing is derived: neither the way back nor a currency with itself has a rate until one is stored.
class ConversionMap
{
public:
    using Rates = std::map<fiscora::Currency, std::map<fiscora::Currency, fiscora::FloatingPoint>>;
    /// Counts ticks of 100 nanoseconds since the Unix epoch.
    using TimePoint =
        std::chrono::time_point<std::chrono::system_clock, std::chrono::duration<long long, std::ratio<1, 10000000>>>;

    /// Published reference rates change once a working day.
    static constexpr std::chrono::hours lookedUpRatesLast_{24};

    /// \return whether there is a rate for going from \a from to \a to, and, unless \a allowExpired, it is still fresh
    bool hasConversion(fiscora::Currency const& from, fiscora::Currency const& to,
                       AllowExpiredConversion const& allowExpired) const;

    /// \return the rate, expired or not
    /// \throws foundation::Error when there is none
    fiscora::FloatingPoint const& conversion(fiscora::Currency const& from, fiscora::Currency const& to) const;

    /// Stores \a rate in place of any before it. A looked-up rate also moves `lastFetched` to the present.
    ///
    /// \throws foundation::Error when \a rate isn't a finite number above zero; the map then stays as it was
    void updateConversion(fiscora::Currency const& from, fiscora::Currency const& to, fiscora::FloatingPoint rate,
                          RateLookedUp const& lookedUp);

    /// \return whether the rate from \a from to \a to was looked up; false when a person typed it and when there is
    /// none
    bool isLookedUp(fiscora::Currency const& from, fiscora::Currency const& to) const;

    /// \return when rates were looked up last, the Unix epoch when never
    TimePoint const& lastFetched() const noexcept { return lastFetched_; }

    /// For rates that were fetched earlier, by a service or before they were stored in a file.
    void setLastFetched(TimePoint const& fetched) noexcept { lastFetched_ = fetched; }

    /// \return all rates, by the currency that they go from, then the one that they go to
    Rates const& rates() const noexcept { return rates_; }
    Rates& rates() noexcept { return rates_; }

    /// Equal maps hold the same rates, of the same origin, fetched at the same time.
    friend bool operator==(ConversionMap const& left, ConversionMap const& right);

private:
    using Direction = std::pair<fiscora::Currency, fiscora::Currency>;

    std::set<Direction> lookedUpDirections() const;

    Rates rates_;
    TimePoint lastFetched_{};
    std::set<Direction> lookedUp_; // may name directions whose rate was cleared since
};
}
