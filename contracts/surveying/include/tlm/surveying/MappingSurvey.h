#pragma once

#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/banking/ReconciledBankAccount.h>
#include <tlm/budgeting/BudgetItemIdentifier.h>
#include <tlm/surveying/BalanceChange.h>
#include <tlm/surveying/DistributedAmount.h>

#include <QDate>

#include <map>
#include <optional>
#include <set>

namespace tlm::surveying {

/// What happened to one bank account between two days, against what the budget expected.
///
/// All amounts are in the currency of the account.
class MappingSurvey
{
public:
    using BudgetItemChanges = std::map<budgeting::BudgetItemIdentifier, std::set<BalanceChange>>;
    using AccountChanges = std::map<accounting::AccountCode, std::set<BalanceChange>>;
    using Distributable = std::map<budgeting::BudgetItemIdentifier, DistributedAmount>;

    /// A survey of an unspecified account in which nothing happened.
    MappingSurvey() = default;

    /// The parameters are told at the accessors of their names.
    MappingSurvey(banking::ReconciledBankAccount reconciled, QDate const& calculatedFrom,
                  fiscora::Money const& expectedBalance, std::optional<fiscora::Money> const& remainingExpenses,
                  BudgetItemChanges used, AccountChanges additional, Distributable distributable);

    /// \return the account with its last reconciled balance
    banking::ReconciledBankAccount const& reconciled() const noexcept { return reconciled_; }

    /// \return the first day of the survey of an account that was never reconciled
    QDate const& calculatedFrom() const noexcept { return calculatedFrom_; }

    /// \return balance to be expected of the budget items that fell due in between
    fiscora::Money const& expectedBalance() const noexcept { return expectedBalance_; }

    /// \return monthly bills that are still to go out, empty when there is nothing to tell
    std::optional<fiscora::Money> const& remainingExpenses() const noexcept { return remainingExpenses_; }

    /// \return every budget item of the time surveyed, with its transactions, of which there may be none
    BudgetItemChanges const& used() const noexcept { return used_; }

    /// \return accounts with transactions that belong to no budget item
    AccountChanges const& additional() const noexcept { return additional_; }

    /// \return budget items over which the balance may be spread, with the share proposed for each
    Distributable const& distributable() const noexcept { return distributable_; }

    friend bool operator==(MappingSurvey const&, MappingSurvey const&) = default;

private:
    banking::ReconciledBankAccount reconciled_;
    QDate calculatedFrom_;
    fiscora::Money expectedBalance_;
    std::optional<fiscora::Money> remainingExpenses_;
    BudgetItemChanges used_;
    AccountChanges additional_;
    Distributable distributable_;
};
}
