#pragma once

#include <functional>

namespace tlm::foundation {

/// Runs a function on leaving a scope, on every path out of it.
///
/// The function must not throw: it may run while another exception is under way. An empty one is left alone.
class ScopeExecutor
{
public:
    explicit ScopeExecutor(std::function<void()> atEnd);
    ScopeExecutor(ScopeExecutor const&) = delete;
    ScopeExecutor& operator=(ScopeExecutor const&) = delete;
    ~ScopeExecutor();

private:
    std::function<void()> atEnd_;
};
}
