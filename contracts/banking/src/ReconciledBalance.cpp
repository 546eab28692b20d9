#include <tlm/banking/ReconciledBalance.h>
#include <tlm/foundation/PresentationText.h>

namespace tlm::banking {

QDebug operator<<(QDebug debug, ReconciledBalance const& reconciled)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "ReconciledBalance(" << reconciled.balance << ", " << reconciled.reconciledOn << ')';
    return debug;
}
}
