#pragma once

#include <compare>

namespace fiscora {

/// A number that isn't an amount, such as an exchange rate.
class FloatingPoint
{
public:
    explicit constexpr FloatingPoint(double const& number) noexcept : number_(number) {}

    constexpr double const& underlying() const noexcept { return number_; }

    friend constexpr bool operator==(FloatingPoint const&, FloatingPoint const&) noexcept = default;
    friend constexpr std::partial_ordering operator<=>(FloatingPoint const&, FloatingPoint const&) noexcept = default;

private:
    double number_;
};
}
