#include <tlm/surveying/IndexedIncreaseDecreases.h>
#include <tlm/surveying/MappingSurvey.h>

#include <gtest/gtest.h>

using namespace tlm::surveying;
using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::banking::ReconciledBankAccount;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;

namespace {

static_assert(std::is_copy_assignable_v<MappingSurvey> && std::is_move_constructible_v<MappingSurvey>);
static_assert(std::is_aggregate_v<IndexedIncreaseDecreases<AccountNumber>>);

Money const five(Currency::EUR, 5, 0, 0);
Money const nine(Currency::EUR, 9, 0, 0);
QDate const day(2024, 2, 29);
BudgetItemIdentifier const rent{BudgetItemTypes::Bill, BudgetSource("Rent")};
AccountCode const fees(AccountNumber(7), "Fees", std::nullopt);
}

TEST(MappingSurveyTest, ADefaultOneIsEmptyAndOfAnUnspecifiedAccount)
{
    MappingSurvey const none;

    EXPECT_EQ(none.reconciled().bankAccount().type, BankAccountTypes::Unspecified);
    EXPECT_FALSE(none.reconciled().reconciledOn().has_value());
    EXPECT_FALSE(none.calculatedFrom().isValid());
    EXPECT_EQ(none.expectedBalance(), Money());
    EXPECT_FALSE(none.remainingExpenses().has_value());
    EXPECT_TRUE(none.used().empty());
    EXPECT_TRUE(none.additional().empty());
    EXPECT_TRUE(none.distributable().empty());
}

TEST(MappingSurveyTest, KeepsWhatItIsMadeOf)
{
    ReconciledBankAccount const reconciled({BankName("Penny"), AccountNumber(3), BankAccountTypes::Checking}, five,
                                           day);

    MappingSurvey const survey(reconciled, day.addDays(-7), nine, five, {{rent, {}}}, {{fees, {}}},
                               {{rent, DistributedAmount(five, day, nine)}});

    EXPECT_EQ(survey.reconciled(), reconciled);
    EXPECT_EQ(survey.calculatedFrom(), day.addDays(-7));
    EXPECT_EQ(survey.expectedBalance(), nine);
    EXPECT_EQ(survey.remainingExpenses(), five);
    EXPECT_TRUE(survey.used().at(rent).empty());
    EXPECT_TRUE(survey.additional().at(fees).empty());
    EXPECT_EQ(survey.distributable().at(rent), DistributedAmount(five, day, nine));
}

TEST(MappingSurveyTest, AnEmptyOneTakesOverTheFirstResult)
{
    MappingSurvey const result({}, day, nine, std::nullopt, {}, {}, {});
    MappingSurvey survey;

    survey = result;

    EXPECT_EQ(survey, result);
    EXPECT_NE(survey, MappingSurvey());
}

TEST(IndexedIncreaseDecreasesTest, HoldsIncreasesThenDecreases)
{
    IndexedIncreaseDecreases<AccountNumber> const added{{{AccountNumber(1), five}}, {{AccountNumber(2), nine}}};
    IndexedIncreaseDecreases<BudgetItemIdentifier> const planned{{}, {{rent, five}}};

    EXPECT_EQ(added.increases.at(AccountNumber(1)), five);
    EXPECT_EQ(added.decreases.at(AccountNumber(2)), nine);
    EXPECT_TRUE(planned.increases.empty());
    EXPECT_EQ(planned.decreases.at(rent), five);
}
