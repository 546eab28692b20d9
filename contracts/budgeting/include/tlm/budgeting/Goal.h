#pragma once

#include <tlm/budgeting/BudgetedMoney.h>

namespace tlm::budgeting {

/// What is set aside until there is enough of it.
class Goal final : public BudgetedMoneyOf<BudgetItemTypes::Goal>
{
public:
    Goal() = default;

    /// \param amount set aside at each occurrence
    /// \param final the sum to reach
    Goal(BudgetSource const& source, fiscora::Money const& amount, EventFrequency const& period,
         QDate const& nextOccurOn, fiscora::Money const& final);

    fiscora::Money const& final() const noexcept { return final_; }

private:
    std::strong_ordering compareTerms(BudgetedMoney const& other) const override;

    fiscora::Money final_;
};
}
