#include <tlm/accounting/Account.h>
#include <tlm/foundation/PresentationText.h>

#include <utility>

namespace tlm::accounting {

Account::Account(AccountTypes type, AccountCode code, fiscora::Money const& balance, bool closed)
    : code_(std::move(code)), type_(type), balance_(balance), isClosed_(closed)
{}

QDebug operator<<(QDebug debug, Account const& account)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "Account(" << account.type() << ", " << account.code() << ", " << account.balance()
                    << (account.isClosed() ? ", closed)" : ", open)");
    return debug;
}
}
