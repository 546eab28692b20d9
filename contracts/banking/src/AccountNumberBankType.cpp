#include <tlm/banking/AccountNumberBankType.h>

namespace tlm::banking {

QDebug operator<<(QDebug debug, AccountNumberBankType const& account)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "AccountNumberBankType(" << account.number << ", " << account.type << ')';
    return debug;
}
}
