#pragma once

#include <QDebug>
#include <QString>

namespace tlm::budgeting {

/// How often a budget item occurs. Accumulate.h tells how often that is in a year.
enum class EventFrequency : unsigned char
{
    None = 0, ///< no frequency has been chosen: the item occurs once and counts in no total
    Hourly = 1,
    Daily = 2,
    Weekly = 3,
    Fortnightly = 4,
    TwiceMonthly = 5,
    Monthly = 6,
    EveryTwoMonths = 7,
    Quarterly = 8,
    EveryFourMonths = 9,
    EveryFiveMonths = 10,
    HalfYearly = 11,
    EveryEightMonths = 12,
    EveryNineMonths = 13,
    Yearly = 14,
    EveryEighteenMonths = 15,
    EveryTwoYears = 16,
    EveryThreeYears = 17,
    EveryFourYears = 18,
    EveryFiveYears = 19,
    EveryTenYears = 20,
    EveryFourWeeks = 21
};

/// \return the frequency's translated name, empty for `None`
QString presentationText(EventFrequency const& frequency);

/// Reads back what presentationText() gives, the empty text included.
/// \throws foundation::Error when \a text names no frequency
EventFrequency toEventFrequency(QString const& text);

QDebug operator<<(QDebug debug, EventFrequency frequency);
}
