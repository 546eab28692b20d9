#pragma once

#include <tlm/budgeting/Bill.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/budgeting/Debt.h>
#include <tlm/budgeting/Goal.h>
#include <tlm/budgeting/Nontrack.h>
#include <tlm/budgeting/Wage.h>

#include <map>

namespace tlm::budgeting {

/// Budget items of one type in the order of their sources, each under its own source.
template <typename T>
struct BudgetedMoneyMap : std::map<BudgetSource, T>
{
    using std::map<BudgetSource, T>::map;
};

struct BillMap : BudgetedMoneyMap<Bill>
{
    using BudgetedMoneyMap::BudgetedMoneyMap;
};

struct DebtMap : BudgetedMoneyMap<Debt>
{
    using BudgetedMoneyMap::BudgetedMoneyMap;
};

struct GoalMap : BudgetedMoneyMap<Goal>
{
    using BudgetedMoneyMap::BudgetedMoneyMap;
};

struct NontrackMap : BudgetedMoneyMap<Nontrack>
{
    using BudgetedMoneyMap::BudgetedMoneyMap;
};

struct WageMap : BudgetedMoneyMap<Wage>
{
    using BudgetedMoneyMap::BudgetedMoneyMap;
};
}
