#include "StorageTest.h"

#include <array>
#include <rapidcheck/gtest.h>

namespace tallymere::storage {

using namespace testing;
using fiscora::Currency;
using fiscora::Money;
using tallymere::engine::BudgetContent;
using tallymere::engine::PlannedItem;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::EventFrequency;
using tlm::foundation::Percentage;

namespace {

template <typename Value>
Value oneOf(std::set<Value> const& values)
{
    auto const place = *rc::gen::inRange<std::size_t>(0, values.size());
    return *std::next(values.begin(), static_cast<std::ptrdiff_t>(place));
}

std::set<Currency> someCurrencies()
{
    std::set<Currency> chosen;
    auto const count = *rc::gen::inRange(1, 8);
    while (chosen.size() < static_cast<std::size_t>(count)) {
        auto const code = fiscora::allCurrencies.at(*rc::gen::inRange<std::size_t>(0, fiscora::allCurrencies.size()));
        if (code != Currency::XXX) {
            chosen.insert(code);
        }
    }
    return chosen;
}

Percentage somePercentage()
{
    return {*rc::gen::inRange(0, 1'000'001) / 10'000.0, *rc::gen::arbitrary<unsigned char>()};
}

Money someMoney(Currency code)
{
    return Money::fromAmount(code, *rc::gen::inRange(1LL, std::numeric_limits<long long>::max()));
}

/// Names of all planes, so that folding, composing and storing meet what people write.
QString someName(int number)
{
    QString name;
    for (auto const character : *rc::gen::container<std::vector<char32_t>>(rc::gen::inRange<char32_t>(0x21, 0x2FFFF))) {
        if (character < 0xD800 || character > 0xDFFF) {
            name += QString::fromUcs4(&character, 1);
        }
    }
    return name.normalized(QString::NormalizationForm_C) + QString::number(number);
}

PlannedItem someItem(int number, std::set<Currency> const& usable)
{
    auto const code = oneOf(usable);
    auto const anchor = QDate(1, 1, 1).addDays(*rc::gen::inRange(0, 3'600'000));
    PlannedItem item{
        .identifier = {static_cast<BudgetItemTypes>(*rc::gen::inRange(1, 6)), BudgetSource(someName(number))},
        .amount = someMoney(code),
        .period = static_cast<EventFrequency>(*rc::gen::inRange(0, 22)),
        .anchoredOn = anchor,
        .nextOccurOn = anchor.addDays(*rc::gen::inRange(0, 10'000)),
        .debt = {},
        .goalTotal = {}};
    if (item.identifier.type == BudgetItemTypes::Debt) {
        item.debt = engine::DebtTerms{.borrowed = someMoney(code), .interest = somePercentage()};
    }
    if (item.identifier.type == BudgetItemTypes::Goal) {
        item.goalTotal = someMoney(code);
    }
    return item;
}

tlm::conversion::ConversionMap someRates(std::set<Currency> const& usable)
{
    using Rates = tlm::conversion::ConversionMap;
    Rates rates;
    for (auto count = *rc::gen::inRange(0, 10); count > 0; --count) {
        auto const rate = std::exp(*rc::gen::inRange(-600'000, 600'000) / 1000.0);
        rates.updateConversion(oneOf(usable), oneOf(usable), fiscora::FloatingPoint(rate),
                               {*rc::gen::arbitrary<bool>()});
    }
    rates.setLastFetched(Rates::TimePoint(Rates::TimePoint::duration(*rc::gen::arbitrary<long long>())));
    return rates;
}

BudgetContent someContent()
{
    BudgetContent content;
    content.settings = {
        .preferred = {},
        .usable = someCurrencies(),
        .displayAs = static_cast<tlm::navigation::CurrencyDisplayOptions>(*rc::gen::inRange(0, 3)),
        .balanceWindow = somePercentage(),
        .dueWithin = std::chrono::days(*rc::gen::inRange(0, 61)),
        .workingWeek = {std::chrono::hours(*rc::gen::inRange(1, 169)), std::chrono::days(*rc::gen::inRange(1, 8))}};
    content.settings.preferred = oneOf(content.settings.usable);
    content.rates = someRates(content.settings.usable);
    for (auto count = *rc::gen::inRange(0, 20); count > 0; --count) {
        auto item = someItem(count, content.settings.usable);
        auto const identifier = item.identifier;
        content.items.emplace(identifier, std::move(item));
    }
    return content;
}
}

class RoundTripTest : public StorageTest
{};

RC_GTEST_FIXTURE_PROP(RoundTripTest, WhatIsSavedIsOpenedEqual, ())
{
    auto const content = someContent();
    auto const path = at("home.budget");

    Document::create(places, content)->saveAs(path);
    auto const opened = Document::open(places, path);

    RC_ASSERT(opened->content() == content);
    RC_ASSERT(!opened->isDirty());
}

/// Files of every version that people keep must open for good. This one was saved by version 1.0.0.
TEST_F(RoundTripTest, AFileOfTheFirstReleaseOpens)
{
    ASSERT_TRUE(QFile::copy(RELEASED_BUDGETS "/released-1.budget", at("released-1.budget")));

    EXPECT_EQ(Document::open(places, at("released-1.budget"))->content(), household());
}
}
