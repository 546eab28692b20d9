#pragma once

#include "MemoryStore.h"

#include <engine/Household.h>
#include <engine/OpenBooks.h>
#include <fiscora/Conversions.h>
#include <tlm/budgeting/WorkingWeek.h>

#include <QDate>
#include <QLocale>

#include <gtest/gtest.h>
#include <initializer_list>
#include <optional>
#include <support/DollarsAndEuros.h>
#include <utility>

namespace tallymere::engine {

inline tlm::budgeting::BudgetItemIdentifier named(tlm::budgeting::BudgetItemTypes type, QString const& name)
{
    return {type, tlm::budgeting::BudgetSource(name)};
}

/// An item of 100 dollars a month, due on 31 January 2025, whole for its type.
inline PlannedItem planned(tlm::budgeting::BudgetItemTypes type, QString const& name)
{
    using tlm::budgeting::BudgetItemTypes;
    PlannedItem item;
    item.identifier = named(type, name);
    item.amount = dollars(100);
    item.period = tlm::budgeting::EventFrequency::Monthly;
    item.anchoredOn = {2025, 1, 31};
    item.nextOccurOn = {2025, 1, 31};
    if (type == BudgetItemTypes::Debt) {
        item.debt = DebtTerms{dollars(5'000), tlm::foundation::Percentage(4.5, 2)};
    }
    if (type == BudgetItemTypes::Goal) {
        item.goalTotal = dollars(1'200);
    }
    return item;
}

inline PlannedItem bill(QString const& name)
{
    return planned(tlm::budgeting::BudgetItemTypes::Bill, name);
}

/// An empty budget in dollars in which euros are usable too, without rates between them.
inline BudgetContent dollarsAndEuros()
{
    auto content = emptyContent(QLocale(QLocale::English, QLocale::UnitedStates));
    content.settings.usable = {fiscora::Currency::USD, fiscora::Currency::EUR};
    return content;
}

/// \a content with an account for each of its items.
inline NewBudget withAccounts(BudgetContent content)
{
    auto postings = openBooks(content);
    return {std::move(content), std::move(postings)};
}

/// Dollars and euros in which \a items are planned already.
inline NewBudget planning(std::initializer_list<PlannedItem> items)
{
    auto content = dollarsAndEuros();
    for (auto const& item : items) {
        content.items.emplace(item.identifier, item);
    }
    return withAccounts(std::move(content));
}

/// A household in dollars and euros; leaves the process as it was.
class HouseholdTest : public ::testing::Test
{
protected:
    ~HouseholdTest() override
    {
        fiscora::clearConversions();
        tlm::budgeting::setWorkingWeek({});
    }

    void setRate(fiscora::Currency from, fiscora::Currency to, double rate)
    {
        auto rates = household.content().rates;
        rates.updateConversion(from, to, fiscora::FloatingPoint(rate), {});
        household.setRates(rates);
    }

    using KeptAt = std::optional<tlm::banking::BankAccount>;

    void add(PlannedItem const& item, KeptAt const& keptAt = std::nullopt) { household.add(item, keptAt, today); }
    void change(tlm::budgeting::BudgetItemIdentifier const& original, PlannedItem const& item,
                KeptAt const& keptAt = std::nullopt)
    {
        household.change(original, item, keptAt);
    }

    PlannedItem const& item(tlm::budgeting::BudgetItemTypes type, QString const& name) const
    {
        return household.content().items.at(named(type, name));
    }

    BookAccount const& account(tlm::accounting::AccountNumber const& number) const
    {
        return household.content().books.accounts.at(number);
    }

    QDate const today{2025, 5, 1}; // a Thursday
    MemoryStore store{dollarsAndEuros()};
    Household household{dollarsAndEuros(), store};
};
}
