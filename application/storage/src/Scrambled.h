#pragma once

#include <cstdint>

namespace tallymere::storage {

/// \return a number for \a number in which every bit depends on every bit of it, another one for each. This is how the
///         generator SplitMix64 ends.
constexpr std::uint64_t scrambled(std::uint64_t number)
{
    number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9;
    number = (number ^ (number >> 27)) * 0x94D049BB133111EB;
    return number ^ (number >> 31);
}
}
