#pragma once

#include <QList>
#include <QString>

namespace tlm::adviser {

class MonthlyPlan;

/// \return one to five paragraphs that name the plan's own numbers in the default locale, the weightiest first
QList<QString> adviceOn(MonthlyPlan const& plan);
}
