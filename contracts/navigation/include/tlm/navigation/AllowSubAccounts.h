#pragma once

namespace tlm::navigation {

/// Whether a look-up of bank accounts includes those below another account.
enum class AllowSubAccounts : unsigned char
{
    No = 0,
    Yes = 1
};
}
