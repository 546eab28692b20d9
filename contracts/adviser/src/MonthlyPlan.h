#pragma once

#include <fiscora/Money.h>
#include <tlm/budgeting/BudgetTotals.h>

namespace tlm::adviser {

/// A budget's month, measured against its wages.
///
/// Shares are in wages, 0.5 being half of them. Wages below one whole unit of the currency are measured as one unit,
/// so that shares stay finite, and continuous, on the way down to no wages at all.
class MonthlyPlan
{
public:
    /// \throws std::invalid_argument when the currencies differ; money of no currency counts as nothing
    MonthlyPlan(budgeting::BudgetTotals const& perMonth, fiscora::Money const& stillOwed);

    fiscora::Currency const& currency() const noexcept { return currency_; }

    // Stored units of the currency, see fiscora::Money::amount().
    long long wages() const noexcept { return wages_; }
    long long goals() const noexcept { return goals_; }
    long long bills() const noexcept { return bills_; }
    long long debts() const noexcept { return debts_; }
    long long nontracks() const noexcept { return nontracks_; }
    long long stillOwed() const noexcept { return stillOwed_; }

    /// \return wages less bills, debts, nontracks and goals; at the edge of 64 bits it stays there
    long long unplanned() const noexcept;

    double shareOf(long long amount) const noexcept;
    /// \return share that bills, debts and nontracks take
    double spendingShare() const noexcept;
    /// \return share that bills, debts and nontracks leave, below zero when they take more than there is
    double leftShare() const noexcept;
    /// \return share put aside for goals, as far as the spending leaves it
    double coveredGoalsShare() const noexcept;
    /// \return share that all that is planned takes, goals included
    double plannedShare() const noexcept;
    /// \return share by which all that is planned goes beyond the wages, 0 when it doesn't
    double overrunShare() const noexcept;
    /// \return what is still owed, in wages of a year
    double yearsOwed() const noexcept;

private:
    double spending() const noexcept;

    fiscora::Currency currency_;
    long long wages_;
    long long goals_;
    long long bills_;
    long long debts_;
    long long nontracks_;
    long long stillOwed_;
    double measure_; // wages, at least one whole unit
};
}
