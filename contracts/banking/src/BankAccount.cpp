#include <tlm/banking/BankAccount.h>

namespace tlm::banking {

QDebug operator<<(QDebug debug, BankAccount const& account)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "BankAccount(" << account.bank << ", " << account.number << ", " << account.type << ')';
    return debug;
}
}
