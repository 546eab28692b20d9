#include <tlm/banking/ReconciledBalance.h>
#include <tlm/banking/ReconciledBankAccount.h>

#include <gtest/gtest.h>

using namespace tlm::banking;
using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountNumber;

namespace {

BankAccount const savings{BankName("Penny"), AccountNumber(3), BankAccountTypes::Savings};
Money const five(Currency::EUR, 5, 0, 0);
QDate const day(2024, 2, 29);
}

TEST(ReconciledBankAccountTest, ADefaultOneIsUnspecifiedAndWasNeverReconciled)
{
    ReconciledBankAccount const none;

    EXPECT_EQ(none.bankAccount().type, BankAccountTypes::Unspecified);
    EXPECT_EQ(none.balance(), Money());
    EXPECT_FALSE(none.reconciledOn().has_value());
}

TEST(ReconciledBankAccountTest, KeepsWhatItIsMadeOf)
{
    ReconciledBankAccount const reconciled(savings, five, day);

    EXPECT_EQ(reconciled.bankAccount(), savings);
    EXPECT_EQ(reconciled.balance(), five);
    EXPECT_EQ(reconciled.reconciledOn(), day);
    EXPECT_NE(reconciled, ReconciledBankAccount(savings, five, std::nullopt));
}

TEST(ReconciledBankAccountTest, ABalanceIsKnownByItsAmountAndDay)
{
    EXPECT_EQ((ReconciledBalance{five, day}), (ReconciledBalance{five, day}));
    EXPECT_NE((ReconciledBalance{five, day}), (ReconciledBalance{five, day.addDays(1)}));
    EXPECT_FALSE(ReconciledBalance().reconciledOn.isValid());
}

TEST(ReconciledBankAccountTest, IsLoggedWithItsDay)
{
    QString log;

    QDebug(&log) << ReconciledBankAccount(savings, five, day) << ReconciledBalance{five, day};

    EXPECT_EQ(log.count("QDate(\"2024-02-29\")"), 2) << log.toStdString();
}
