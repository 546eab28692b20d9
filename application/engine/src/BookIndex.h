#pragma once

#include <fiscora/Currency.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/banking/BankName.h>

#include <compare>
#include <map>
#include <set>

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
    std::set<SubAccount> subAccounts;
    std::map<fiscora::Currency, tlm::accounting::AccountNumber> openings;   ///< accounts of opening balances
    std::map<tlm::accounting::AccountNumber, tlm::banking::BankName> banks; ///< of the accounts that banks list
};
}
