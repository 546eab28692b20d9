#pragma once

#include <tlm/banking/BankAccount.h>
#include <tlm/budgeting/BudgetSource.h>

#include <compare>
#include <optional>
#include <set>

namespace tlm::navigation {

/// The bank account that a debt is paid from, or that a goal is stored in.
struct BudgetBankAccount
{
    budgeting::BudgetSource source; ///< of the debt or the goal; debts and goals come in sets of their own
    banking::BankAccount account;

    friend auto operator<=>(BudgetBankAccount const&, BudgetBankAccount const&) = default;
};

/// \return the bank account of the debt or goal called \a source, the first in order when there are several,
///         empty when \a accounts tells of none
std::optional<banking::BankAccount> lookUpBankAccount(budgeting::BudgetSource const& source,
                                                      std::set<BudgetBankAccount> const& accounts);
}
