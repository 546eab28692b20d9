#pragma once

#include <cstddef>
#include <rapidcheck.h>
#include <vector>

namespace tallymere::engine {

/// \return any number from \a least on and below \a beyond, in small cases as in large ones
template <typename Number>
Number pick(Number least, Number beyond)
{
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(least, beyond));
}

template <typename T>
T anyOf(std::vector<T> const& values)
{
    return values[pick<std::size_t>(0, values.size())];
}

/// \return true once in \a count times
inline bool isOneOf(int count)
{
    return pick(0, count) == 0;
}
}
