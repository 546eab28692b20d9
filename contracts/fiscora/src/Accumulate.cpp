#include <fiscora/Accumulate.h>
#include <fiscora/Conversions.h>
#include <fiscora/Rounders.h>

#include <QDebug>

namespace fiscora::math::detail {

Money accumulateRunningTotals(Currency const& target, std::map<Currency, Money> const& totals)
{
    Money sum(target);
    for (auto const& [code, total] : totals) {
        if (code == Currency::XXX || total == 0) {
            continue;
        }
        if (auto const converted = convert(total, target)) {
            sum += *converted;
        } else {
            qWarning().noquote() << "No exchange rate is known from" << QString::fromStdString(toStdString(code))
                                 << "to"
                                 << QString::fromStdString(toStdString(target)) +
                                        ": the total leaves that currency out.";
        }
    }
    return sum.round(rounders::currency::nearest, minorUnitDigits(target));
}
}
