#pragma once

#include "Chart.h"

#include <engine/Settings.h>

#include <QString>

namespace tallymere::engine {

/// What an account may be in the chart, whoever makes or changes it.
///
/// What is refused throws a foundation::Error that says what, why and what to do.
class AccountRules
{
    using AccountNumber = tlm::accounting::AccountNumber;

public:
    /// \param chart outlives the rules
    explicit AccountRules(Chart const& chart) : chart_(chart) {}

    /// Refuses no number and one that an account has.
    /// \param name of the account that is to have it
    void checkNumber(AccountNumber const& number, QString const& name) const;

    /// Refuses a name that another account shares: one of the same bank for an account that a bank lists, any other for
    /// the rest.
    /// \param own the account that is to have it, no number for a new one
    void checkName(QString const& name, AccountNumber const& own) const;

    /// Refuses a name that any account of \a bank shares.
    void checkNameAt(tlm::banking::Bank const& bank, QString const& name) const;

    /// Refuses no currency and one that isn't usable.
    void checkCurrency(QString const& name, fiscora::Currency currency, Settings const& settings) const;

    /// Refuses a parent under which \a account can't stand.
    /// \param account as it is to be
    /// \param current its present number, none for a new one
    void checkParent(BookAccount const& account, AccountNumber const& current) const;

private:
    Chart const& chart_;
};
}
