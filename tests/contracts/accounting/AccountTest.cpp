#include <tlm/accounting/Account.h>
#include <tlm/accounting/LedgerAccount.h>

#include <support/Properties.h>

using namespace tlm::accounting;
using fiscora::Currency;
using fiscora::Money;

namespace {

static_assert(std::is_nothrow_move_constructible_v<Account> && std::is_nothrow_move_assignable_v<Account>);
static_assert(std::is_nothrow_move_constructible_v<LedgerAccount>);

AccountCode code(unsigned int number, QString const& name)
{
    return {AccountNumber(number), name, std::nullopt};
}

Account anyAccount()
{
    return {static_cast<AccountTypes>(*rc::gen::inRange(0, 2)), code(*rc::gen::inRange(1U, 3U), "a"),
            Money::fromAmount(Currency::EUR, *rc::gen::inRange(0, 2)), *rc::gen::arbitrary<bool>()};
}
}

TEST(AccountTest, ADefaultAccountHasAnInvalidNumberAndIsOpen)
{
    Account const account;

    EXPECT_EQ(account.code().number().integer(), AccountNumber::invalid_);
    EXPECT_EQ(static_cast<int>(account.type()), 0);
    EXPECT_EQ(account.balance(), Money());
    EXPECT_FALSE(account.isClosed());
}

TEST(AccountTest, KeepsWhatItIsMadeOf)
{
    Account const account(AccountTypes::Asset, code(3, "Cash"), Money(Currency::EUR, 5, 0, 0), true);

    EXPECT_EQ(account.type(), AccountTypes::Asset);
    EXPECT_EQ(account.code(), code(3, "Cash"));
    EXPECT_EQ(account.balance(), Money(Currency::EUR, 5, 0, 0));
    EXPECT_TRUE(account.isClosed());
}

TEST(AccountTest, OrdersByTheChartOfAccounts)
{
    tlm::testing::expectStrongOrder(anyAccount);
    EXPECT_LT(Account(AccountTypes::Income, code(1, "b"), Money(), true),
              Account(AccountTypes::Asset, code(2, "a"), Money(), false));
}

TEST(AccountTest, LedgersListTransactionsByNumber)
{
    Transaction const late(QDate(2024, 5, 2), code(1, "Cash"), code(2, "Wage"), Money(Currency::EUR, 1, 0, 0), {},
                           TransactionNumber(1), TransactionStatuses::NotCleared);
    Transaction const early(QDate(2024, 5, 1), code(1, "Cash"), code(2, "Wage"), Money(Currency::EUR, 1, 0, 0), {},
                            TransactionNumber(2), TransactionStatuses::NotCleared);

    LedgerAccount const ledger{Account(), {{TransactionNumber(2), early}, {TransactionNumber(1), late}}};

    EXPECT_EQ(ledger.transactions.begin()->second, late);
    EXPECT_EQ(ledger, LedgerAccount(ledger));
    EXPECT_NE(ledger, LedgerAccount());
}

TEST(AccountTest, LedgersAreLoggedByTheNumberOfTheirTransactions)
{
    QString log;

    QDebug(&log) << LedgerAccount{Account(AccountTypes::Asset, code(1, "Cash"), Money(Currency::EUR), false), {}};

    EXPECT_TRUE(log.contains("Account(AccountTypes(Asset), AccountCode(1, \"Cash\")")) << log.toStdString();
    EXPECT_TRUE(log.contains("open), transactions 0)")) << log.toStdString();
}
