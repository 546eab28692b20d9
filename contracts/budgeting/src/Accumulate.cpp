#include "Texts.h"

#include <tlm/budgeting/Accumulate.h>
#include <tlm/budgeting/WorkingWeek.h>
#include <tlm/foundation/Error.h>

#include <array>
#include <cstddef>
#include <limits>
#include <stdexcept>

namespace tlm::budgeting {

namespace {

// A 64-bit amount times a ratio of small whole numbers needs more than 64 bits.
__extension__ using Wide = __int128;

/// Occurrences in a year, a fraction not reduced.
struct YearlyCount
{
    long long times;
    long long within;
};

constexpr YearlyCount weeks(int apart)
{
    return {521'775, 10'000LL * apart};
}

constexpr YearlyCount months(int apart)
{
    return {12, apart};
}

/// In the order of EventFrequency, hours and days as if there was one in a week.
constexpr std::array<YearlyCount, 22> yearlyCounts{{
    {0, 1},     weeks(1),   weeks(1),   weeks(1),   weeks(2),    {24, 1},   months(1),  months(2),
    months(3),  months(4),  months(5),  months(6),  months(8),   months(9), months(12), months(18),
    months(24), months(36), months(48), months(60), months(120), weeks(4),
}};

YearlyCount yearlyCount(EventFrequency frequency)
{
    if (frequency == EventFrequency::None) {
        throw foundation::Error(Texts::tr("What has no period can't be reckoned up. Choose how often it happens."));
    }
    auto count = yearlyCounts.at(static_cast<std::size_t>(frequency));
    if (frequency == EventFrequency::Hourly) {
        count.times *= workingWeek().hours.count();
    } else if (frequency == EventFrequency::Daily) {
        count.times *= workingWeek().days.count();
    }
    return count;
}

/// \param denominator above zero
Wide roundedQuotient(Wide numerator, Wide denominator)
{
    auto const half = numerator < 0 ? -(denominator / 2) : denominator / 2;
    return (numerator + half) / denominator;
}
}

fiscora::Money accumulateOver(EventFrequency over, fiscora::Money const& amount, EventFrequency period)
{
    auto const occurring = yearlyCount(period);
    auto const asked = yearlyCount(over);
    auto const total =
        roundedQuotient(Wide(amount.amount()) * occurring.times * asked.within, Wide(occurring.within) * asked.times);
    if (total < std::numeric_limits<long long>::min() || total > std::numeric_limits<long long>::max()) {
        throw std::overflow_error(Texts::tr("The amount is too large to be reckoned up.").toStdString());
    }
    return fiscora::Money::fromAmount(amount.code(), static_cast<long long>(total));
}
}
