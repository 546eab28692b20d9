#include <tlm/navigation/BudgetBankAccount.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tlm::navigation {

namespace {

using accounting::AccountNumber;
using banking::BankAccount;
using banking::BankAccountTypes;
using banking::BankName;
using budgeting::BudgetSource;

BankAccount account(unsigned int number, BankAccountTypes type)
{
    return {BankName(QStringLiteral("Local Bank")), AccountNumber(number), type};
}

BudgetBankAccount const car{BudgetSource(QStringLiteral("Car")), account(400, BankAccountTypes::Loan)};
BudgetBankAccount const holiday{BudgetSource(QStringLiteral("Holiday")), account(200, BankAccountTypes::Goal)};

TEST(LookUpBankAccountTest, FindsTheAccountOfASource)
{
    EXPECT_EQ(lookUpBankAccount(holiday.source, {car, holiday}), holiday.account);
    EXPECT_EQ(lookUpBankAccount(car.source, {car, holiday}), car.account);
}

TEST(LookUpBankAccountTest, GivesNoneForASourceWithoutAccount)
{
    EXPECT_EQ(lookUpBankAccount(BudgetSource(QStringLiteral("car")), {car, holiday}), std::nullopt);
    EXPECT_EQ(lookUpBankAccount(BudgetSource(), {car, holiday}), std::nullopt);
    EXPECT_EQ(lookUpBankAccount(car.source, {}), std::nullopt);
}

TEST(LookUpBankAccountTest, GivesTheFirstOfSeveral)
{
    BudgetBankAccount const another{car.source, account(300, BankAccountTypes::Loan)};

    EXPECT_EQ(lookUpBankAccount(car.source, {car, another}), another.account);
}

TEST(BudgetBankAccountTest, DiffersByEachOfItsParts)
{
    EXPECT_EQ(car, (BudgetBankAccount{car.source, car.account}));
    EXPECT_NE(car, (BudgetBankAccount{holiday.source, car.account}));
    EXPECT_NE(car, (BudgetBankAccount{car.source, holiday.account}));
    EXPECT_LT(car, holiday);
}
}
}
