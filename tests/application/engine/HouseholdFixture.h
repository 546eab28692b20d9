#pragma once

#include <engine/Household.h>
#include <engine/Store.h>
#include <fiscora/Conversions.h>
#include <tlm/budgeting/WorkingWeek.h>

#include <QLocale>

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <utility>

namespace tallymere::engine {

/// Keeps what a document would keep, all changes of a transaction or none, and can be told to fail.
class MemoryStore : public Store
{
public:
    explicit MemoryStore(BudgetContent content) : kept_(std::move(content)) {}

    void transact(std::function<void()> const& changes) override
    {
        ++transactions_;
        pending_ = kept_;
        isInside_ = true;
        changes();
        isInside_ = false;
        if (isFull_) {
            throw std::runtime_error("disk full");
        }
        kept_ = pending_;
    }
    void write(Settings const& settings) override { inside().settings = settings; }
    void write(tlm::conversion::ConversionMap const& rates) override { inside().rates = rates; }
    void add(PlannedItem const& item) override
    {
        if (!inside().items.emplace(item.identifier, item).second) {
            throw std::logic_error("added twice");
        }
    }
    void change(tlm::budgeting::BudgetItemIdentifier const& original, PlannedItem const& item) override
    {
        remove(original);
        add(item);
    }
    void remove(tlm::budgeting::BudgetItemIdentifier const& identifier) override
    {
        if (inside().items.erase(identifier) == 0) {
            throw std::logic_error("nothing to remove");
        }
    }

    BudgetContent const& kept() const { return kept_; }
    int transactions() const { return transactions_; }
    void setFull(bool isFull) { isFull_ = isFull; }

private:
    BudgetContent& inside()
    {
        if (!isInside_) {
            throw std::logic_error("changed outside of a transaction");
        }
        return pending_;
    }

    BudgetContent kept_;
    BudgetContent pending_;
    int transactions_ = 0;
    bool isInside_ = false;
    bool isFull_ = false;
};

inline fiscora::Money dollars(long long units, unsigned short cents = 0)
{
    return {fiscora::Currency::USD, units, cents, 0};
}

inline fiscora::Money euros(long long units, unsigned short cents = 0)
{
    return {fiscora::Currency::EUR, units, cents, 0};
}

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

    MemoryStore store{dollarsAndEuros()};
    Household household{dollarsAndEuros(), store};
};
}
