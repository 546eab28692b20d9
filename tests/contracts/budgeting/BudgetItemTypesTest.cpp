#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/foundation/Error.h>

#include <gtest/gtest.h>
#include <support/Translation.h>

using namespace tlm::budgeting;

namespace {

static_assert(sizeof(BudgetItemTypes) == 1);

class BudgetItemTypesTest : public ::testing::TestWithParam<int>
{
protected:
    BudgetItemTypes const type = static_cast<BudgetItemTypes>(GetParam());
};

INSTANTIATE_TEST_SUITE_P(AllFive, BudgetItemTypesTest, ::testing::Range(1, 6));
}

TEST_P(BudgetItemTypesTest, ReadsBack)
{
    EXPECT_FALSE(presentationText(type).isEmpty());
    EXPECT_EQ(toBudgetItemTypes(presentationText(type)), type);
}

TEST_P(BudgetItemTypesTest, ReadsBackInAnotherLanguage)
{
    tlm::testing::Translation const german({{"", "Kopf der Datei"}, {"Bill", "Rechnung"}, {"Debt", "Schuld"}});

    EXPECT_EQ(toBudgetItemTypes(presentationText(type)), type);
}

TEST(BudgetItemTypesTextTest, NoneIsABlankInEveryLanguage)
{
    tlm::testing::Translation const german({{"", "Kopf der Datei"}});

    EXPECT_EQ(presentationText(BudgetItemTypes::None), QString());
    EXPECT_EQ(toBudgetItemTypes(QString()), BudgetItemTypes::None);
}

TEST(BudgetItemTypesTextTest, OfNoTypeIsRefused)
{
    EXPECT_THROW(toBudgetItemTypes("Lottery"), tlm::foundation::Error);
}

TEST(BudgetItemTypesTextTest, IsLoggedUntranslated)
{
    QString log;

    QDebug(&log) << BudgetItemTypes::Wage << BudgetItemTypes::None;

    EXPECT_EQ(log.simplified(), "BudgetItemTypes(Wage) BudgetItemTypes(0)");
}
