#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/Bank.h>

#include <utility>

namespace tlm::banking {

Bank::Bank(BankName bankName, std::map<accounting::AccountNumber, BankAccountTypes> accounts, bool closed)
    : name(std::move(bankName)), accounts_(std::move(accounts)), isClosed_(closed)
{}

QDebug operator<<(QDebug debug, Bank const& bank)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "Bank(" << bank.name;
    for (auto const& [number, type] : bank.accounts()) {
        debug << ", " << AccountNumberBankType{number, type};
    }
    debug << (bank.isClosed() ? ", closed)" : ", open)");
    return debug;
}
}
