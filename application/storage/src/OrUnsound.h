#pragma once

#include "UnsoundBudget.h"

#include <tlm/foundation/Error.h>

#include <stdexcept>

namespace tallymere::storage {

/// \return what \a read gives
/// \throws UnsoundBudget for a value that means nothing
template <typename Read>
auto orUnsound(Read const& read)
{
    using Reason = UnsoundBudget::Reason;
    try {
        return read();
    } catch (std::invalid_argument const& unknown) {
        throw UnsoundBudget(Reason::Damaged, unknown.what());
    } catch (tlm::foundation::Error const& refused) {
        throw UnsoundBudget(Reason::Damaged, refused.what());
    }
}
}
