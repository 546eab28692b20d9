#include <tlm/banking/ReconciledBankAccount.h>
#include <tlm/foundation/PresentationText.h>

#include <utility>

namespace tlm::banking {

ReconciledBankAccount::ReconciledBankAccount(BankAccount bankAccount, fiscora::Money const& balance,
                                             std::optional<QDate> reconciledOn)
    : bankAccount_(std::move(bankAccount)), balance_(balance), reconciledOn_(reconciledOn)
{}

QDebug operator<<(QDebug debug, ReconciledBankAccount const& account)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "ReconciledBankAccount(" << account.bankAccount() << ", " << account.balance() << ", "
                    << account.reconciledOn().value_or(QDate()) << ')';
    return debug;
}
}
