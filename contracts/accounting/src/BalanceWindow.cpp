#include <tlm/accounting/BalanceWindow.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace tlm::accounting {

namespace {

using fiscora::Currency;
using fiscora::Money;

// The distance of two 64-bit amounts, and a percentage of one, need more than 64 bits.
__extension__ using Wide = __int128;

constexpr double rateScale = 1e9;                     // nine decimals, more than any form shows
constexpr Wide wholeRate = Wide(100) * 1'000'000'000; // one hundred percent
constexpr double largestRate = 4e18;                  // times any amount, still within 128 bits

Wide absolute(Wide number)
{
    return number < 0 ? -number : number;
}

/// \return \a rate in billionths of a percent, the whole number nearest to what the double holds
Wide billionths(double rate)
{
    return rate > 0.0 ? static_cast<Wide>(std::min(std::round(rate * rateScale), largestRate)) : 0;
}

Wide amountOf(Money const& money)
{
    return money.code() == Currency::XXX ? 0 : money.amount();
}

Currency commonCurrency(Money const& left, Money const& right)
{
    if (left.code() == Currency::XXX) {
        return right.code();
    }
    if (right.code() != Currency::XXX && left.code() != right.code()) {
        throw std::invalid_argument("A balance window needs amounts of one currency.");
    }
    return left.code();
}

/// \return stored units to one whole unit of \a code
Wide wholeUnit(Currency const& code)
{
    Wide unit = 1;
    for (auto digits = fiscora::storedDigits(code); digits > 0; --digits) {
        unit *= 10;
    }
    return unit;
}

/// Dividing by the step cuts both sides down to whole steps; a step of one stored unit cuts nothing that could matter.
bool isWithin(Wide distance, foundation::Percentage const& window, Wide base, Wide step)
{
    return distance / step <= billionths(window.rate()) * absolute(base) / (wholeRate * step);
}

Wide stepOf(ByMajorUnit const& byMajorUnit, Currency const& code)
{
    return byMajorUnit.isByMajorUnit ? wholeUnit(code) : 1;
}
}

QDebug operator<<(QDebug debug, ByMajorUnit const& byMajorUnit)
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "ByMajorUnit(" << byMajorUnit.isByMajorUnit << ')';
    return debug;
}

bool isWithinWindow(Money const& value, foundation::Percentage const& window, Money const& target,
                    ByMajorUnit const& byMajorUnit)
{
    auto const distance = absolute(amountOf(value) - amountOf(target));
    return isWithin(distance, window, amountOf(target), stepOf(byMajorUnit, commonCurrency(value, target)));
}

bool isDifferenceWithinWindow(Money difference, foundation::Percentage const& window, Money const& base,
                              ByMajorUnit const& byMajorUnit)
{
    auto const distance = absolute(amountOf(difference));
    return isWithin(distance, window, amountOf(base), stepOf(byMajorUnit, commonCurrency(difference, base)));
}
}
