#include <tlm/foundation/ScopeExecutor.h>

#include <utility>

namespace tlm::foundation {

ScopeExecutor::ScopeExecutor(std::function<void()> atEnd) : atEnd_(std::move(atEnd)) {}

ScopeExecutor::~ScopeExecutor()
{
    if (atEnd_) {
        atEnd_();
    }
}
}
