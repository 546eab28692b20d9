#include <tlm/navigation/BudgetBankAccount.h>

namespace tlm::navigation {

std::optional<banking::BankAccount> lookUpBankAccount(budgeting::BudgetSource const& source,
                                                      std::set<BudgetBankAccount> const& accounts)
{
    auto const found = accounts.lower_bound({source, {}}); // a default bank account comes before every other
    return found == accounts.end() || found->source != source ? std::nullopt : std::optional(found->account);
}
}
