#pragma once

#include "BankPlaces.h"

#include <engine/Store.h>

#include <optional>

namespace tallymere::engine {

/// Drafts what planning means to the books.
///
/// What is refused throws a foundation::Error that says what, why and what to do.
class ItemAccounts
{
public:
    /// Both outlive this.
    ItemAccounts(Chart const& chart, Plan const& plan) : chart_(chart), plan_(plan), places_(chart, plan) {}

    /// Makes the account of a new item, which has none yet, with the balance that a debt opens with.
    /// \param keptAt as in Household::add()
    /// \return the account's number
    tlm::accounting::AccountNumber open(BooksDraft& draft, PlannedItem const& item,
                                        std::optional<tlm::banking::BankAccount> const& keptAt,
                                        QDate const& openedOn) const;

    /// Lets the account follow its item.
    /// \param keptAt as in Household::change()
    void follow(BooksDraft& draft, PlannedItem const& before, PlannedItem const& after,
                std::optional<tlm::banking::BankAccount> const& keptAt) const;

    /// Drops the account of \a item with what it opened with.
    void drop(BooksDraft& draft, PlannedItem const& item, Store const& store) const;

private:
    void list(BooksDraft& draft, PlannedItem const& debt, tlm::accounting::AccountNumber const& number,
              tlm::banking::BankAccount const& keptAt) const;
    void checkTerms(PlannedItem const& before, PlannedItem const& after) const;
    void moveDebt(BooksDraft& draft, PlannedItem const& debt, tlm::banking::BankAccount const& keptAt) const;
    std::optional<tlm::accounting::AccountNumber> storage(PlannedItem const& goal,
                                                          std::optional<tlm::banking::BankAccount> const& keptAt) const;

    Chart const& chart_;
    Plan const& plan_;
    BankPlaces places_;
};

/// \return the type of the accounts of items of the type \a type, suspense for those of none
tlm::accounting::AccountTypes toAccountTypes(tlm::budgeting::BudgetItemTypes type);
}
