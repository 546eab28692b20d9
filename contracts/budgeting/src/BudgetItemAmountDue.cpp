#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/foundation/PresentationText.h>

namespace tlm::budgeting {

QDebug operator<<(QDebug debug, BudgetItemAmountDue const& due)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "BudgetItemAmountDue(" << due.type << ", " << due.source << ", " << due.dueOn << ", "
                    << due.amount << ')';
    return debug;
}
}
