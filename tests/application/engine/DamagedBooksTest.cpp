#include "BankFixture.h"

#include <limits>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

namespace {

class DamagedBooksTest : public BankTest
{
protected:
    DamagedBooksTest()
    {
        add(bill("Rent"));
        add(planned(BudgetItemTypes::Goal, "Bicycle"));
        content = household.content();
    }

    BookAccount& accountIn(AccountNumber const& number) { return content.books.accounts.at(number); }

    void put(AccountNumber const& number, std::optional<AccountNumber> const& parent,
             AccountTypes type = AccountTypes::Asset)
    {
        content.books.accounts.insert_or_assign(
            number, BookAccount{AccountCode(number, "Old", parent), type, Currency::USD, false, {}});
    }

    PlannedItem& itemIn(BudgetItemTypes type, QString const& name) { return content.items.at(named(type, name)); }

    AccountNumber const checking = open("Checking", BankAccountTypes::Checking, dollars(100));
    AccountNumber const openings{3001};
    BudgetContent content;
    AccountNumber const rent{5001};
};

TEST_F(DamagedBooksTest, SoundBooksOpen)
{
    EXPECT_NO_THROW(Household(content, store));
}

TEST_F(DamagedBooksTest, AccountsWithoutANumberANameOrACurrency)
{
    auto misplaced = content;
    misplaced.books.accounts.emplace(AccountNumber(7), accountIn(rent));
    auto nameless = content;
    nameless.books.accounts[AccountNumber()] = {};
    accountIn(rent).currency = Currency::XXX;

    expectDamaged(misplaced, "Account 7 has no number or no name of its own. The books are damaged.");
    expectDamaged(nameless, "Account 0 has no number or no name of its own. The books are damaged.");
    expectDamaged(content, "Account Rent has no currency. The books are damaged.");
}

TEST_F(DamagedBooksTest, AParentThatIsNotThere)
{
    put(AccountNumber(1500), AccountNumber(1600));

    expectDamaged(content, "Account Old stands under an account under which it can't be. The books are damaged.");
}

TEST_F(DamagedBooksTest, AParentOfAnotherType)
{
    put(AccountNumber(1500), rent);

    expectDamaged(content, "Account Old stands under an account under which it can't be. The books are damaged.");
}

TEST_F(DamagedBooksTest, ParentsInACircle)
{
    put(AccountNumber(1500), AccountNumber(1501));
    put(AccountNumber(1501), AccountNumber(1502));
    put(AccountNumber(1502), AccountNumber(1500));

    expectDamaged(content, "Account Old stands under an account under which it can't be. The books are damaged.");
}

TEST_F(DamagedBooksTest, AnAccountUnderItself)
{
    put(AccountNumber(1500), AccountNumber(1500));

    expectDamaged(content, "Account Old stands under an account under which it can't be. The books are damaged.");
}

TEST_F(DamagedBooksTest, ALongRoadOfParentsIsSound)
{
    for (auto number = 20'000U; number < 20'500U; ++number) {
        put(AccountNumber(number), AccountNumber(number + 1));
    }
    put(AccountNumber(20'500), std::nullopt);

    EXPECT_NO_THROW(Household(content, store));
}

TEST_F(DamagedBooksTest, OpeningBalancesInTwoAccountsOrOutsideOfEquity)
{
    auto const sentence = "Opening balances in USD stand in more than one account, or in one that isn't equity. The "
                          "books are damaged.";
    auto twice = content;
    twice.books.accounts.emplace(
        AccountNumber(3500), BookAccount{AccountCode(AccountNumber(3500), "More", std::nullopt), AccountTypes::Equity,
                                         Currency::USD, false, AccountPurposes::OpeningBalances});
    accountIn(openings).type = AccountTypes::Asset;

    expectDamaged(twice, sentence);
    expectDamaged(content, sentence);
}

TEST_F(DamagedBooksTest, ExchangesInTwoAccountsOrOutsideOfEquity)
{
    auto const sentence = "Transfers out of and into USD stand in more than one account, or in one that isn't equity. "
                          "The books are damaged.";
    auto const exchange = [](unsigned int number, AccountTypes type) {
        AccountNumber const own(number);
        return std::pair(own, BookAccount{AccountCode(own, "Exchange", std::nullopt), type, Currency::USD, false,
                                          AccountPurposes::Exchange});
    };
    auto once = content;
    once.books.accounts.insert(exchange(3500, AccountTypes::Equity));
    auto twice = once;
    twice.books.accounts.insert(exchange(3501, AccountTypes::Equity));
    content.books.accounts.insert(exchange(3500, AccountTypes::Asset));

    EXPECT_NO_THROW(Household(once, store));
    expectDamaged(twice, sentence);
    expectDamaged(content, sentence);
}

TEST_F(DamagedBooksTest, BanksWithoutANameOfTheirOwn)
{
    auto const put = [&](BankName const& key, BankName const& name) {
        auto damaged = content;
        damaged.books.banks.emplace(key, Bank(name, {}, false));
        return damaged;
    };

    expectDamaged(put(BankName("Hill"), BankName("Lake")),
                  "The bank Hill has no name of its own. The books are damaged.");
    expectDamaged(put(BankName(" "), BankName(" ")), "The bank   has no name of its own. The books are damaged.");
    expectDamaged(put(BankName("riverSIDE"), BankName("riverSIDE")),
                  "The bank riverSIDE has no name of its own. The books are damaged.");
}

TEST_F(DamagedBooksTest, AnAccountOfABankThatIsNotThereOrAnotherBanks)
{
    auto const put = [&](AccountNumber const& number) {
        auto damaged = content;
        BankName const lake("Sea");
        damaged.books.banks.emplace(lake, Bank(lake, {{number, BankAccountTypes::Checking}}, false));
        return damaged;
    };

    expectDamaged(put(AccountNumber(77)),
                  "Sea lists account 77, which isn't there or is another bank's. The books are damaged.");
    expectDamaged(put(checking),
                  "Sea lists account 1001, which isn't there or is another bank's. The books are damaged.");
}

TEST_F(DamagedBooksTest, AnAccountOfABankThatDoesNotFitItsKind)
{
    content.books.banks.at(river) = Bank(river, {{checking, BankAccountTypes::Loan}}, false);

    expectDamaged(content, "Checking is at Riverside as Loan, which it can't be. The books are damaged.");
}

TEST_F(DamagedBooksTest, ItemsWithoutAnAccountThatFits)
{
    auto const sentence = "Rent has no account of its own that fits it. The books are damaged.";
    for (auto const& number : {AccountNumber(), AccountNumber(77), checking}) {
        itemIn(BudgetItemTypes::Bill, "Rent").account = number;

        expectDamaged(content, sentence);
    }
    itemIn(BudgetItemTypes::Bill, "Rent").account = rent;
    accountIn(rent).currency = Currency::EUR;
    expectDamaged(content, sentence);
}

TEST_F(DamagedBooksTest, TwoItemsWithOneAccount)
{
    auto water = bill("Water");
    water.account = rent;
    content.items.emplace(water.identifier, water);

    expectDamaged(content, "Water has no account of its own that fits it. The books are damaged.");
}

TEST_F(DamagedBooksTest, TurnoversThatFitNoAccount)
{
    auto const put = [&](AccountNumber const& number, Turnover const& turnover) {
        auto damaged = content;
        damaged.books.turnovers.insert_or_assign(number, turnover);
        return damaged;
    };

    expectDamaged(put(AccountNumber(77), {dollars(0), 1}),
                  "What is posted to account 77 doesn't fit it. The books are damaged.");
    expectDamaged(put(rent, {euros(0), 1}), "What is posted to account 5001 doesn't fit it. The books are damaged.");
    expectDamaged(put(rent, {dollars(0), 0}), "What is posted to account 5001 doesn't fit it. The books are damaged.");
}

TEST_F(DamagedBooksTest, DebitsThatDoNotEqualCredits)
{
    content.books.turnovers.at(checking).debited += Money::fromAmount(Currency::USD, 1);

    expectDamaged(content, "Debits and credits in USD aren't equal. The books are damaged.");
}

/// Four times a quarter of all that 64 bits tell is nothing again where a sum wraps.
TEST_F(DamagedBooksTest, DebitsThatDoNotEqualCreditsByMoreThanCanBeCounted)
{
    auto const quarter = Money::fromAmount(Currency::USD, 1LL << 62);
    for (auto number = 1500U; number < 1504U; ++number) {
        put(AccountNumber(number), std::nullopt);
        content.books.turnovers.insert_or_assign(AccountNumber(number), Turnover{quarter, 1});
    }

    expectDamaged(content, "Debits and credits in USD aren't equal. The books are damaged.");
}

TEST_F(DamagedBooksTest, EqualSumsBeyondWhatCanBeCountedAreSound)
{
    auto const largest = std::numeric_limits<long long>::max();
    auto number = 1500U;
    for (auto const amount : {largest, largest, largest, -largest, -largest, -largest}) {
        put(AccountNumber(++number), std::nullopt);
        content.books.turnovers.insert_or_assign(AccountNumber(number),
                                                 Turnover{Money::fromAmount(Currency::USD, amount), 1});
    }

    EXPECT_NO_THROW(Household(content, store));
}
}
}
