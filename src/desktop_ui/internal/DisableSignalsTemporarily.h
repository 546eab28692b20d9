#pragma once

#include <tlm/foundation/QtPtr.h>
#include <tlm/foundation/ScopeExecutor.h>

namespace tlm::desktop_ui::internal {

/// Silences a widget for a scope, in which a form changes it from code.
///
/// Only the widget's own signals are blocked, not those of the widgets inside it. Nested guards leave it silent until the
/// outermost ends. The widget must outlive its guard.
template <typename T>
class [[nodiscard]] DisableSignalsTemporarily : public foundation::ScopeExecutor
{
public:
    // The function runs when only the base is left of this guard, so it keeps the earlier state to itself.
    explicit DisableSignalsTemporarily(foundation::QtPtr<T> const& target)
        : ScopeExecutor([target, wasBlocked = target->blockSignals(true)] { target->blockSignals(wasBlocked); })
    {}
};
}
