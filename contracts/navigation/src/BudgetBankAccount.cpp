#include <tlm/navigation/BudgetBankAccount.h>

#include <algorithm>

namespace tlm::navigation {

std::optional<banking::BankAccount> lookUpBankAccount(budgeting::BudgetSource const& source,
                                                      std::set<BudgetBankAccount> const& accounts)
{
    auto const found = std::ranges::find(accounts, source, &BudgetBankAccount::source);
    return found == accounts.end() ? std::nullopt : std::optional(found->account);
}
}
