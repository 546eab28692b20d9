#pragma once

#include <fiscora/Money.h>
#include <tlm/adviser/BudgetHealth.h>
#include <tlm/budgeting/BudgetTotals.h>

namespace tlm::adviser {

/// Judges a budget by its monthly totals. The handbook's page on health tells the same rule in a household's words.
///
/// Up to 50 points for the share of wages that bills, debts and nontracks leave, 20 for the share put aside for goals
/// out of it, 15 for small debt payments and 15 for little still owed; less 10 for each percent of wages by which all
/// that is planned goes beyond them. The percentage is continuous in every amount, and never rises with more bills,
/// debts, nontracks or money owed. From 60 a budget is healthy, below 30 unhealthy.
///
/// \param perMonth what each kind of budget item comes to per month, in one currency
/// \param stillOwed what is left to pay of all debts, in the same currency
/// \return the verdict with one to six paragraphs of advice in the user's locale
/// \throws std::invalid_argument when the currencies differ; money of no currency counts as nothing
BudgetHealth assess(budgeting::BudgetTotals const& perMonth, fiscora::Money const& stillOwed);
}
