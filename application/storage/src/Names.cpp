#include "Names.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

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
Value value(Words<Value, Size> const& words, std::string const& word)
{
    auto const found = std::ranges::find(words, word, &std::pair<Value, std::string_view>::second);
    if (found == words.end()) {
        throw std::invalid_argument("no value for word '" + word + "'");
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
}
