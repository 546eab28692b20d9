#include <tlm/navigation/BankAccountCode.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <utility>

namespace tlm::navigation {

namespace {

using accounting::AccountCode;
using accounting::AccountNumber;
using banking::AccountNumberBankType;
using banking::BankAccountTypes;
using banking::BankName;
using fiscora::Currency;

AccountCode const rent(AccountNumber(120), QStringLiteral("Rent"), std::nullopt);
BankName const local(QStringLiteral("Local Bank"));

BankAccountCode code(BankName const& bank, AccountCode const& account, BankAccountTypes type, Currency issuedIn)
{
    return {bank, account, type, issuedIn};
}

TEST(BankAccountCodeTest, TiesALedgerAccountToItsBank)
{
    auto const account = code(local, rent, BankAccountTypes::Checking, Currency::EUR);

    EXPECT_EQ(account.bank(), local);
    EXPECT_EQ(account.account(), rent);
    EXPECT_EQ(account.issuedIn(), Currency::EUR);
    EXPECT_EQ(account.bankAccountType(), (AccountNumberBankType{AccountNumber(120), BankAccountTypes::Checking}));
}

TEST(BankAccountCodeTest, IsOrderedByBankAccountKindAndCurrency)
{
    AccountCode const power(AccountNumber(130), QStringLiteral("Power"), std::nullopt);
    BankName const other(QStringLiteral("Other Bank"));
    std::vector<BankAccountCode> const ascending{
        code(local, rent, BankAccountTypes::Checking, Currency::USD),
        code(local, rent, BankAccountTypes::Checking, Currency::EUR),
        code(local, rent, BankAccountTypes::Savings, Currency::USD),
        code(local, power, BankAccountTypes::Checking, Currency::USD),
        code(other, rent, BankAccountTypes::Checking, Currency::USD),
    };

    std::set<BankAccountCode> const ordered(ascending.rbegin(), ascending.rend());

    EXPECT_EQ(std::vector(ordered.begin(), ordered.end()), ascending);
}

TEST(BankAccountCodeTest, IsLoggedWithAllThatItTies)
{
    QString logged;

    QDebug(&logged) << code(local, rent, BankAccountTypes::Checking, Currency::EUR);

    for (auto const* const part : {"Local Bank", "Rent", "EUR"}) {
        EXPECT_TRUE(logged.contains(QLatin1String(part))) << logged.toStdString();
    }
}
}
}
