#include <fiscora/Math.h>

#include <climits>
#include <gtest/gtest.h>

using namespace fiscora;

TEST(MathTest, TheAbsoluteValueHasNoMinus)
{
    EXPECT_EQ(math::absoluteValue(Money(Currency::EUR, -3, 25, 0)), Money(Currency::EUR, 3, 25, 0));
    EXPECT_EQ(math::absoluteValue(Money(Currency::EUR, 3, 25, 0)), Money(Currency::EUR, 3, 25, 0));
    EXPECT_EQ(math::absoluteValue(Money()), Money());
}

TEST(MathTest, TheLeastAmountHasNoAbsoluteValue)
{
    EXPECT_THROW(math::absoluteValue(Money::fromAmount(Currency::EUR, LLONG_MIN)), std::overflow_error);
}
