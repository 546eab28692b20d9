#pragma once

#include <engine/NewBudget.h>

class QDate;

namespace tallymere::engine {

/// \return a household to look around in: every type of item, several frequencies, two currencies with their rates,
///         banks with accounts in which goals are stored, dates around \a today, from overdue to some weeks ahead, and
///         eighteen months of postings. It's the same for the same day.
NewBudget sampleHousehold(QDate const& today);
}
