#include "Names.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

using tallymere::engine::AccountPurposes;
using tlm::accounting::AccountTypes;
using tlm::accounting::TransactionStatuses;
using tlm::banking::BankAccountTypes;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::EventFrequency;
using tlm::navigation::CurrencyDisplayOptions;

namespace tallymere::storage::names {

namespace {

template <typename Value, std::size_t Size>
using Words = std::array<std::pair<Value, std::string_view>, Size>;

constexpr Words<BudgetItemTypes, 5> types{{
    {BudgetItemTypes::Bill, "bill"},
    {BudgetItemTypes::Debt, "debt"},
    {BudgetItemTypes::Goal, "goal"},
    {BudgetItemTypes::Nontrack, "nontrack"},
    {BudgetItemTypes::Wage, "wage"},
}};

constexpr Words<EventFrequency, 22> frequencies{{
    {EventFrequency::None, "once"},
    {EventFrequency::Hourly, "hourly"},
    {EventFrequency::Daily, "daily"},
    {EventFrequency::Weekly, "weekly"},
    {EventFrequency::Fortnightly, "fortnightly"},
    {EventFrequency::TwiceMonthly, "twice monthly"},
    {EventFrequency::Monthly, "monthly"},
    {EventFrequency::EveryTwoMonths, "every 2 months"},
    {EventFrequency::Quarterly, "every 3 months"},
    {EventFrequency::EveryFourMonths, "every 4 months"},
    {EventFrequency::EveryFiveMonths, "every 5 months"},
    {EventFrequency::HalfYearly, "every 6 months"},
    {EventFrequency::EveryEightMonths, "every 8 months"},
    {EventFrequency::EveryNineMonths, "every 9 months"},
    {EventFrequency::Yearly, "yearly"},
    {EventFrequency::EveryEighteenMonths, "every 18 months"},
    {EventFrequency::EveryTwoYears, "every 2 years"},
    {EventFrequency::EveryThreeYears, "every 3 years"},
    {EventFrequency::EveryFourYears, "every 4 years"},
    {EventFrequency::EveryFiveYears, "every 5 years"},
    {EventFrequency::EveryTenYears, "every 10 years"},
    {EventFrequency::EveryFourWeeks, "every 4 weeks"},
}};

constexpr Words<CurrencyDisplayOptions, 3> displayOptions{{
    {CurrencyDisplayOptions::Code, "code"},
    {CurrencyDisplayOptions::NameAndCode, "name and code"},
    {CurrencyDisplayOptions::SymbolAndCode, "symbol and code"},
}};

constexpr Words<AccountTypes, 6> accountTypes{{
    {AccountTypes::Asset, "asset"},
    {AccountTypes::Equity, "equity"},
    {AccountTypes::Expense, "expense"},
    {AccountTypes::Income, "income"},
    {AccountTypes::Liability, "liability"},
    {AccountTypes::Suspense, "suspense"},
}};

constexpr Words<TransactionStatuses, 3> statuses{{
    {TransactionStatuses::NotCleared, "not cleared"},
    {TransactionStatuses::Cleared, "cleared"},
    {TransactionStatuses::Reconciled, "reconciled"},
}};

constexpr Words<BankAccountTypes, 6> bankAccountTypes{{
    {BankAccountTypes::Checking, "checking"},
    {BankAccountTypes::CreditCard, "credit card"},
    {BankAccountTypes::Goal, "goal"},
    {BankAccountTypes::Loan, "loan"},
    {BankAccountTypes::Savings, "savings"},
    {BankAccountTypes::Unspecified, "unspecified"},
}};

constexpr Words<AccountPurposes, 3> purposes{{
    {AccountPurposes::Household, "household"},
    {AccountPurposes::OpeningBalances, "opening balances"},
    {AccountPurposes::Exchange, "exchange"},
}};

template <typename Value, std::size_t Size>
std::string word(Words<Value, Size> const& words, Value value)
{
    auto const found = std::ranges::find(words, value, &std::pair<Value, std::string_view>::first);
    if (found == words.end()) {
        throw std::invalid_argument("no word for value " + std::to_string(static_cast<unsigned int>(value)));
    }
    return std::string(found->second);
}

template <typename Value, std::size_t Size>
Value value(Words<Value, Size> const& words, std::string_view word)
{
    auto const found = std::ranges::find(words, word, &std::pair<Value, std::string_view>::second);
    if (found == words.end()) {
        throw std::invalid_argument("no value for word '" + std::string(word) + "'");
    }
    return found->first;
}
}

std::string toName(BudgetItemTypes type)
{
    return word(types, type);
}

std::string toName(EventFrequency frequency)
{
    return word(frequencies, frequency);
}

std::string toName(CurrencyDisplayOptions option)
{
    return word(displayOptions, option);
}

std::string toName(AccountTypes type)
{
    return word(accountTypes, type);
}

std::string toName(TransactionStatuses status)
{
    return word(statuses, status);
}

std::string toName(BankAccountTypes type)
{
    return word(bankAccountTypes, type);
}

std::string toName(AccountPurposes purpose)
{
    return word(purposes, purpose);
}

BudgetItemTypes toType(std::string const& name)
{
    return value(types, name);
}

EventFrequency toFrequency(std::string const& name)
{
    return value(frequencies, name);
}

CurrencyDisplayOptions toDisplayOption(std::string const& name)
{
    return value(displayOptions, name);
}

AccountTypes toAccountType(std::string const& name)
{
    return value(accountTypes, name);
}

TransactionStatuses toStatus(std::string_view name)
{
    return value(statuses, name);
}

BankAccountTypes toBankAccountType(std::string const& name)
{
    return value(bankAccountTypes, name);
}

AccountPurposes toPurpose(std::string const& name)
{
    return value(purposes, name);
}
}
