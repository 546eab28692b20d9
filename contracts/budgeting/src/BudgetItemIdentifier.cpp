#include "Texts.h"

#include <tlm/budgeting/BudgetItemIdentifier.h>

namespace tlm::budgeting {

QString presentationText(BudgetItemIdentifier const& identifier)
{
    if (identifier.type == BudgetItemTypes::None || identifier.source.isEmpty()) {
        return presentationText(identifier.type) + presentationText(identifier.source);
    }
    return Texts::tr("%1: %2", "type and source of a budget item")
        .arg(presentationText(identifier.type), presentationText(identifier.source));
}

QDebug operator<<(QDebug debug, BudgetItemIdentifier const& identifier)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "BudgetItemIdentifier(" << identifier.type << ", " << identifier.source << ')';
    return debug;
}
}
