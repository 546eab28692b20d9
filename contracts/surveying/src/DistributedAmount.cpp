#include <tlm/surveying/DistributedAmount.h>

namespace tlm::surveying {

DistributedAmount::DistributedAmount(fiscora::Money distributed, QDate nextOccursOn, fiscora::Money maximum) noexcept
    : distributed_(distributed), nextOccursOn_(nextOccursOn), maximum_(maximum)
{}
}
