#pragma once

#include "AccountRules.h"
#include "BooksDraft.h"
#include "Plan.h"

#include <engine/Settings.h>
#include <engine/Store.h>
#include <tlm/accounting/Account.h>

#include <QDate>

namespace tallymere::engine {

/// Drafts what a person does to the chart of accounts.
///
/// What is refused throws a foundation::Error that says what, why and what to do. The operations are those of Household.
class AccountChanges
{
    using AccountNumber = tlm::accounting::AccountNumber;

public:
    /// All outlive this.
    AccountChanges(Chart const& chart, Plan const& plan, BooksDraft& draft)
        : chart_(chart), plan_(plan), draft_(draft), rules_(chart)
    {}

    void add(tlm::accounting::Account const& account, Settings const& settings, QDate const& openedOn);
    void recode(AccountNumber const& current, tlm::accounting::AccountCode const& changed);
    void close(AccountNumber const& number);
    void reopen(AccountNumber const& number);
    void drop(AccountNumber const& number, Store const& store);

private:
    void checkFollows(BookAccount const& before, BookAccount const& after) const;
    void checkCanClose(BookAccount const& account) const;
    void checkNoneBelow(BookAccount const& account) const;

    Chart const& chart_;
    Plan const& plan_;
    BooksDraft& draft_;
    AccountRules rules_;
};
}
