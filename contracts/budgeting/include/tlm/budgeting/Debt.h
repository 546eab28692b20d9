#pragma once

#include <tlm/budgeting/BudgetedMoney.h>
#include <tlm/foundation/Percentage.h>

namespace tlm::budgeting {

/// What is paid back in instalments.
class Debt final : public BudgetedMoneyOf<BudgetItemTypes::Debt>
{
public:
    Debt() = default;

    /// \param amount of one instalment
    /// \param borrowed all that was borrowed
    /// \param interest percent per year
    Debt(BudgetSource const& source, fiscora::Money const& amount, EventFrequency const& period,
         QDate const& nextOccurOn, fiscora::Money const& borrowed, foundation::Percentage const& interest);

    fiscora::Money const& borrowed() const noexcept { return borrowed_; }
    foundation::Percentage const& interest() const noexcept { return interest_; }

private:
    std::strong_ordering compareTerms(BudgetedMoney const& other) const override;

    fiscora::Money borrowed_;
    foundation::Percentage interest_{0.0, 2}; // two decimals, as forms show what banks tell
};
}
