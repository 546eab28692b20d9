#pragma once

#include <tlm/banking/BankName.h>
#include <tlm/foundation/Error.h>

#include <QString>

#include <exception>

namespace tlm::banking {

/// What went wrong with a bank or its accounts.
class BankError : public foundation::Error
{
public:
    BankError(BankName const& bank, QString const& message, std::exception const& cause);
    BankError(BankError const&) noexcept = default;
    BankError(BankError&&) noexcept = default;
    BankError& operator=(BankError const&) noexcept = default;
    BankError& operator=(BankError&&) noexcept = default;
    ~BankError() override;

    BankName const& bank() const noexcept { return bank_; }

private:
    BankName bank_;
};
}
