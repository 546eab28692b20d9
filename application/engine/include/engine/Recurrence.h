#pragma once

#include <tlm/budgeting/EventFrequency.h>
#include <tlm/budgeting/WorkingWeek.h>

#include <QDate>

#include <cstddef>
#include <optional>
#include <vector>

namespace tallymere::engine {

/// On which days a budget item happens.
///
/// Every occurrence is counted from the anchor and never from the one before, so that a day that a short month lacks
/// comes back in the next: 31 January, 28 February, 31 March. Months that lack the day use their last one.
///
/// - `None` happens once, on the anchor.
/// - Hourly and daily items happen once on each working day: the first days of a week that starts on Monday, as many as
///   the working week has. Where the anchor is no working day, the next one is the first.
/// - Twice a month means the anchor's day and the day fifteen apart from it in the same month: 1 and 16, 14 and 29,
///   16 and 31. In February both stay apart, since the earlier is the 16th at the latest.
///
/// There is nothing before the anchor, nor outside of the years 1 to 9999, which is what dates as ISO text can tell.
class Recurrence
{
public:
    /// An \a anchor that is invalid or outside of the years 1 to 9999 never happens.
    /// \param workingWeek from 1 to 7 days, which matter to hourly and daily items only
    Recurrence(tlm::budgeting::EventFrequency period, QDate const& anchor,
               tlm::budgeting::WorkingWeek const& workingWeek);

    /// \return the first occurrence on \a day or after it, empty when there is none any more or \a day is invalid
    std::optional<QDate> onOrAfter(QDate const& day) const;

    /// \return the first occurrence after \a day, empty when there is none any more or \a day is invalid
    std::optional<QDate> after(QDate const& day) const;

    /// \return occurrences from \a first to \a last, both included, in order; of many the earliest \a most
    std::vector<QDate> between(QDate const& first, QDate const& last, std::size_t most) const;

private:
    enum class Unit : unsigned char
    {
        Once,
        WorkingDays,
        Days,
        HalfMonths,
        Months
    };

    /// Occurrences are `step` units apart.
    struct Rhythm
    {
        Unit unit;
        int step;
    };

    static Rhythm rhythm(tlm::budgeting::EventFrequency period);
    QDate occurrence(qint64 index) const;
    QDate halfMonth(qint64 index) const;
    QDate workingDay(qint64 index) const;
    std::optional<qint64> indexOnOrAfter(QDate const& day) const;
    qint64 indexNear(QDate const& day) const;
    bool startsLate() const;
    int workingDaysBefore(QDate const& day) const;
    qint64 monthsFromAnchorTo(QDate const& day) const;

    Rhythm rhythm_;
    QDate anchor_;
    int workingDays_;
};
}
