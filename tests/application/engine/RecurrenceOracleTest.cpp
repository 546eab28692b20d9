#include <engine/Recurrence.h>
#include <tlm/budgeting/EventFrequency.h>
#include <tlm/budgeting/WorkingWeek.h>

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <vector>

using tallymere::engine::Recurrence;
using tlm::budgeting::EventFrequency;
using tlm::budgeting::WorkingWeek;

namespace {

constexpr auto firstYear = 2024; // a leap year, so that each of the 366 days starts a rhythm
constexpr auto years = 60;

/// A day as the oracle sees it, by the calendar of the standard library.
struct Day
{
    int serial; ///< days since 1970-01-01
    int month;  ///< months since year 0
    int day;
    int lastOfMonth;
    int weekday; ///< 1 is Monday
};

Day toDay(std::chrono::sys_days day)
{
    using namespace std::chrono;
    year_month_day const date(day);
    year_month_day_last const end(date.year() / date.month() / last);
    return {static_cast<int>(day.time_since_epoch().count()),
            static_cast<int>(date.year()) * 12 + static_cast<int>(static_cast<unsigned>(date.month())) - 1,
            static_cast<int>(static_cast<unsigned>(date.day())), static_cast<int>(static_cast<unsigned>(end.day())),
            static_cast<int>(weekday(day).iso_encoding())};
}

/// Every day of \a count years from the first of January of \a from on.
std::vector<Day> calendar(int from, int count)
{
    using namespace std::chrono;
    sys_days const end(year(from + count) / 1 / 1);
    std::vector<Day> days;
    for (sys_days day(year(from) / 1 / 1); day < end; day += std::chrono::days(1)) {
        days.push_back(toDay(day));
    }
    return days;
}

std::vector<Day> const& sixtyYears()
{
    static auto const days = calendar(firstYear, years + 1);
    return days;
}

QDate toDate(int serial)
{
    return QDate(1970, 1, 1).addDays(serial);
}

std::map<EventFrequency, int> const daysApart{
    {EventFrequency::Weekly, 7}, {EventFrequency::Fortnightly, 14}, {EventFrequency::EveryFourWeeks, 28}};

std::map<EventFrequency, int> const monthsApart{
    {EventFrequency::Monthly, 1},          {EventFrequency::EveryTwoMonths, 2},
    {EventFrequency::Quarterly, 3},        {EventFrequency::EveryFourMonths, 4},
    {EventFrequency::EveryFiveMonths, 5},  {EventFrequency::HalfYearly, 6},
    {EventFrequency::EveryEightMonths, 8}, {EventFrequency::EveryNineMonths, 9},
    {EventFrequency::Yearly, 12},          {EventFrequency::EveryEighteenMonths, 18},
    {EventFrequency::EveryTwoYears, 24},   {EventFrequency::EveryThreeYears, 36},
    {EventFrequency::EveryFourYears, 48},  {EventFrequency::EveryFiveYears, 60},
    {EventFrequency::EveryTenYears, 120}};

/// Says of one day after another whether an item happens on it, knowing nothing of any other occurrence.
class Oracle
{
public:
    Oracle(EventFrequency period, Day const& anchor, int workingDays)
        : anchor_(anchor),
          workingDays_(workingDays),
          isTwiceMonthly_(period == EventFrequency::TwiceMonthly),
          isOnWorkingDays_(period == EventFrequency::Hourly || period == EventFrequency::Daily),
          daysApart_(lookUp(daysApart, period)),
          monthsApart_(lookUp(monthsApart, period))
    {}

    bool happensOn(Day const& day) const
    {
        if (isOnWorkingDays_) {
            return day.weekday <= workingDays_;
        }
        if (isTwiceMonthly_) {
            auto const other = anchor_.day > 15 ? anchor_.day - 15 : anchor_.day + 15;
            return day.day == std::min(anchor_.day, day.lastOfMonth) || day.day == std::min(other, day.lastOfMonth);
        }
        if (daysApart_ > 0) {
            return (day.serial - anchor_.serial) % daysApart_ == 0;
        }
        return monthsApart_ > 0 ? (day.month - anchor_.month) % monthsApart_ == 0 &&
                                      day.day == std::min(anchor_.day, day.lastOfMonth)
                                : day.serial == anchor_.serial;
    }

private:
    static int lookUp(std::map<EventFrequency, int> const& table, EventFrequency period)
    {
        auto const found = table.find(period);
        return found == table.end() ? 0 : found->second;
    }

    Day anchor_;
    int workingDays_;
    bool isTwiceMonthly_;
    bool isOnWorkingDays_;
    int daysApart_;
    int monthsApart_;
};

/// \return the first day within \a days on which recurrence and oracle differ, invalid when there is none
QDate firstDifference(EventFrequency period, std::vector<Day> const& days, std::size_t anchor, int workingDays)
{
    WorkingWeek const week{std::chrono::hours(40), std::chrono::days(workingDays)};
    Oracle const oracle(period, days[anchor], workingDays);
    auto const found =
        Recurrence(period, toDate(days[anchor].serial), week)
            .between(toDate(days.front().serial), toDate(days.back().serial), std::numeric_limits<std::size_t>::max());
    auto next = found.begin();
    for (auto index = anchor; index < days.size(); ++index) {
        auto const happens = next != found.end() && *next == toDate(days[index].serial);
        if (happens != oracle.happensOn(days[index])) {
            return toDate(days[index].serial);
        }
        next += happens ? 1 : 0;
    }
    return next == found.end() ? QDate() : *next;
}

class EveryFrequency : public ::testing::TestWithParam<int>
{};

TEST_P(EveryFrequency, HappensOnTheOraclesDaysForSixtyYearsFromAnyDayOfALeapYear)
{
    auto const period = static_cast<EventFrequency>(GetParam());

    for (std::size_t start = 0; start < 366; ++start) {
        auto const difference = firstDifference(period, sixtyYears(), start, 5);

        ASSERT_FALSE(difference.isValid())
            << "day " << start + 1 << " of the year, wrong on " << qPrintable(difference.toString(Qt::ISODate));
    }
}

INSTANTIATE_TEST_SUITE_P(Recurrence, EveryFrequency, ::testing::Range(0, 22));

class EveryWorkingWeek : public ::testing::TestWithParam<int>
{};

TEST_P(EveryWorkingWeek, HappensOnItsFirstDaysFromMondayOn)
{
    auto const days = calendar(2023, 3);

    for (std::size_t start = 0; start < 366; ++start) {
        ASSERT_FALSE(firstDifference(EventFrequency::Daily, days, start, GetParam()).isValid());
        ASSERT_FALSE(firstDifference(EventFrequency::Hourly, days, start, GetParam()).isValid());
    }
}

INSTANTIATE_TEST_SUITE_P(Recurrence, EveryWorkingWeek, ::testing::Range(1, 8));
}
