#pragma once

#include <engine/BudgetContent.h>

#include <functional>

namespace tallymere::engine {

/// Where accepted changes go before the household takes them over.
///
/// The household calls the other operations inside transact() only.
class Store
{
public:
    Store() = default;
    Store(Store const&) = delete;
    Store& operator=(Store const&) = delete;
    virtual ~Store() = default;

    /// Runs \a changes and keeps all of them or none, durably once it returns.
    /// \throws std::exception whatever a change throws, or why the changes can't be kept
    virtual void transact(std::function<void()> const& changes) = 0;

    virtual void write(Settings const& settings) = 0;
    virtual void write(tlm::conversion::ConversionMap const& rates) = 0;
    virtual void add(PlannedItem const& item) = 0;
    /// Puts \a item in the place of \a original; its identifier may differ.
    virtual void change(tlm::budgeting::BudgetItemIdentifier const& original, PlannedItem const& item) = 0;
    virtual void remove(tlm::budgeting::BudgetItemIdentifier const& identifier) = 0;
};
}
