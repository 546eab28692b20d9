#pragma once

#include <tlm/budgeting/BudgetedMoney.h>

namespace tlm::budgeting {

/// What has to be paid at known times, such as rent.
class Bill final : public BudgetedMoneyOf<BudgetItemTypes::Bill>
{
public:
    using BudgetedMoneyOf::BudgetedMoneyOf;
};
}
