#pragma once

#include <fiscora/Money.h>

namespace fiscora::math {

/// \throws std::overflow_error for the least amount of 64 bits
Money absoluteValue(Money const& money);
}
