#include <tlm/banking/BankError.h>

namespace tlm::banking {

BankError::BankError(BankName const& bank, QString const& message, std::exception const& cause)
    : Error(message, cause), bank_(bank)
{}

BankError::~BankError() = default;
}
