#pragma once

#include <engine/Household.h>
#include <tlm/accounting/Account.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/navigation/BankAccountCode.h>

#include <set>

/// Postings as the window carries them, and as the books keep them.
namespace tallymere::presenter {

/// \return the account with its balance
/// \throws foundation::Error when there is none of that number
tlm::accounting::Account account(engine::Household const& household, tlm::accounting::AccountNumber const& number);

/// \param posting between two of \a accounts
tlm::accounting::Transaction transaction(engine::Posting const& posting,
                                         tlm::accounting::TransactionNumber const& number,
                                         std::map<tlm::accounting::AccountNumber, engine::BookAccount> const& accounts);

/// \return what \a record tells, made from no item
/// \throws foundation::Error when one of both accounts is blank
engine::Posting posting(tlm::accounting::Transaction const& record);

/// \return all open accounts of the open banks and those below them, which money can be moved between
std::set<tlm::navigation::BankAccountCode> transferable(engine::Household const& household);

/// \return the usable currencies with those of the accounts. An account stays when its currency isn't usable any more, and
///         so do its transactions, whose amounts can be in no other.
std::set<fiscora::Currency> currencies(engine::BudgetContent const& content);
}
