#pragma once

#include "BudgetedEntryFixture.h"
#include "internal/BudgetedGoalEntryWidget.h"

#include <tlm/budgeting/Goal.h>

#include <QDoubleSpinBox>

#include <memory>

namespace tlm::testing {

/// A row of a goal, and which account one goal lies in.
class BudgetedGoalEntryFixture : public BudgetedEntryFixture
{
protected:
    using Goal = budgeting::Goal;
    using GoalRow = desktop_ui::internal::BudgetedGoalEntryWidget;

    static Goal goal(QString const& source, Money const& setAside = euros(100))
    {
        return {Source(source), setAside, monthly, mayDay, euros(1500)};
    }

    std::unique_ptr<GoalRow> makeRow(std::set<accounting::AccountCode> const& codes) const
    {
        return std::make_unique<GoalRow>(std::set{birch, aspen}, wages,
                                         std::set<navigation::BudgetBankAccount>{{Source("Bicycle"), store}}, codes,
                                         usable, asCode, nullptr);
    }

    /// A period is missing while a row loads, and so is the share of the wages.
    static void expectMissingPeriod() { expectMessage(QtWarningMsg, "^What has no period can't be reckoned up\\."); }

    static QDoubleSpinBox& percentageOf(Row const& row)
    {
        return dynamic_cast<QDoubleSpinBox&>(*extras(row).at(2).second);
    }

    inline static accounting::AccountCode const everyday = code(100, "Everyday");
    inline static accounting::AccountCode const rainyDays = code(200, "Rainy days");
    inline static accounting::AccountCode const card = code(300, "Card");
    inline static accounting::AccountCode const bicycle = code(400, "Bicycle");
    inline static banking::BankAccount const store{birch, rainyDays.number(), Types::Savings};
    inline static std::set<Account> const birchAccounts{{everyday.number(), Types::Checking},
                                                        {rainyDays.number(), Types::Savings},
                                                        {card.number(), Types::CreditCard},
                                                        {bicycle.number(), Types::Goal}};

    Money wages = Money(Currency::EUR);
    std::unique_ptr<GoalRow> const made = makeRow({everyday, rainyDays, card, bicycle});
    GoalRow& row = *made;
    PlanningRow const entries{row};
    QDoubleSpinBox& percentage = percentageOf(row);
};
}
