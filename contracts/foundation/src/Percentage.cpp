#include <tlm/foundation/Percentage.h>

namespace tlm::foundation {

std::strong_ordering operator<=>(Percentage const& left, Percentage const& right) noexcept
{
    auto const byRate = std::strong_order(left.rate_, right.rate_);
    return byRate == 0 ? left.precision_ <=> right.precision_ : byRate;
}

QDebug operator<<(QDebug debug, Percentage const& percentage)
{
    QDebugStateSaver const saver(debug);
    debug.noquote().nospace() << QString::number(percentage.rate(), 'f', percentage.precision()) << '%';
    return debug;
}
}
