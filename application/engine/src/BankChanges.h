#pragma once

#include "AccountRules.h"
#include "BankPlaces.h"
#include "BooksDraft.h"

#include <engine/Settings.h>
#include <tlm/banking/Bank.h>

#include <QDate>

#include <map>
#include <optional>

namespace tallymere::engine {

/// What a person asks for who opens an account at a bank.
struct NewBankAccount
{
    std::optional<tlm::banking::BankName> bank; ///< none where a bank lists it later on
    QString name;
    tlm::banking::BankAccountTypes type{};
    fiscora::Money openingBalance; ///< in the account's currency
    QDate openedOn;
};

/// Drafts what a person does to the banks.
///
/// What is refused throws a foundation::Error that says what, why and what to do. The operations are those of Household.
class BankChanges
{
    using AccountNumber = tlm::accounting::AccountNumber;
    using Bank = tlm::banking::Bank;
    using BankAccountTypes = tlm::banking::BankAccountTypes;
    using BankName = tlm::banking::BankName;
    using Accounts = std::map<AccountNumber, BankAccountTypes>;

public:
    /// All outlive this.
    BankChanges(Chart const& chart, Plan const& plan, BooksDraft& draft)
        : chart_(chart), plan_(plan), draft_(draft), places_(chart, plan), rules_(chart)
    {}

    void add(Bank const& bank);
    void rename(BankName const& original, BankName const& changed);
    void list(BankName const& bank, Accounts const& accounts);
    void close(BankName const& name);
    void reopen(BankName const& name);
    void drop(BankName const& name);

    AccountNumber open(NewBankAccount const& account, Settings const& settings);

private:
    Bank const& known(BankName const& name) const;
    BankName tidied(BankName const& name, Bank const* replaced) const;
    void checkListed(Bank const& bank, Accounts const& before) const;
    void checkKind(BookAccount const& account, Bank const& bank, BankAccountTypes kind) const;
    void checkFree(BookAccount const& account, Bank const& bank) const;
    void checkNames(Bank const& bank, AccountNumber const& number) const;
    void checkDebtsStay(Bank const& bank, Accounts const& accounts) const;
    void checkHoldsNothing(Bank const& bank) const;

    Chart const& chart_;
    Plan const& plan_;
    BooksDraft& draft_;
    BankPlaces places_;
    AccountRules rules_;
};

/// \return \a bank with the account listed as \a kind, or without it where \a kind is none
tlm::banking::Bank listing(tlm::banking::Bank const& bank, tlm::accounting::AccountNumber const& number,
                           std::optional<tlm::banking::BankAccountTypes> const& kind);
}
