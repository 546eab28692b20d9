#include <tlm/foundation/PresentationText.h>
#include <tlm/navigation/BankAccountCode.h>

#include <utility>

namespace tlm::navigation {

BankAccountCode::BankAccountCode(banking::BankName bank, accounting::AccountCode account,
                                 banking::BankAccountTypes type, fiscora::Currency issuedIn)
    : bank_(std::move(bank)),
      account_(std::move(account)),
      bankAccountType_{account_.number(), type},
      issuedIn_(issuedIn)
{}

QDebug operator<<(QDebug debug, BankAccountCode const& code)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "BankAccountCode(" << code.bank() << ", " << code.account() << ", " << code.bankAccountType()
                    << ", " << code.issuedIn() << ')';
    return debug;
}
}
