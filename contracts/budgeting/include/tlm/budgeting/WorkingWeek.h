#pragma once

#include <chrono>

namespace tlm::budgeting {

/// How long a week's work is: what an hourly or a daily amount occurs by.
struct WorkingWeek
{
    std::chrono::hours hours{40}; ///< from 1 to 168
    std::chrono::days days{5};    ///< from 1 to 7

    friend bool operator==(WorkingWeek const&, WorkingWeek const&) = default;
};

/// Makes accumulateOver() count by \a week from now on, in the whole process.
/// \throws foundation::Error when the week is out of range; the one before then stays
void setWorkingWeek(WorkingWeek const& week);

/// \return the week that was set last, forty hours on five days before
WorkingWeek const& workingWeek() noexcept;
}
