#pragma once

#include <engine/Books.h>
#include <fiscora/Currency.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/banking/BankName.h>

#include <QString>

#include <compare>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace tallymere::engine {

/// An account that stands under another one.
struct SubAccount
{
    tlm::accounting::AccountNumber parent;
    tlm::accounting::AccountNumber number;

    friend auto operator<=>(SubAccount const&, SubAccount const&) = default;
};

/// What the books tell the other way round.
struct BookIndex
{
    using AccountNumber = tlm::accounting::AccountNumber;

    std::set<SubAccount> subAccounts;
    std::set<std::pair<QString, AccountNumber>> names; ///< of the accounts, each by rules::comparable()
    std::map<std::pair<AccountPurposes, fiscora::Currency>, AccountNumber> purposes; ///< the books' own accounts
    std::map<AccountNumber, tlm::banking::BankName> banks; ///< of the accounts that banks list
    std::map<QString, tlm::banking::BankName> bankNames;   ///< by rules::comparable()

    /// Adds what \a account tells.
    void list(BookAccount const& account);
    /// Adds what \a bank tells.
    void list(tlm::banking::Bank const& bank);

    /// Drops all that \a dropped tells, then moves in what \a added tells.
    void take(BookIndex const& dropped, BookIndex& added) noexcept;
};

/// \return numbers of the accounts that stand right under that of \a number, in order
std::vector<tlm::accounting::AccountNumber> subAccounts(BookIndex const& index,
                                                        tlm::accounting::AccountNumber const& number);
}
