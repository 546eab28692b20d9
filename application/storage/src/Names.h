#pragma once

#include <engine/Books.h>
#include <tlm/accounting/AccountTypes.h>
#include <tlm/accounting/TransactionStatuses.h>
#include <tlm/banking/BankAccountTypes.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/EventFrequency.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <string>
#include <string_view>

/// The words by which budget files name the values of enumerations. They never change, whatever the program calls them.
namespace tallymere::storage::names {

/// \throws std::invalid_argument for a value that files have no word for
std::string toName(tlm::budgeting::BudgetItemTypes type);
std::string toName(tlm::budgeting::EventFrequency frequency);
std::string toName(tlm::navigation::CurrencyDisplayOptions option);
std::string toName(tlm::accounting::AccountTypes type);
std::string toName(tlm::accounting::TransactionStatuses status);
std::string toName(tlm::banking::BankAccountTypes type);
std::string toName(engine::AccountPurposes purpose);

/// \throws std::invalid_argument for a word that stands for no value
tlm::budgeting::BudgetItemTypes toType(std::string const& name);
tlm::budgeting::EventFrequency toFrequency(std::string const& name);
tlm::navigation::CurrencyDisplayOptions toDisplayOption(std::string const& name);
tlm::accounting::AccountTypes toAccountType(std::string const& name);
tlm::accounting::TransactionStatuses toStatus(std::string_view name);
tlm::banking::BankAccountTypes toBankAccountType(std::string const& name);
engine::AccountPurposes toPurpose(std::string const& name);
}
