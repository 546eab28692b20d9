#include "BankFixture.h"

#include <gmock/gmock.h>
#include <limits>

using fiscora::Currency;
using fiscora::Money;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

namespace {

using BanksTest = BankTest;

TEST_F(BanksTest, ABankIsKeptUnderItsTidiedName)
{
    household.addBank(BankName(QString::fromUtf8("  Cafe\xCC\x81 Bank ")));

    EXPECT_THAT(household.openBanks(), ElementsAre(BankName(QString::fromUtf8("Caf\xC3\xA9 Bank")), river));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(BanksTest, ABankIsFoundWithoutRegardToCaseAndSurroundingBlanks)
{
    auto const& kept = household.content().books.banks.at(river);

    EXPECT_EQ(household.bank(river), &kept);
    EXPECT_EQ(household.bank(BankName(" " + river.institution().toUpper() + " ")), &kept);
    EXPECT_EQ(household.bank(BankName("Elsewhere")), nullptr);
}

TEST_F(BanksTest, NamesThatNoBankCanHave)
{
    expectRefused([&] { household.addBank(BankName(" \t")); },
                  "This bank has no name. Give it one by which you will know it.");
    for (auto const* const name : {"River\nBank", "River\u2002Bank"}) {
        expectRefused([&] { household.addBank(BankName(name)); },
                      "The name of this bank holds signs that can't be shown, such as a line break, or a blank of "
                      "unusual width. Type the name anew.");
    }
    for (auto const* const name : {"Riverside", " RIVERside "}) {
        expectRefused([&] { household.addBank(BankName(name)); },
                      "There is a bank called Riverside already. Use that one, or give this one another name.");
    }
}

TEST_F(BanksTest, AClosedBankIsNotAmongTheOpenOnes)
{
    EXPECT_THAT(Household(withClosedBank(), store).openBanks(), IsEmpty());
}

struct Opening
{
    BankAccountTypes kind;
    AccountTypes type;
    unsigned int number;
    long long balance;
    long long openings; ///< what the equity account then holds
};

class BankAccountOpeningTest : public BankTest, public ::testing::WithParamInterface<Opening>
{};

TEST_P(BankAccountOpeningTest, AnAccountHasItsTypeItsNumberAndItsBalance)
{
    auto const& row = GetParam();

    auto const number = open(" Mine ", row.kind, dollars(row.balance));

    EXPECT_EQ(number, AccountNumber(row.number));
    EXPECT_EQ(account(number),
              (BookAccount{AccountCode(number, "Mine", std::nullopt), row.type, Currency::USD, false, {}}));
    EXPECT_EQ(household.content().books.banks.at(river).accounts(), (std::map{std::pair(number, row.kind)}));
    EXPECT_EQ(household.balance(number), dollars(row.balance));
    EXPECT_EQ(household.balance(AccountNumber(3001)), dollars(row.openings));
    ASSERT_EQ(store.postings().size(), 1U);
    EXPECT_EQ(store.postings().begin()->second.description, "Opening balance");
    EXPECT_EQ(store.postings().begin()->second.occurredOn, today);
    EXPECT_EQ(store.kept(), household.content());
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, BankAccountOpeningTest,
    ::testing::Values(Opening{BankAccountTypes::Checking, AccountTypes::Asset, 1001, 25, 25},
                      Opening{BankAccountTypes::Savings, AccountTypes::Asset, 1001, -25, -25},
                      Opening{BankAccountTypes::Goal, AccountTypes::Asset, 1001, 1, 1},
                      Opening{BankAccountTypes::CreditCard, AccountTypes::Liability, 2001, 25, -25},
                      Opening{BankAccountTypes::Loan, AccountTypes::Liability, 2001, -25, 25},
                      Opening{BankAccountTypes::Unspecified, AccountTypes::Suspense, 9001, 25, -25}));

TEST_F(BanksTest, AnAccountThatOpensWithNothingHasNoPosting)
{
    auto const number = open("Checking", BankAccountTypes::Checking, euros(0));

    EXPECT_THAT(store.postings(), IsEmpty());
    EXPECT_THAT(household.codes(AccountTypes::Equity), IsEmpty());
    EXPECT_EQ(household.balance(number), euros(0));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(BanksTest, AccountsThatCanNotBeMade)
{
    open("Checking", BankAccountTypes::Checking, dollars(5));
    auto const refuse = [&](QString const& name, Money const& balance, QString const& sentence) {
        expectRefused([&] { open(name, BankAccountTypes::Savings, balance); }, sentence);
    };

    refuse("", dollars(1), "The account has no name. Type one, such as \"Groceries\".");
    refuse(" CHECKING", dollars(1), "Riverside has an account called Checking already. Give this one another name.");
    refuse("Savings", Money(Currency::GBP),
           "Savings can't be kept in GBP. Choose a usable currency, or make that one usable.");
    refuse("Savings", Money(), "The opening balance of Savings has no currency. Choose one.");
    refuse(
        "Savings", Money::fromAmount(Currency::USD, std::numeric_limits<long long>::min()),
        "The budget's amounts add up to more than can be counted. Plan smaller ones, or correct the exchange rates.");
    refuse("Savings", Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max()),
           "What is posted to one account would add up to more than can be counted. Post a smaller amount.");
    expectRefused(
        [&] { household.addBankAccount(BankName("Hill"), "Savings", BankAccountTypes::Savings, dollars(5), today); },
        "There is no bank called Hill. Choose another bank for Savings.");
    expectRefused([&] { household.addBankAccount(river, "Savings", BankAccountTypes::Savings, dollars(5), QDate()); },
                  "The posting has no date. Enter the day on which it happened.");
}

TEST_F(BanksTest, AccountsOfTwoBanksMayShareAName)
{
    BankName const hill("Hill");
    household.addBank(hill);
    open("Checking", BankAccountTypes::Checking, dollars(5));

    EXPECT_NO_THROW(household.addBankAccount(hill, "Checking", BankAccountTypes::Checking, dollars(5), today));

    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(BanksTest, AClosedBankTakesNoNewAccount)
{
    Household opened(withClosedBank(), store);

    expectSentence([&] { opened.addBankAccount(river, "New", BankAccountTypes::Checking, dollars(0), today); },
                   "Riverside is closed. Choose another bank for New.");
}

TEST_F(BanksTest, CodesAreThoseOfOneType)
{
    auto const checking = open("Checking", BankAccountTypes::Checking, dollars(5));
    auto const card = open("Card", BankAccountTypes::CreditCard, dollars(5));
    add(bill("Rent"));

    EXPECT_THAT(household.codes(AccountTypes::Asset), ElementsAre(AccountCode(checking, "Checking", std::nullopt)));
    EXPECT_THAT(household.codes(AccountTypes::Liability), ElementsAre(AccountCode(card, "Card", std::nullopt)));
    EXPECT_THAT(household.codes(AccountTypes::Expense),
                ElementsAre(AccountCode(AccountNumber(5001), "Rent", std::nullopt)));
    EXPECT_THAT(household.codes(AccountTypes::Suspense), IsEmpty());
}
}
}
