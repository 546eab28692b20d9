#include <tlm/banking/BankAccount.h>

#include <support/Properties.h>

using namespace tlm::banking;
using tlm::accounting::AccountNumber;

namespace {

static_assert(!std::is_convertible_v<QString, BankName>);
static_assert(std::is_nothrow_move_constructible_v<BankName> && std::is_nothrow_move_assignable_v<BankName>);
static_assert(std::is_nothrow_move_constructible_v<BankAccount> && std::is_nothrow_move_assignable_v<BankAccount>);

BankAccount account(QString const& bank, unsigned int number, BankAccountTypes type)
{
    return {BankName(bank), AccountNumber(number), type};
}
}

TEST(BankAccountTest, ADefaultOneHasNothingChosen)
{
    BankAccount const none;

    EXPECT_TRUE(none.bank.isEmpty());
    EXPECT_EQ(none.number, AccountNumber());
    EXPECT_EQ(none.type, BankAccountTypes::Unspecified);
}

TEST(BankAccountTest, ReadsAsANumberWithItsType)
{
    EXPECT_EQ(account("Penny", 7, BankAccountTypes::Savings).numberBankType(),
              (AccountNumberBankType{AccountNumber(7), BankAccountTypes::Savings}));
}

TEST(BankAccountTest, OrdersByBankThenNumberThenType)
{
    EXPECT_LT(account("A", 9, BankAccountTypes::Goal), account("B", 1, BankAccountTypes::Checking));
    EXPECT_LT(account("A", 1, BankAccountTypes::Goal), account("A", 2, BankAccountTypes::Checking));
    EXPECT_LT(account("A", 1, BankAccountTypes::Checking), account("A", 1, BankAccountTypes::Goal));
    tlm::testing::expectStrongOrder([] {
        return account(*rc::gen::element<QString>("a", "B", "b"), *rc::gen::inRange(0U, 2U),
                       static_cast<BankAccountTypes>(*rc::gen::inRange(0, 2)));
    });
}

TEST(BankAccountTest, ANumberWithItsTypeOrdersByNumberFirst)
{
    EXPECT_LT((AccountNumberBankType{AccountNumber(1), BankAccountTypes::Goal}),
              (AccountNumberBankType{AccountNumber(2), BankAccountTypes::Unspecified}));
}

TEST(BankAccountTest, ABankNameIsEmptyUntilGiven)
{
    EXPECT_TRUE(BankName().isEmpty());
    EXPECT_TRUE(BankName(QString()).isEmpty());
    EXPECT_FALSE(BankName("Penny").isEmpty());
    EXPECT_EQ(BankName("Penny").institution(), "Penny");
}

TEST(BankAccountTest, IsLoggedWithBankNumberAndType)
{
    QString log;

    QDebug(&log) << account("Penny", 7, BankAccountTypes::CreditCard);

    EXPECT_EQ(log.trimmed(), "BankAccount(BankName(\"Penny\"), AccountNumber(7), BankAccountTypes(Credit Card))");
}
