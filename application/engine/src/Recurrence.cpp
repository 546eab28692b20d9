#include "engine/Recurrence.h"

#include <algorithm>
#include <array>

using tlm::budgeting::EventFrequency;
using tlm::budgeting::WorkingWeek;

namespace tallymere::engine {

namespace {

constexpr int daysOfWeek = 7;
constexpr int monthsOfYear = 12;
constexpr int daysBetweenHalves = 15;

QDate lastDay()
{
    return {9999, 12, 31};
}

bool isInCalendar(QDate const& day)
{
    return day.isValid() && day.year() >= 1 && day <= lastDay();
}

QDate mondayOf(QDate const& day)
{
    return day.addDays(Qt::Monday - day.dayOfWeek());
}
}

Recurrence::Recurrence(EventFrequency period, QDate const& anchor, WorkingWeek const& workingWeek)
    : rhythm_(rhythm(period)),
      anchor_(isInCalendar(anchor) ? anchor : QDate()),
      workingDays_(static_cast<int>(workingWeek.days.count()))
{}

Recurrence::Rhythm Recurrence::rhythm(EventFrequency period)
{
    static constexpr std::array<Rhythm, 22> rhythms{{
        {Unit::Once, 0},        // None
        {Unit::WorkingDays, 1}, // Hourly
        {Unit::WorkingDays, 1}, // Daily
        {Unit::Days, 7},        // Weekly
        {Unit::Days, 14},       // Fortnightly
        {Unit::HalfMonths, 1},  // TwiceMonthly
        {Unit::Months, 1},      // Monthly
        {Unit::Months, 2},      // EveryTwoMonths
        {Unit::Months, 3},      // Quarterly
        {Unit::Months, 4},      // EveryFourMonths
        {Unit::Months, 5},      // EveryFiveMonths
        {Unit::Months, 6},      // HalfYearly
        {Unit::Months, 8},      // EveryEightMonths
        {Unit::Months, 9},      // EveryNineMonths
        {Unit::Months, 12},     // Yearly
        {Unit::Months, 18},     // EveryEighteenMonths
        {Unit::Months, 24},     // EveryTwoYears
        {Unit::Months, 36},     // EveryThreeYears
        {Unit::Months, 48},     // EveryFourYears
        {Unit::Months, 60},     // EveryFiveYears
        {Unit::Months, 120},    // EveryTenYears
        {Unit::Days, 28},       // EveryFourWeeks
    }};
    return rhythms.at(static_cast<std::size_t>(period));
}

std::optional<QDate> Recurrence::onOrAfter(QDate const& day) const
{
    auto const index = indexOnOrAfter(day);
    return index ? std::optional(occurrence(*index)) : std::nullopt;
}

std::optional<QDate> Recurrence::after(QDate const& day) const
{
    return onOrAfter(day.addDays(1));
}

std::vector<QDate> Recurrence::between(QDate const& first, QDate const& last, std::size_t most) const
{
    std::vector<QDate> found;
    auto const begin = indexOnOrAfter(first);
    if (!begin || !last.isValid()) {
        return found;
    }
    auto const end = std::min(last, lastDay());
    for (auto index = *begin; found.size() < most; ++index) {
        auto const day = occurrence(index);
        if (!day.isValid() || day > end) {
            break;
        }
        found.push_back(day);
    }
    return found;
}

/// \return the occurrence \a index places after the first, possibly outside of the calendar; invalid when there is none
QDate Recurrence::occurrence(qint64 index) const
{
    switch (rhythm_.unit) {
    case Unit::Once:
        return index == 0 ? anchor_ : QDate();
    case Unit::WorkingDays:
        return workingDay(index);
    case Unit::Days:
        return anchor_.addDays(index * rhythm_.step);
    case Unit::HalfMonths:
        return halfMonth(index);
    case Unit::Months:
        return anchor_.addMonths(static_cast<int>(index * rhythm_.step));
    }
    Q_UNREACHABLE();
}

QDate Recurrence::halfMonth(qint64 index) const
{
    auto const early = startsLate() ? anchor_.day() - daysBetweenHalves : anchor_.day();
    auto const half = index + (startsLate() ? 1 : 0);
    auto const month = QDate(anchor_.year(), anchor_.month(), 1).addMonths(static_cast<int>(half / 2));
    auto const day = half % 2 == 0 ? early : early + daysBetweenHalves;
    return {month.year(), month.month(), std::min(day, month.daysInMonth())};
}

QDate Recurrence::workingDay(qint64 index) const
{
    auto const fromMonday = workingDaysBefore(anchor_) + index;
    return mondayOf(anchor_).addDays(fromMonday / workingDays_ * daysOfWeek + fromMonday % workingDays_);
}

std::optional<qint64> Recurrence::indexOnOrAfter(QDate const& day) const
{
    if (!anchor_.isValid() || !day.isValid() || day > lastDay()) {
        return std::nullopt;
    }
    auto index = day <= anchor_ ? 0 : indexNear(day);
    auto found = occurrence(index);
    while (found.isValid() && found < day) {
        found = occurrence(++index);
    }
    return isInCalendar(found) ? std::optional(index) : std::nullopt;
}

/// \param day after the anchor
/// \return index of the first occurrence on \a day or after it, or one of the two before
qint64 Recurrence::indexNear(QDate const& day) const
{
    switch (rhythm_.unit) {
    case Unit::Once:
        return 0;
    case Unit::WorkingDays: {
        auto const weeks = mondayOf(anchor_).daysTo(mondayOf(day)) / daysOfWeek;
        return weeks * workingDays_ + workingDaysBefore(day) - workingDaysBefore(anchor_);
    }
    case Unit::Days:
        return anchor_.daysTo(day) / rhythm_.step;
    case Unit::HalfMonths:
        return std::max(monthsFromAnchorTo(day) * 2 - (startsLate() ? 1 : 0), qint64{0});
    case Unit::Months:
        return monthsFromAnchorTo(day) / rhythm_.step;
    }
    Q_UNREACHABLE();
}

bool Recurrence::startsLate() const
{
    return anchor_.day() > daysBetweenHalves;
}

/// \return how many working days the week of \a day has before it
int Recurrence::workingDaysBefore(QDate const& day) const
{
    return std::min(day.dayOfWeek() - Qt::Monday, workingDays_);
}

qint64 Recurrence::monthsFromAnchorTo(QDate const& day) const
{
    return (day.year() - anchor_.year()) * monthsOfYear + day.month() - anchor_.month();
}
}
