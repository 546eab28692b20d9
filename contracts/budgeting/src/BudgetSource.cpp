#include <tlm/budgeting/BudgetSource.h>

namespace tlm::budgeting {

QString presentationText(BudgetSource const& source)
{
    return source.name();
}

QDebug operator<<(QDebug debug, BudgetSource const& source)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "BudgetSource(" << source.name() << ')';
    return debug;
}
}
