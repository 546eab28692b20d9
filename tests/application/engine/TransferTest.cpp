#include "AccountFixture.h"

#include <gmock/gmock.h>
#include <limits>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountNumber;
using tlm::accounting::TransactionStatuses;
using tlm::banking::BankAccountTypes;

namespace tallymere::engine {

namespace {

class TransferTest : public AccountTest
{
protected:
    PostingId move(AccountNumber const& from, AccountNumber const& to, Money const& amount,
                   QString const& reason = "Summer")
    {
        return household.transfer(from, to, amount, reason, today);
    }

    AccountNumber const checking = open("Checking", BankAccountTypes::Checking, dollars(100));
    AccountNumber const savings = open("Savings", BankAccountTypes::Savings, dollars(0));
    AccountNumber const card = open("Card", BankAccountTypes::CreditCard, dollars(60));
    AccountNumber const travels = open("Travels", BankAccountTypes::Savings, euros(0));
};

TEST_F(TransferTest, MoneyLeavesOneAccountAndEntersTheOther)
{
    auto const id = move(checking, savings, dollars(130));

    EXPECT_EQ(household.balance(checking), dollars(-30));
    EXPECT_EQ(household.balance(savings), dollars(130));
    auto moved = posting(savings, checking, dollars(130));
    moved.description = "Summer";
    EXPECT_EQ(store.postings().at(id), moved);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(TransferTest, ACardIsPaidOffAndDrawnOn)
{
    move(checking, card, dollars(20));
    move(card, savings, dollars(5));

    EXPECT_EQ(household.balance(card), dollars(45));
    EXPECT_EQ(household.balance(checking), dollars(80));
    EXPECT_EQ(household.balance(savings), dollars(5));
}

TEST_F(TransferTest, ATransferWithoutReasonIsCalledSo)
{
    EXPECT_EQ(store.postings().at(move(checking, savings, dollars(1), "  ")).description, "Transfer");
}

TEST_F(TransferTest, AcrossCurrenciesItGoesThroughTheExchangeAccountsOfBoth)
{
    setRate(Currency::USD, Currency::EUR, 0.92);
    auto const transactions = store.transactions();

    auto const id = move(checking, travels, dollars(10, 5));

    EXPECT_EQ(store.transactions(), transactions + 1);
    EXPECT_EQ(household.balance(checking), dollars(89, 95));
    EXPECT_EQ(household.balance(travels), euros(9, 25)); // of 9.246
    auto const left = store.postings().at(id);
    auto const arrived = store.postings().at({id.value + 1});
    EXPECT_EQ(left.crediting, checking);
    EXPECT_EQ(arrived.debiting, travels);
    EXPECT_EQ(arrived.description, "Summer");
    EXPECT_EQ(account(left.debiting), (BookAccount{{left.debiting, "Exchange (USD)", {}},
                                                   AccountTypes::Equity,
                                                   Currency::USD,
                                                   false,
                                                   AccountPurposes::Exchange}));
    EXPECT_EQ(account(arrived.crediting).code.name(), "Exchange (EUR)");
    EXPECT_EQ(account(arrived.crediting).currency, Currency::EUR);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(TransferTest, WhatArrivesIsRoundedOnce)
{
    setRate(Currency::USD, Currency::EUR, 1.00495);

    move(checking, travels, dollars(1));

    EXPECT_EQ(household.balance(travels), euros(1)); // and not 1.01, by way of 1.0050
}

TEST_F(TransferTest, TheExchangeAccountsServeAgain)
{
    setRate(Currency::USD, Currency::EUR, 0.5);
    setRate(Currency::EUR, Currency::USD, 2);
    move(checking, travels, dollars(10));
    auto const accounts = household.accounts().size();

    move(travels, checking, euros(5));

    EXPECT_EQ(household.accounts().size(), accounts);
    EXPECT_EQ(household.balance(checking), dollars(100));
    expectRefused([&] { household.closeAccount(AccountNumber(3'002)); },
                  "Transfers between currencies go through Exchange (USD), so it stays open.");
    EXPECT_NO_THROW(Household(household.content(), store));
}

TEST_F(TransferTest, TheRateIsTheHouseholdsOwn)
{
    setRate(Currency::USD, Currency::EUR, 0.5);
    auto others = dollarsAndEuros();
    others.rates.updateConversion(Currency::USD, Currency::EUR, fiscora::FloatingPoint(7), {});
    MemoryStore otherStore(others);
    Household const other(others, otherStore);

    move(checking, travels, dollars(10));

    EXPECT_EQ(household.balance(travels), euros(5));
}

TEST_F(TransferTest, AnExpiredRateServesToo)
{
    auto rates = household.content().rates;
    rates.updateConversion(Currency::USD, Currency::EUR, fiscora::FloatingPoint(0.5),
                           tlm::conversion::RateLookedUp{true});
    rates.setLastFetched({});
    household.setRates(rates);

    move(checking, travels, dollars(10));

    EXPECT_EQ(household.balance(travels), euros(5));
}

TEST_F(TransferTest, TransfersThatCanNotBe)
{
    addAccount(code(12, "Attic"), AccountTypes::Asset, dollars(0), true);
    addAccount(code(13, "Chest"), AccountTypes::Asset, euros(0), true);
    AccountNumber const attic(12);
    AccountNumber const chest(13);
    setRate(Currency::USD, Currency::EUR, 0.5);
    setRate(Currency::EUR, Currency::USD, 2);
    auto const refuse = [&](AccountNumber const& from, AccountNumber const& to, Money const& amount,
                            QString const& sentence) { expectRefused([&] { move(from, to, amount); }, sentence); };
    QString const unknown("There is no account 77 in the books. Choose another account.");
    QString const nothing("The amount to move isn't above zero. Enter one that is.");
    QString const closed("%1 is closed. Open it again, or choose another account.");

    refuse({}, savings, dollars(1), "No account is chosen from which the money comes. Choose one.");
    refuse(savings, {}, dollars(1), "No account is chosen to which the money goes. Choose one.");
    refuse(savings, savings, dollars(1), "Money can't be moved from an account to itself. Choose two accounts.");
    refuse(none, savings, dollars(1), unknown);
    refuse(savings, none, dollars(1), unknown);
    refuse(checking, savings, dollars(0), nothing);
    refuse(checking, travels, dollars(-1), nothing);
    refuse(attic, savings, dollars(1), closed.arg("Attic"));
    refuse(savings, attic, dollars(1), closed.arg("Attic"));
    refuse(attic, travels, dollars(1), closed.arg("Attic"));
    refuse(checking, chest, dollars(1), closed.arg("Chest"));
    refuse(checking, savings, euros(1),
           "Checking is kept in USD. Enter an amount in that currency, or choose another account.");
    refuse(checking, travels, euros(1),
           "Checking is kept in USD. Enter an amount in that currency, or choose another account.");
    for (auto const& to : {savings, travels}) {
        expectRefused([&] { household.transfer(checking, to, dollars(1), {}, QDate()); },
                      "The posting has no date. Enter the day on which it happened.");
    }
}

TEST_F(TransferTest, ADirectionWithoutRate)
{
    setRate(Currency::EUR, Currency::USD, 2);

    expectRefused([&] { move(checking, travels, dollars(1)); },
                  "There is no rate from USD to EUR. Enter what one USD is worth in EUR among the exchange rates.");
}

TEST_F(TransferTest, AmountsThatComeToNothingOrToTooMuch)
{
    setRate(Currency::USD, Currency::EUR, 0.4);
    expectRefused([&] { move(checking, travels, dollars(0, 1)); },
                  "0.01 USD come to nothing in EUR. Move a larger amount.");

    setRate(Currency::USD, Currency::EUR, 1e9);
    expectRefused([&] { move(checking, travels, dollars(1'000'000'000)); },
                  "1000000000.00 USD are worth more in EUR than can be counted. Move a smaller amount.");
}

TEST_F(TransferTest, AFullDiskLeavesBothAccountsAsTheyWere)
{
    setRate(Currency::USD, Currency::EUR, 0.5);
    auto const before = household.content();
    auto const postings = store.postings();
    store.breakAfter(3); // both exchange accounts and the first posting pass

    EXPECT_THROW(move(checking, travels, dollars(10)), std::runtime_error);

    EXPECT_EQ(household.content(), before);
    EXPECT_EQ(store.postings(), postings);
}
}
}
