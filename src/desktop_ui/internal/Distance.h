#pragma once

#include <algorithm>
#include <optional>

namespace tlm::desktop_ui::internal {

/// How far something is from what is looked for: none when it can't be meant, and the less, the better.
using Distance = std::optional<int>;

inline Distance lesser(Distance const& one, Distance const& other)
{
    return one && other ? std::min(one, other) : (one ? one : other);
}
}
