#pragma once

#include <fiscora/Currency.h>
#include <tlm/budgeting/WorkingWeek.h>
#include <tlm/foundation/Percentage.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <chrono>
#include <set>

namespace tallymere::engine {

/// What a budget's owner configures; it travels with the budget.
struct Settings
{
    fiscora::Currency preferred = fiscora::Currency::USD; ///< totals are told in it; one of `usable`
    std::set<fiscora::Currency> usable;                   ///< what amounts may be planned in; never empty
    tlm::navigation::CurrencyDisplayOptions displayAs = tlm::navigation::CurrencyDisplayOptions::Code;
    tlm::foundation::Percentage balanceWindow; ///< how far a surveyed balance may lie off, from 0 to 100 percent
    std::chrono::days dueWithin{};             ///< how long ahead items count as due, from 0 to 60 days
    tlm::budgeting::WorkingWeek workingWeek;   ///< from 1 to 168 hours on 1 to 7 days

    friend bool operator==(Settings const&, Settings const&) = default;
};
}
