#pragma once

#include <fiscora/Money.h>
#include <tlm/accounting/AccountNumber.h>
#include <tlm/budgeting/BudgetItemIdentifier.h>
#include <tlm/budgeting/EventFrequency.h>
#include <tlm/foundation/Percentage.h>

#include <QDate>

#include <optional>

namespace tallymere::engine {

/// What a debt has beside its payments.
struct DebtTerms
{
    fiscora::Money borrowed;              ///< in the currency of the payments, above zero
    tlm::foundation::Percentage interest; ///< from 0 to 100 percent

    friend bool operator==(DebtTerms const&, DebtTerms const&) = default;
};

/// A budget item as the books keep it.
struct PlannedItem
{
    tlm::budgeting::BudgetItemIdentifier identifier; ///< the source without surrounding blanks
    fiscora::Money amount;                           ///< of one occurrence, above zero
    tlm::budgeting::EventFrequency period{};         ///< `None`, which old files may hold, happens once
    QDate anchoredOn;                                ///< the day its rhythm counts from, so that month ends never drift
    QDate nextOccurOn;                               ///< the first occurrence neither posted nor skipped
    tlm::accounting::AccountNumber account;          ///< of its own in the books, which is made and renamed with it
    std::optional<DebtTerms> debt;                   ///< present for a debt, and only there
    std::optional<fiscora::Money> goalTotal;         ///< present for a goal, and only there; currency of the amount

    friend bool operator==(PlannedItem const&, PlannedItem const&) = default;
};
}
