#pragma once

#include "HouseholdRefusalFixture.h"

#include <QDate>

namespace tallymere::engine {

/// A household with an empty bank, which can have accounts and goals stored under them.
class BankTest : public HouseholdRefusalTest
{
protected:
    using AccountNumber = tlm::accounting::AccountNumber;
    using BankAccountTypes = tlm::banking::BankAccountTypes;

    BankTest() { household.addBank(river); }

    AccountNumber open(QString const& name, BankAccountTypes type, fiscora::Money const& balance)
    {
        return household.addBankAccount(river, name, type, balance, today);
    }

    Posting posting(AccountNumber const& debiting, AccountNumber const& crediting, fiscora::Money const& amount) const
    {
        Posting made;
        made.occurredOn = today;
        made.debiting = debiting;
        made.crediting = crediting;
        made.amount = amount;
        return made;
    }

    AccountNumber accountOf(tlm::budgeting::BudgetItemTypes type, QString const& name) const
    {
        return item(type, name).account;
    }

    /// \return the household's content with the account of \a number closed
    BudgetContent withClosed(AccountNumber const& number) const
    {
        auto content = household.content();
        content.books.accounts.at(number).isClosed = true;
        return content;
    }

    /// \return the household's content with its bank closed
    BudgetContent withClosedBank() const
    {
        auto content = household.content();
        auto& bank = content.books.banks.at(river);
        bank = tlm::banking::Bank(river, bank.accounts(), true);
        return content;
    }

    tlm::banking::BankName const river{"Riverside"};
};
}
