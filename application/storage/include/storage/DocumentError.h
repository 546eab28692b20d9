#pragma once

#include <tlm/foundation/Error.h>

namespace tallymere::storage {

/// Why a document can't be opened, changed or saved: what, why and what to do, on one line for the person.
class DocumentError : public tlm::foundation::Error
{
public:
    using Error::Error;
};
}
