#include "internal/TabStops.h"

namespace tlm::desktop_ui::internal {

std::vector<QWidget*> tabStops(QWidget const& part)
{
    std::vector<QWidget*> stops;
    auto* const window = part.window();
    for (auto* widget = window->nextInFocusChain(); widget != window; widget = widget->nextInFocusChain()) {
        auto const isStop = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
        if (isStop && part.isAncestorOf(widget)) {
            stops.push_back(widget);
        }
    }
    return stops;
}
}
