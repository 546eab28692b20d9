#pragma once

#include <QDebug>

#include <compare>

namespace tlm::foundation {

/// A rate in percent, as a spin box shows it (5.5 means 5.5%), and the number of decimals to show it with.
///
/// Ordered by rate, then precision. Every `double` has its place in the order: minus zero lies below zero, and a NaN
/// equals itself.
class Percentage
{
public:
    /// Zero percent.
    Percentage() noexcept = default;
    Percentage(double rate, unsigned char precision) noexcept : rate_(rate), precision_(precision) {}

    double rate() const noexcept { return rate_; }
    unsigned char precision() const noexcept { return precision_; }

    friend bool operator==(Percentage const& left, Percentage const& right) noexcept { return (left <=> right) == 0; }
    friend std::strong_ordering operator<=>(Percentage const& left, Percentage const& right) noexcept;

private:
    double rate_ = 0.0;
    unsigned char precision_ = 0;
};

QDebug operator<<(QDebug debug, Percentage const& percentage);
}
