#pragma once

#include <engine/Household.h>
#include <tlm/accounting/Account.h>
#include <tlm/banking/BankMap.h>

#include <map>
#include <optional>
#include <set>

/// Banks as their view shows them, and as the books keep them.
namespace tallymere::presenter {

using BankAccounts = std::map<tlm::accounting::AccountNumber, tlm::banking::BankAccountTypes>;

/// The banks of the books with what stands below their accounts.
///
/// The view shows an account with a parent below that one, and counts only what stands right below a bank as an account of
/// that bank.
class BankTree
{
public:
    /// \param household must outlive the tree, and stay as it is
    explicit BankTree(engine::Household const& household);

    /// \return the banks, each with the accounts that stand below those that it lists too: goals' as goal accounts, others
    ///         with the kind of the account that they stand under
    tlm::banking::BankMap banks() const;

    /// \return all accounts. One that is shown at a bank has the parent under which it is shown there.
    std::set<tlm::accounting::Account> accounts() const;

    /// \return \a told with those accounts of the bank that the view doesn't tell, since they are shown below others
    BankAccounts listed(tlm::banking::Bank const& told) const;

private:
    using Number = tlm::accounting::AccountNumber;

    BankAccounts shownAt(tlm::banking::Bank const& bank) const;
    std::optional<Number> parentAmong(BankAccounts const& shown, Number const& number) const;

    engine::Household const& household_;
    std::multimap<Number, Number> below_; ///< accounts under their parents
    std::set<Number> listed_;             ///< by any bank
    std::set<Number> ofGoals_;
};

/// \return a code for \a name, a default one for a name that no code can have
tlm::accounting::AccountCode codeNamed(QString const& name);
}
