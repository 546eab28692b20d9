#pragma once

#include <cstddef>
#include <random>

namespace tallymere {

/// Chance that comes out the same again from the same seed, on every machine.
class Chance
{
public:
    explicit Chance(unsigned int seed) : engine_(seed) {}

    /// \param count above 0
    /// \return from 0 to one less than \a count
    int below(int count) { return static_cast<int>(engine_() % static_cast<unsigned int>(count)); }

    /// \return true once in \a count times
    bool isOneOf(int count) { return below(count) == 0; }

    /// \param values not empty
    template <typename Values>
    auto const& pick(Values const& values)
    {
        return *(std::begin(values) + below(static_cast<int>(std::size(values))));
    }

private:
    std::mt19937 engine_;
};
}
