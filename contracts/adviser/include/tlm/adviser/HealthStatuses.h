#pragma once

#include <QDebug>
#include <QString>

namespace tlm::adviser {

/// The verdict on a budget.
enum class HealthStatuses : unsigned char
{
    Healthy = 0,
    Cautious = 1,
    Unhealthy = 2
};

/// \return the status as a person reads it
/// \throws std::logic_error for a value that is none of the three
QString presentationText(HealthStatuses const& status);

QDebug operator<<(QDebug debug, HealthStatuses const& status);
}
