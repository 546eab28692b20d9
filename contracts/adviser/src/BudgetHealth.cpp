#include <tlm/adviser/BudgetHealth.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace tlm::adviser {

BudgetHealth::BudgetHealth(HealthStatuses status, double percent, QList<QString> information)
    : status_(status), percent_(percent), information_(std::move(information))
{
    if (!(percent >= 0.0 && percent <= 100.0)) { // also refuses what isn't a number
        throw std::invalid_argument("A budget's health lies between 0 and 100 percent, not at " +
                                    std::to_string(percent) + ".");
    }
}
}
