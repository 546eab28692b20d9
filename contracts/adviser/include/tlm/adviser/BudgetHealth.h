#pragma once

#include <tlm/adviser/HealthStatuses.h>

#include <QList>
#include <QString>

namespace tlm::adviser {

/// How healthy a budget is, and what its owner may do about it.
class BudgetHealth
{
public:
    /// Unhealthy, 0 percent, no advice.
    BudgetHealth() = default;

    /// \param percent from 0 to 100
    /// \param information paragraphs of advice, the weightiest first; may be empty
    /// \throws std::invalid_argument when \a percent lies outside its range
    BudgetHealth(HealthStatuses status, double percent, QList<QString> information);

    HealthStatuses const& status() const noexcept { return status_; }
    double const& percent() const noexcept { return percent_; }
    QList<QString> const& information() const noexcept { return information_; }

    friend bool operator==(BudgetHealth const&, BudgetHealth const&) = default;

private:
    HealthStatuses status_ = HealthStatuses::Unhealthy;
    double percent_ = 0;
    QList<QString> information_;
};
}
