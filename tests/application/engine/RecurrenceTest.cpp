#include <engine/Recurrence.h>

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <rapidcheck/gtest.h>
#include <vector>

using tallymere::engine::Recurrence;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::budgeting::EventFrequency;
using tlm::budgeting::WorkingWeek;

namespace {

constexpr auto all = std::numeric_limits<std::size_t>::max();

std::vector<QDate> firstThree(EventFrequency period, QDate const& anchor)
{
    return Recurrence(period, anchor, {}).between(anchor, QDate(9999, 12, 31), 3);
}

TEST(RecurrenceTest, AMonthEndComesBackAfterAShortMonth)
{
    EXPECT_THAT(firstThree(EventFrequency::Monthly, {2025, 1, 31}),
                ElementsAre(QDate(2025, 1, 31), QDate(2025, 2, 28), QDate(2025, 3, 31)));
    EXPECT_THAT(firstThree(EventFrequency::Monthly, {2024, 1, 30}),
                ElementsAre(QDate(2024, 1, 30), QDate(2024, 2, 29), QDate(2024, 3, 30)));
}

TEST(RecurrenceTest, ALeapDayFallsOnTheTwentyEighthInCommonYearsOnly)
{
    auto const found = Recurrence(EventFrequency::Yearly, {2024, 2, 29}, {}).between({2026, 1, 1}, {2028, 12, 31}, all);

    EXPECT_THAT(found, ElementsAre(QDate(2026, 2, 28), QDate(2027, 2, 28), QDate(2028, 2, 29)));
}

TEST(RecurrenceTest, TwiceAMonthStaysTwoDaysInEveryFebruary)
{
    for (auto day = 1; day <= 31; ++day) {
        Recurrence const recurrence(EventFrequency::TwiceMonthly, {2023, 1, day}, {});

        EXPECT_EQ(recurrence.between({2023, 2, 1}, {2023, 2, 28}, all).size(), 2U) << day;
        EXPECT_EQ(recurrence.between({2024, 2, 1}, {2024, 2, 29}, all).size(), 2U) << day;
    }
}

TEST(RecurrenceTest, TwiceAMonthFromALateDayGoesOnWithTheEarlyOne)
{
    EXPECT_THAT(firstThree(EventFrequency::TwiceMonthly, {2025, 1, 31}),
                ElementsAre(QDate(2025, 1, 31), QDate(2025, 2, 16), QDate(2025, 2, 28)));
}

TEST(RecurrenceTest, AWorkingDayRhythmAnchoredAtTheWeekendStartsOnMonday)
{
    QDate const saturday(2025, 5, 3);

    EXPECT_THAT(firstThree(EventFrequency::Daily, saturday),
                ElementsAre(QDate(2025, 5, 5), QDate(2025, 5, 6), QDate(2025, 5, 7)));
}

TEST(RecurrenceTest, AFridayIsFollowedByMonday)
{
    Recurrence const daily(EventFrequency::Daily, {2025, 5, 1}, {});

    EXPECT_EQ(daily.after({2025, 5, 2}), QDate(2025, 5, 5));
    EXPECT_EQ(daily.onOrAfter({2025, 5, 2}), QDate(2025, 5, 2));
}

TEST(RecurrenceTest, WithoutAFrequencyItHappensOnce)
{
    QDate const anchor(2025, 5, 1);
    Recurrence const once(EventFrequency::None, anchor, {});

    EXPECT_EQ(once.onOrAfter({2020, 1, 1}), anchor);
    EXPECT_EQ(once.after(anchor), std::nullopt);
    EXPECT_THAT(once.between({2020, 1, 1}, {2030, 1, 1}, all), ElementsAre(anchor));
}

TEST(RecurrenceTest, NothingHappensBeforeTheAnchor)
{
    Recurrence const monthly(EventFrequency::Monthly, {2025, 5, 10}, {});

    EXPECT_EQ(monthly.onOrAfter({2020, 1, 1}), QDate(2025, 5, 10));
    EXPECT_THAT(monthly.between({2020, 1, 1}, {2025, 5, 9}, all), IsEmpty());
}

TEST(RecurrenceTest, ManyOccurrencesAreCutAfterTheEarliest)
{
    Recurrence const weekly(EventFrequency::Weekly, {2025, 5, 1}, {});

    EXPECT_THAT(weekly.between({2025, 5, 2}, {2030, 1, 1}, 2), ElementsAre(QDate(2025, 5, 8), QDate(2025, 5, 15)));
    EXPECT_THAT(weekly.between({2025, 5, 2}, {2030, 1, 1}, 0), IsEmpty());
}

TEST(RecurrenceTest, AnEndBeforeTheStartHoldsNothing)
{
    Recurrence const weekly(EventFrequency::Weekly, {2025, 5, 1}, {});

    EXPECT_THAT(weekly.between({2025, 6, 1}, {2025, 5, 1}, all), IsEmpty());
}

class RecurrenceLimitTest : public ::testing::TestWithParam<int>
{
protected:
    EventFrequency period = static_cast<EventFrequency>(GetParam());
    QDate earliest = QDate::fromJulianDay(std::numeric_limits<qint32>::min());
    QDate farthest = QDate(5'000'000, 1, 1);
};

TEST_P(RecurrenceLimitTest, AnInvalidDayHasNoOccurrence)
{
    Recurrence const fine(period, {2025, 5, 1}, {});
    Recurrence const invalid(period, QDate(), {});

    EXPECT_EQ(fine.onOrAfter(QDate()), std::nullopt);
    EXPECT_EQ(fine.after(QDate()), std::nullopt);
    EXPECT_THAT(fine.between(QDate(), {2030, 1, 1}, all), IsEmpty());
    EXPECT_THAT(fine.between({2025, 1, 1}, QDate(), all), IsEmpty());
    EXPECT_EQ(invalid.onOrAfter({2025, 5, 1}), std::nullopt);
}

TEST_P(RecurrenceLimitTest, AnAnchorOutsideOfTheCalendarNeverHappens)
{
    for (auto const& anchor : {QDate(10'000, 1, 1), farthest, QDate(-1, 12, 31), earliest}) {
        EXPECT_EQ(Recurrence(period, anchor, {}).onOrAfter(anchor), std::nullopt);
    }
}

TEST_P(RecurrenceLimitTest, NothingHappensAfterTheLastDayOfTheCalendar)
{
    QDate const last(9999, 12, 31); // a Friday
    Recurrence const recurrence(period, last, {});

    EXPECT_EQ(recurrence.onOrAfter(earliest), last);
    EXPECT_EQ(recurrence.after(last), std::nullopt);
    EXPECT_EQ(recurrence.onOrAfter(farthest), std::nullopt);
    EXPECT_THAT(recurrence.between(earliest, farthest, all), ElementsAre(last));
}

TEST_P(RecurrenceLimitTest, TheWholeCalendarIsJumpedAcross)
{
    Recurrence const recurrence(period, {1, 1, 1}, {}); // a Monday

    auto const late = recurrence.onOrAfter({9950, 1, 1});

    EXPECT_EQ(recurrence.onOrAfter({1, 1, 1}), QDate(1, 1, 1));
    EXPECT_EQ(late.has_value(), period != EventFrequency::None);
    EXPECT_LT(late.value_or(QDate(9950, 1, 1)), QDate(9970, 1, 1));
}

INSTANTIATE_TEST_SUITE_P(Recurrence, RecurrenceLimitTest, ::testing::Range(0, 22));

WorkingWeek anyWeek()
{
    return {std::chrono::hours(40), std::chrono::days(*rc::gen::inRange(1, 8))};
}

QDate anyDay()
{
    return QDate(1900, 1, 1).addDays(*rc::gen::inRange(0, 100'000));
}

RC_GTEST_PROP(RecurrenceProperty, TheNextOccurrenceIsTheEarliestOfAllThatFollow, ())
{
    auto const period = static_cast<EventFrequency>(*rc::gen::inRange(0, 22));
    auto const anchor = anyDay();
    Recurrence const recurrence(period, anchor, anyWeek());
    auto const day = anyDay();

    auto const next = recurrence.onOrAfter(day);
    auto const following = recurrence.between(anchor, QDate(2400, 1, 1), all);

    auto const found = std::lower_bound(following.begin(), following.end(), day);
    RC_ASSERT(next == (found == following.end() ? std::nullopt : std::optional(*found)));
}

RC_GTEST_PROP(RecurrenceProperty, OccurrencesRiseAndEachIsFollowedByTheNext, ())
{
    auto const period = static_cast<EventFrequency>(*rc::gen::inRange(1, 22));
    auto const anchor = anyDay();
    Recurrence const recurrence(period, anchor, anyWeek());

    auto const found = recurrence.between(anchor, QDate(9999, 12, 31), 50);

    RC_ASSERT(found.size() == 50U);
    for (std::size_t index = 1; index < found.size(); ++index) {
        RC_ASSERT(found[index - 1] < found[index]);
        RC_ASSERT(recurrence.after(found[index - 1]) == found[index]);
    }
}
}
