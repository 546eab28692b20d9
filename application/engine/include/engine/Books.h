#pragma once

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/accounting/AccountTypes.h>
#include <tlm/banking/BankMap.h>

#include <cstddef>
#include <map>

namespace tallymere::engine {

/// What the books themselves need an account for.
enum class AccountPurposes : unsigned char
{
    Household = 0,       ///< nothing: the household keeps it for its own ends
    OpeningBalances = 1, ///< an equity account against which the balances of new accounts are posted
    Exchange = 2         ///< an equity account that holds what transfers turned into or out of its currency
};

/// A ledger account as the books keep it.
struct BookAccount
{
    tlm::accounting::AccountCode code; ///< with a number, and a parent that is an account too where it has one
    tlm::accounting::AccountTypes type{};
    fiscora::Currency currency{}; ///< of all that is posted to it
    bool isClosed = false;
    AccountPurposes purpose = AccountPurposes::Household;

    friend bool operator==(BookAccount const&, BookAccount const&) = default;
};

/// What all postings to one account come to.
struct Turnover
{
    fiscora::Money debited;   ///< debits less credits, in the account's currency
    std::size_t postings = 0; ///< number of them

    friend bool operator==(Turnover const&, Turnover const&) = default;
};

/// The chart of accounts with the banks that keep some of them. The postings themselves stay in the store.
struct Books
{
    std::map<tlm::accounting::AccountNumber, BookAccount> accounts; ///< each under its own number
    tlm::banking::BankMap banks; ///< each account of a bank is one of `accounts`, and of one bank only
    std::map<tlm::accounting::AccountNumber, Turnover> turnovers; ///< of the accounts that have postings, and no others

    friend bool operator==(Books const&, Books const&) = default;
};
}
