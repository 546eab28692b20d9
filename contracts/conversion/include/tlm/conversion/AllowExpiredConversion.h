#pragma once

namespace tlm::conversion {

/// Says at the call whether a rate that has expired still counts.
struct AllowExpiredConversion
{
    bool value = false;
};
}
