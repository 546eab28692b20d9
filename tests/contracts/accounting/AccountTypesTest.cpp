#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountTypes.h>
#include <tlm/foundation/Error.h>

#include <gtest/gtest.h>
#include <support/Translation.h>

using namespace tlm::accounting;

namespace {

static_assert(sizeof(AccountTypes) == 1);

class AccountTypesTest : public ::testing::TestWithParam<int>
{
protected:
    AccountTypes const type = static_cast<AccountTypes>(GetParam());
};

INSTANTIATE_TEST_SUITE_P(AllSix, AccountTypesTest, ::testing::Range(0, 6));
}

TEST_P(AccountTypesTest, ReadsBack)
{
    EXPECT_FALSE(presentationText(type).isEmpty());
    EXPECT_EQ(toAccountTypes(presentationText(type)), type);
}

TEST_P(AccountTypesTest, ReadsBackInAnotherLanguage)
{
    tlm::testing::Translation const german({{"Asset", "Vermögen"}, {"Income", "Ertrag"}, {"Expense", "Aufwand"}});

    EXPECT_EQ(toAccountTypes(presentationText(type)), type);
}

TEST_P(AccountTypesTest, LooksLikeNoAccount)
{
    EXPECT_FALSE(presentationText(type).contains(AccountCode::separator_));
}

TEST(AccountTypesTextTest, OfATranslationIsTheTranslatedOne)
{
    tlm::testing::Translation const german({{"Asset", "Vermögen"}});

    EXPECT_EQ(presentationText(AccountTypes::Asset), "Vermögen");
    EXPECT_THROW(toAccountTypes("Asset"), tlm::foundation::Error);
}

TEST(AccountTypesTextTest, OfNoTypeIsRefused)
{
    EXPECT_THROW(toAccountTypes(QString()), tlm::foundation::Error);
    EXPECT_THROW(toAccountTypes("asset"), tlm::foundation::Error);
}

TEST(AccountTypesTextTest, IsLoggedUntranslated)
{
    tlm::testing::Translation const german({{"Asset", "Vermögen"}});
    QString log;

    QDebug(&log) << AccountTypes::Asset;

    EXPECT_EQ(log.trimmed(), "AccountTypes(Asset)");
}
