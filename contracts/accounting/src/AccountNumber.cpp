#include <tlm/accounting/AccountNumber.h>

namespace tlm::accounting {

QString presentationText(AccountNumber const& number)
{
    return QString::number(number.integer());
}

QDebug operator<<(QDebug debug, AccountNumber const& number)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "AccountNumber(" << number.integer() << ')';
    return debug;
}
}
