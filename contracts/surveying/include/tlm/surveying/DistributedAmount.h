#pragma once

#include <fiscora/Money.h>

#include <QDate>

#include <compare>

namespace tlm::surveying {

/// Share of a balance that is set aside for one budget item.
class DistributedAmount
{
public:
    /// \param distributed amount placed on the budget item
    /// \param nextOccursOn next day on which the item falls due
    /// \param maximum amount that the item aims at by then
    DistributedAmount(fiscora::Money distributed, QDate nextOccursOn, fiscora::Money maximum) noexcept;

    fiscora::Money const& distributed() const noexcept { return distributed_; }
    QDate const& nextOccursOn() const noexcept { return nextOccursOn_; }
    fiscora::Money const& maximum() const noexcept { return maximum_; }

    friend bool operator==(DistributedAmount const&, DistributedAmount const&) = default;
    friend std::strong_ordering operator<=>(DistributedAmount const&, DistributedAmount const&) = default;

private:
    fiscora::Money distributed_;
    QDate nextOccursOn_;
    fiscora::Money maximum_;
};
}
