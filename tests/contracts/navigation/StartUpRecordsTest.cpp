#include <tlm/navigation/AllowSubAccounts.h>
#include <tlm/navigation/BudgetWizardTemplates.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tlm::navigation {

namespace {

static_assert(static_cast<int>(AllowSubAccounts::No) == 0 && static_cast<int>(AllowSubAccounts::Yes) == 1);

TEST(ConfigurationOptionsTest, ThePlanningWordingIsTheDefault)
{
    EXPECT_EQ(ConfigurationOptions(), (ConfigurationOptions{false, false}));
    EXPECT_NE(ConfigurationOptions(), (ConfigurationOptions{true, false}));
    EXPECT_NE(ConfigurationOptions(), (ConfigurationOptions{false, true}));
}

TEST(ConfigurationOptionsTest, TheWordingStandsBeforeTheTerms)
{
    ConfigurationOptions const options{true, false};

    EXPECT_TRUE(options.isAccounting);
    EXPECT_FALSE(options.usesEverydayTerms);
}

struct NamedTemplate
{
    int value;
    char const* name;
};

class BudgetWizardTemplatesTest : public ::testing::TestWithParam<NamedTemplate>
{};

TEST_P(BudgetWizardTemplatesTest, IsLoggedByName)
{
    QString logged;

    QDebug(&logged) << BudgetWizardTemplates{static_cast<unsigned char>(GetParam().value)};

    EXPECT_EQ(logged.trimmed(), QStringLiteral("BudgetWizardTemplates(%1)").arg(QLatin1String(GetParam().name)));
}

INSTANTIATE_TEST_SUITE_P(Offered, BudgetWizardTemplatesTest,
                         ::testing::Values(NamedTemplate{0, "None"}, NamedTemplate{1, "Child"},
                                           NamedTemplate{2, "Teenager"}, NamedTemplate{3, "AdultSingle"},
                                           NamedTemplate{4, "AdultMarriedSingleIncome"},
                                           NamedTemplate{5, "AdultMarriedDualIncome"}, NamedTemplate{6, "unknown"}));
}
}
