#pragma once

#include "BudgetedEntryFixture.h"
#include "internal/BudgetedDebtEntryWidget.h"
#include "tlm/desktop_ui/MoneyEntryWidget.h"

#include <tlm/budgeting/Debt.h>

#include <QDoubleSpinBox>

namespace tlm::testing {

/// A row of a debt, and which account one debt was borrowed from.
class BudgetedDebtEntryFixture : public BudgetedEntryFixture
{
protected:
    using Debt = budgeting::Debt;
    using DebtRow = desktop_ui::internal::BudgetedDebtEntryWidget;

    static Debt debt(QString const& source, foundation::Percentage const& interest = {4.25, 2})
    {
        return {Source(source), euros(250), monthly, mayDay, euros(9000), interest};
    }

    QDoubleSpinBox& interest() const { return dynamic_cast<QDoubleSpinBox&>(entries.interest()); }
    desktop_ui::MoneyEntryWidget& borrowedEntry() const
    {
        return dynamic_cast<desktop_ui::MoneyEntryWidget&>(*extras(row).at(0).second);
    }
    QComboBox& borrowedCurrency() const { return child<QComboBox>(borrowedEntry(), "codeCmbbx"); }

    inline static accounting::AccountCode const carLoan = code(300, "Car loan");
    inline static banking::BankAccount const lender{birch, carLoan.number(), Types::Loan};

    DebtRow row{{birch, aspen}, {{Source("Car"), lender}}, {carLoan}, usable, asCode, nullptr};
    PlanningRow const entries{row};
};
}
