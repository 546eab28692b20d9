#pragma once

#include <tlm/budgeting/BudgetedMoney.h>

namespace tlm::budgeting {

/// What is spent bit by bit without anyone keeping track, such as pocket money.
class Nontrack final : public BudgetedMoneyOf<BudgetItemTypes::Nontrack>
{
public:
    using BudgetedMoneyOf::BudgetedMoneyOf;
};
}
