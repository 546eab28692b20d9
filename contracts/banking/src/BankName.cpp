#include <tlm/banking/BankName.h>

namespace tlm::banking {

QDebug operator<<(QDebug debug, BankName const& name)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "BankName(" << name.institution() << ')';
    return debug;
}
}
