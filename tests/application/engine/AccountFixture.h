#pragma once

#include "BankFixture.h"

namespace tallymere::engine {

/// A household whose chart has accounts of its own beside those of banks and items.
class AccountTest : public BankTest
{
protected:
    using Account = tlm::accounting::Account;
    using AccountCode = tlm::accounting::AccountCode;
    using AccountTypes = tlm::accounting::AccountTypes;
    using Parent = std::optional<AccountNumber>;

    static AccountCode code(unsigned int number, QString const& name, Parent const& parent = std::nullopt)
    {
        return {AccountNumber(number), name, parent};
    }

    void addAccount(AccountCode const& added, AccountTypes type, fiscora::Money const& balance, bool isClosed = false)
    {
        household.addAccount(Account(type, added, balance, isClosed), today);
    }

    /// Adds an asset account in dollars with nothing in it.
    AccountNumber addEmpty(unsigned int number, QString const& name, Parent const& parent = std::nullopt)
    {
        addAccount(code(number, name, parent), AccountTypes::Asset, dollars(0));
        return AccountNumber(number);
    }

    AccountNumber const none{77};
};
}
