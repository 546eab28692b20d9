#pragma once

#include <fiscora/Money.h>
#include <tlm/budgeting/EventFrequency.h>

namespace tlm::budgeting {

/// Tells what \a amount, occurring every \a period, comes to over one \a over.
///
/// A year has twelve months and 52.1775 weeks, which is 365.2425 days, the length of a year with its leap days told
/// evenly. Thus a year has
///
/// | occurrences               | of                                                        |
/// |---------------------------|-----------------------------------------------------------|
/// | hours a week * 52.1775    | `Hourly`, hours as workingWeek() tells                    |
/// | days a week * 52.1775     | `Daily`, days as workingWeek() tells                      |
/// | 52.1775                   | `Weekly`                                                  |
/// | 26.08875                  | `Fortnightly`                                             |
/// | 13.044375                 | `EveryFourWeeks`                                          |
/// | 24                        | `TwiceMonthly`                                            |
/// | 12                        | `Monthly`                                                 |
/// | 6, 4, 3, 12/5             | every two months, `Quarterly`, every four, five months    |
/// | 2, 3/2, 4/3               | `HalfYearly`, every eight, nine months                    |
/// | 1, 2/3                    | `Yearly`, every eighteen months                           |
/// | 1/2, 1/3, 1/4, 1/5, 1/10  | every two, three, four, five, ten years                   |
///
/// Reckons exactly and rounds once, at the end, half away from zero, to what fiscora::Money stores.
/// \throws foundation::Error when \a over or \a period is `None`
/// \throws std::overflow_error when the total leaves 64 bits
fiscora::Money accumulateOver(EventFrequency over, fiscora::Money const& amount, EventFrequency period);
}
