#include <tlm/budgeting/BudgetItemDueIdentifier.h>

namespace tlm::budgeting {

QDebug operator<<(QDebug debug, BudgetItemDueIdentifier const& identifier)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "BudgetItemDueIdentifier(" << identifier.type << ", " << identifier.source << ", "
                    << identifier.dueOn << ')';
    return debug;
}
}
