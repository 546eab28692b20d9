#pragma once

namespace tlm::conversion {

/// Says at the call whether a rate comes from a look-up, so that it ages, or from a person, so that it doesn't.
struct RateLookedUp
{
    bool value = false;
};
}
