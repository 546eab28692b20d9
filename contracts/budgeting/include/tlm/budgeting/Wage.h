#pragma once

#include <tlm/budgeting/BudgetedMoney.h>

namespace tlm::budgeting {

/// What is earned.
class Wage final : public BudgetedMoneyOf<BudgetItemTypes::Wage>
{
public:
    using BudgetedMoneyOf::BudgetedMoneyOf;
};
}
