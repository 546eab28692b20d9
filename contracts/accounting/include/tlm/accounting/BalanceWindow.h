#pragma once

#include <fiscora/Money.h>
#include <tlm/foundation/Percentage.h>

#include <QDebug>

namespace tlm::accounting {

/// Whether a window check looks at whole units alone.
struct ByMajorUnit
{
    bool isByMajorUnit = false;
};

QDebug operator<<(QDebug debug, ByMajorUnit const& byMajorUnit);

/// Tells whether \a value lies at most \a window percent of \a target away from \a target, on either side.
///
/// Zero percent asks for the very amount, and so does any percentage of a zero target. Signs of target and value count,
/// the target's size alone makes the window. By major unit, distance and window are both cut to whole units first, so
/// that less than one unit never decides: zero percent of 100.00 then takes in 100.99, but not 101.00.
///
/// Reckons in whole numbers, to nine decimals of the rate, and beyond 64 bits. A negative rate or a NaN counts as zero.
/// The empty money counts as zero of the other's currency.
/// \throws std::invalid_argument when the currencies differ
bool isWithinWindow(fiscora::Money const& value, foundation::Percentage const& window, fiscora::Money const& target,
                    ByMajorUnit const& byMajorUnit);

/// Tells whether \a difference, whichever its sign, is at most \a window percent of \a base. Else as isWithinWindow().
bool isDifferenceWithinWindow(fiscora::Money difference, foundation::Percentage const& window,
                              fiscora::Money const& base, ByMajorUnit const& byMajorUnit);
}
