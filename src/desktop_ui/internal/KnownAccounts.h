#pragma once

#include <tlm/accounting/AccountCode.h>
#include <tlm/navigation/BudgetBankAccount.h>

#include <memory>
#include <set>
#include <utility>

namespace tlm::desktop_ui::internal {

/// What the rows of a view know of accounts. They share it: to copy or compare it for each of thousands of rows would take
/// the square of their number.
struct KnownAccounts
{
    KnownAccounts(std::set<navigation::BudgetBankAccount> kept, std::set<accounting::AccountCode> all)
        : keptAt(std::make_shared<std::set<navigation::BudgetBankAccount> const>(std::move(kept))),
          codes(std::make_shared<std::set<accounting::AccountCode> const>(std::move(all)))
    {}

    std::shared_ptr<std::set<navigation::BudgetBankAccount> const> keptAt; ///< of each stored item, as far as it is
    std::shared_ptr<std::set<accounting::AccountCode> const> codes;        ///< of all accounts
};
}
