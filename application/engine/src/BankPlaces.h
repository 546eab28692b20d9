#pragma once

#include "Chart.h"
#include "Plan.h"

#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/navigation/AllowSubAccounts.h>
#include <tlm/navigation/BudgetBankAccount.h>

#include <optional>
#include <set>

namespace tallymere::engine {

/// Tells which accounts stand at banks.
///
/// Those that a bank lists do, and those below them: goals' own as goal accounts, others with the kind of the account
/// that they stand under.
class BankPlaces
{
public:
    /// Both outlive the places.
    BankPlaces(Chart const& chart, Plan const& plan) : chart_(chart), plan_(plan) {}

    /// \return where the account stands, none when it stands at no bank
    std::optional<tlm::banking::BankAccount> find(tlm::accounting::AccountNumber const& number) const;

    /// \return the accounts of \a bank with their kinds, closed ones too
    std::set<tlm::banking::AccountNumberBankType> accounts(tlm::banking::Bank const& bank,
                                                           tlm::navigation::AllowSubAccounts shouldAllow) const;

    /// \return the open ones among accounts()
    std::set<tlm::banking::AccountNumberBankType> openAccounts(tlm::banking::Bank const& bank,
                                                               tlm::navigation::AllowSubAccounts shouldAllow) const;

    /// \return where \a item is kept: its own account for a debt, the one under which it is stored for a goal, none for
    ///         the other types
    std::optional<tlm::banking::BankAccount> keptAt(PlannedItem const& item) const;

    /// \return the bank of that name
    /// \param forWhat is to have an account there
    /// \throws foundation::Error when there is none, or when it is closed
    tlm::banking::Bank const& openBank(tlm::banking::BankName const& name, QString const& forWhat) const;

    /// Refuses to store a goal under an account where it can't be.
    void checkStorage(PlannedItem const& goal, tlm::banking::BankAccount const& place) const;

private:
    tlm::banking::BankAccountTypes kindBelow(tlm::accounting::AccountNumber const& number,
                                             tlm::banking::BankAccountTypes above) const;

    Chart const& chart_;
    Plan const& plan_;
};
}
