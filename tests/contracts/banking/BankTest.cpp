#include <tlm/banking/BankMap.h>

#include <gtest/gtest.h>

using namespace tlm::banking;
using tlm::accounting::AccountNumber;

namespace {

static_assert(std::is_nothrow_move_assignable_v<Bank>);

Bank bank(QString const& name)
{
    return {BankName(name), {{AccountNumber(3), BankAccountTypes::Checking}}, false};
}
}

TEST(BankTest, ADefaultBankIsOpenAndHasNoNameAndNoAccounts)
{
    Bank const none;

    EXPECT_TRUE(none.name.isEmpty());
    EXPECT_TRUE(none.accounts().empty());
    EXPECT_FALSE(none.isClosed());
}

TEST(BankTest, KeepsWhatItIsMadeOf)
{
    Bank const closed(BankName("Penny"), {{AccountNumber(3), BankAccountTypes::Loan}}, true);

    EXPECT_EQ(closed.name, BankName("Penny"));
    EXPECT_EQ(closed.accounts().at(AccountNumber(3)), BankAccountTypes::Loan);
    EXPECT_TRUE(closed.isClosed());
}

TEST(BankTest, EqualsABankWithTheSameNameAccountsAndState)
{
    EXPECT_EQ(bank("Penny"), bank("Penny"));
    EXPECT_NE(bank("Penny"), bank("Nickel"));
    EXPECT_NE(bank("Penny"), Bank(BankName("Penny"), {}, false));
    EXPECT_NE(bank("Penny"), Bank(BankName("Penny"), bank("Penny").accounts(), true));
}

TEST(BankTest, AMapListsBanksByName)
{
    BankMap const banks{{BankName("Penny"), bank("Penny")}, {BankName("Nickel"), bank("Nickel")}};

    EXPECT_TRUE(BankMap().empty());
    EXPECT_EQ(banks.begin()->second, bank("Nickel"));
    EXPECT_EQ(std::next(banks.begin())->second, bank("Penny"));
    EXPECT_EQ(banks, BankMap(banks));
    EXPECT_NE(banks, BankMap());
}

TEST(BankTest, IsLoggedWithItsAccounts)
{
    QString log;

    QDebug(&log) << bank("Penny");

    EXPECT_EQ(log.trimmed(),
              "Bank(BankName(\"Penny\"), AccountNumberBankType(AccountNumber(3), BankAccountTypes(Checking)), open)");
}
