#include "WorkingWeekForScope.h"

#include <tlm/foundation/Error.h>

#include <gtest/gtest.h>

using namespace tlm::budgeting;
using namespace std::chrono_literals;
using std::chrono::days;
using std::chrono::hours;

namespace {

class RefusedWeekTest : public ::testing::TestWithParam<WorkingWeek>
{};
}

TEST(WorkingWeekTest, HasFortyHoursOnFiveDaysAtFirst)
{
    EXPECT_EQ(workingWeek(), (WorkingWeek{40h, days(5)}));
}

TEST(WorkingWeekTest, IsTheOneSetLast)
{
    tlm::testing::WorkingWeekForScope const restored;

    for (auto const& week : {WorkingWeek{1h, days(1)}, WorkingWeek{168h, days(7)}}) {
        setWorkingWeek(week);

        EXPECT_EQ(workingWeek(), week);
    }
}

TEST_P(RefusedWeekTest, LeavesTheOneBefore)
{
    tlm::testing::WorkingWeekForScope const restored;
    setWorkingWeek({30h, days(4)});

    EXPECT_THROW(setWorkingWeek(GetParam()), tlm::foundation::Error);

    EXPECT_EQ(workingWeek(), (WorkingWeek{30h, days(4)}));
}

INSTANTIATE_TEST_SUITE_P(Weeks, RefusedWeekTest,
                         ::testing::Values(WorkingWeek{0h, days(5)}, WorkingWeek{169h, days(5)},
                                           WorkingWeek{40h, days(0)}, WorkingWeek{40h, days(8)},
                                           WorkingWeek{-1h, days(5)}, WorkingWeek{40h, days(-1)},
                                           WorkingWeek{hours::max(), days::max()}));
