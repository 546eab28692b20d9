#include <tlm/accounting/LedgerAccount.h>

namespace tlm::accounting {

QDebug operator<<(QDebug debug, LedgerAccount const& ledger)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "LedgerAccount(" << ledger.account << ", transactions " << ledger.transactions.size() << ')';
    return debug;
}
}
