#include <tlm/foundation/Percentage.h>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

using tlm::foundation::Percentage;

static_assert(std::is_same_v<decltype(Percentage() <=> Percentage()), std::strong_ordering>);

TEST(PercentageTest, KeepsRateAndPrecision)
{
    Percentage const percentage(5.5, 6);

    EXPECT_EQ(percentage.rate(), 5.5);
    EXPECT_EQ(percentage.precision(), 6);
    EXPECT_EQ(percentage, Percentage(5.5, 6));
}

TEST(PercentageTest, EveryValueHasOnePlaceInTheOrder)
{
    using Limits = std::numeric_limits<double>;
    auto const nan = std::nan("");
    std::vector<Percentage> const ascending{
        {-nan, 6}, {-Limits::infinity(), 6}, {-5.5, 6}, {-0.0, 6}, {0.0, 5}, {0.0, 6}, {Limits::denorm_min(), 6},
        {5.5, 6},  {Limits::infinity(), 6},  {nan, 6}};

    for (auto left = std::size_t{0}; left < ascending.size(); ++left) {
        for (auto right = std::size_t{0}; right < ascending.size(); ++right) {
            EXPECT_EQ(ascending[left] <=> ascending[right], left <=> right) << left << " " << right;
            EXPECT_EQ(ascending[left] == ascending[right], left == right) << left << " " << right;
        }
    }
}

TEST(PercentageTest, IsLoggedWithItsPrecision)
{
    QString text;

    QDebug(&text) << Percentage(5.5, 2) << QString("each");

    EXPECT_EQ(text.trimmed(), "5.50% \"each\"");
}
