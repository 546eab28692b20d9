#include <tlm/adviser/BudgetHealth.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace tlm::adviser {

namespace {

static_assert(static_cast<int>(HealthStatuses::Healthy) == 0);
static_assert(static_cast<int>(HealthStatuses::Cautious) == 1);
static_assert(static_cast<int>(HealthStatuses::Unhealthy) == 2);

TEST(BudgetHealthTest, KeepsWhatItIsGiven)
{
    BudgetHealth const health(HealthStatuses::Cautious, 42.5, {QStringLiteral("Save."), QStringLiteral("Rest.")});

    EXPECT_EQ(health.status(), HealthStatuses::Cautious);
    EXPECT_EQ(health.percent(), 42.5);
    EXPECT_EQ(health.information(), (QList<QString>{QStringLiteral("Save."), QStringLiteral("Rest.")}));
}

TEST(BudgetHealthTest, TheDefaultIsAsUnhealthyAsCanBe)
{
    BudgetHealth const health;

    EXPECT_EQ(health, BudgetHealth(HealthStatuses::Unhealthy, 0.0, {}));
}

TEST(BudgetHealthTest, BothEndsOfTheDialBelongToIt)
{
    EXPECT_EQ(BudgetHealth(HealthStatuses::Unhealthy, 0.0, {}).percent(), 0.0);
    EXPECT_EQ(BudgetHealth(HealthStatuses::Healthy, 100.0, {}).percent(), 100.0);
}

TEST(BudgetHealthTest, APercentageOffTheDialIsRefused)
{
    for (auto const percent :
         {-0.001, 100.001, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(BudgetHealth(HealthStatuses::Healthy, percent, {}), std::invalid_argument) << percent;
    }
}

TEST(HealthStatusesTest, EachHasATextOfItsOwn)
{
    EXPECT_EQ(presentationText(HealthStatuses::Healthy), QStringLiteral("Healthy"));
    EXPECT_EQ(presentationText(HealthStatuses::Cautious), QStringLiteral("Cautious"));
    EXPECT_EQ(presentationText(HealthStatuses::Unhealthy), QStringLiteral("Unhealthy"));
}

TEST(HealthStatusesTest, AStatusThatIsNoneHasNoText)
{
    EXPECT_THROW(presentationText(HealthStatuses{3}), std::logic_error);
}
}
}
