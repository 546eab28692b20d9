#include <tlm/updating/ReleaseInformation.h>

namespace tlm::updating {

namespace {

std::strong_ordering compareMoments(QDateTime const& left, QDateTime const& right)
{
    if (!left.isValid() || !right.isValid()) {
        return left.isValid() <=> right.isValid();
    }
    return left.toMSecsSinceEpoch() <=> right.toMSecsSinceEpoch();
}
}

std::strong_ordering operator<=>(ReleaseInformation const& left, ReleaseInformation const& right)
{
    if (auto const order = left.version <=> right.version; order != 0) {
        return order;
    }
    if (auto const order = compareMoments(left.releasedOn, right.releasedOn); order != 0) {
        return order;
    }
    return left.notes.compare(right.notes, Qt::CaseSensitive) <=> 0;
}

bool operator==(ReleaseInformation const& left, ReleaseInformation const& right)
{
    return (left <=> right) == 0;
}
}
