#pragma once

#include <engine/BudgetContent.h>

class QDate;

namespace tallymere::engine {

/// \return a household to look around in: every type of item, several frequencies, two currencies with their rates, and
///         dates around \a today, from overdue to some weeks ahead. It's the same for the same day.
BudgetContent sampleHousehold(QDate const& today);
}
