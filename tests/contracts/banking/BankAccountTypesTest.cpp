#include <tlm/banking/BankAccountTypes.h>
#include <tlm/foundation/Error.h>

#include <gtest/gtest.h>
#include <set>
#include <support/Translation.h>

using namespace tlm::banking;
using tlm::accounting::AccountTypes;

namespace {

static_assert(sizeof(BankAccountTypes) == 4);
static_assert(static_cast<int>(BankAccountTypes::Unspecified) == 0);
static_assert(static_cast<int>(BankAccountTypes::Goal) == 5);

class BankAccountTypesTest : public ::testing::TestWithParam<int>
{
protected:
    BankAccountTypes const type = static_cast<BankAccountTypes>(GetParam());
};

INSTANTIATE_TEST_SUITE_P(AllSix, BankAccountTypesTest, ::testing::Range(0, 6));

/// What a view offers that lists the types of one part of the ledger.
std::set<BankAccountTypes> keptAs(int accountType)
{
    std::set<BankAccountTypes> types;
    for (auto const type : {0, 1, 5, 2, 3, 4}) {
        if (toAccountTypes(static_cast<BankAccountTypes>(type)) == static_cast<AccountTypes>(accountType)) {
            types.insert(static_cast<BankAccountTypes>(type));
        }
    }
    return types;
}
}

TEST_P(BankAccountTypesTest, ReadsBack)
{
    EXPECT_FALSE(presentationText(type).isEmpty());
    EXPECT_EQ(toBankAccountTypes(presentationText(type)), type);
}

TEST_P(BankAccountTypesTest, ReadsBackInAnotherLanguage)
{
    tlm::testing::Translation const german(
        {{"Unspecified", "Offen"}, {"Checking", "Girokonto"}, {"Savings", "Sparkonto"}, {"Loan", "Darlehen"}});

    EXPECT_EQ(toBankAccountTypes(presentationText(type)), type);
}

TEST(BankAccountTypesTextTest, AnEmptyChoiceIsUnspecified)
{
    EXPECT_EQ(toBankAccountTypes(QString()), BankAccountTypes::Unspecified);
}

TEST(BankAccountTypesTextTest, OfNoTypeIsRefused)
{
    EXPECT_THROW(toBankAccountTypes("Mattress"), tlm::foundation::Error);
}

TEST(BankAccountTypesLedgerTest, GoalsAreStoredWhereTheBankOwesTheHousehold)
{
    EXPECT_EQ(keptAs(1), (std::set{BankAccountTypes::Checking, BankAccountTypes::Savings, BankAccountTypes::Goal}));
}

TEST(BankAccountTypesLedgerTest, MoneyForEverydayUseAndForRainyDaysStandsUnderOneAndFour)
{
    // Forms that store a goal's money offer the accounts of these two values.
    EXPECT_EQ(static_cast<int>(BankAccountTypes::Checking), 1);
    EXPECT_EQ(static_cast<int>(BankAccountTypes::Savings), 4);
}

TEST(BankAccountTypesLedgerTest, DebtsArePaidWhereTheHouseholdOwesTheBank)
{
    EXPECT_EQ(keptAs(4), (std::set{BankAccountTypes::CreditCard, BankAccountTypes::Loan}));
}

TEST(BankAccountTypesLedgerTest, AnUnspecifiedAccountIsHeldInSuspense)
{
    EXPECT_EQ(toAccountTypes(BankAccountTypes::Unspecified), AccountTypes::Suspense);
}

TEST_P(BankAccountTypesTest, IsAnAssetAccountExactlyWhenTheLedgerKeepsItAsAnAsset)
{
    EXPECT_EQ(isAssetAccount(type), toAccountTypes(type) == AccountTypes::Asset);
}

TEST(BankAccountTypesLedgerTest, ACreditCardIsNoAssetAccount)
{
    EXPECT_TRUE(isAssetAccount(BankAccountTypes::Goal));
    EXPECT_FALSE(isAssetAccount(BankAccountTypes::CreditCard));
    EXPECT_FALSE(isAssetAccount(BankAccountTypes::Unspecified));
}
