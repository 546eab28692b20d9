#include "Checked.h"

#include <fiscora/Rounders.h>

namespace fiscora::rounders::currency {

namespace {

struct Grid
{
    long long step;     ///< stored units from one rounded amount to the next
    long long overhang; ///< stored units down to the next one, never negative
};

Grid grid(long long amount, unsigned char storedDigits, unsigned char keptDigits)
{
    if (keptDigits >= storedDigits) {
        return {1, 0};
    }
    auto const step = checked::powerOfTen(static_cast<unsigned int>(storedDigits - keptDigits));
    auto const remainder = amount % step;
    return {step, remainder < 0 ? remainder + step : remainder};
}
}

long long down(long long const& amount, unsigned char const& storedDigits, unsigned char const& keptDigits)
{
    return checked::subtract(amount, grid(amount, storedDigits, keptDigits).overhang);
}

long long up(long long const& amount, unsigned char const& storedDigits, unsigned char const& keptDigits)
{
    auto const [step, overhang] = grid(amount, storedDigits, keptDigits);
    return overhang == 0 ? amount : checked::add(amount, step - overhang);
}

long long nearest(long long const& amount, unsigned char const& storedDigits, unsigned char const& keptDigits)
{
    auto const [step, overhang] = grid(amount, storedDigits, keptDigits);
    auto const missing = step - overhang;
    auto const isUp = amount < 0 ? overhang > missing : overhang >= missing;
    return isUp && overhang != 0 ? checked::add(amount, missing) : checked::subtract(amount, overhang);
}
}
