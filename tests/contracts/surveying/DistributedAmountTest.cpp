#include <tlm/surveying/DistributedAmount.h>

#include <gtest/gtest.h>

using fiscora::Currency;
using fiscora::Money;
using tlm::surveying::DistributedAmount;

namespace {

static_assert(std::is_nothrow_move_constructible_v<DistributedAmount>);
static_assert(!std::is_default_constructible_v<DistributedAmount>);

Money const some(Currency::EUR, 5, 0, 0);
Money const all(Currency::EUR, 90, 0, 0);
QDate const day(2024, 2, 29);
}

TEST(DistributedAmountTest, TakesTheShareTheDayAndTheAimInThatOrder)
{
    DistributedAmount const share(some, day, all);

    EXPECT_EQ(share.distributed(), some);
    EXPECT_EQ(share.nextOccursOn(), day);
    EXPECT_EQ(share.maximum(), all);
}

TEST(DistributedAmountTest, OrdersByShareThenDayThenAim)
{
    EXPECT_LT(DistributedAmount(some, day.addDays(1), all), DistributedAmount(all, day, some));
    EXPECT_LT(DistributedAmount(some, day, all), DistributedAmount(some, day.addDays(1), some));
    EXPECT_LT(DistributedAmount(some, day, some), DistributedAmount(some, day, all));
    EXPECT_EQ(DistributedAmount(some, day, all), DistributedAmount(some, day, all));
}
