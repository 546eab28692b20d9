#include "internal/TabStops.h"

namespace tlm::desktop_ui::internal {

namespace {

bool isTabStop(QWidget const& widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr;
}
}

std::vector<QWidget*> tabStops(QWidget const& part)
{
    std::vector<QWidget*> stops;
    auto* const window = part.window();
    for (auto* widget = window->nextInFocusChain(); widget != window; widget = widget->nextInFocusChain()) {
        if (isTabStop(*widget) && part.isAncestorOf(widget)) {
            stops.push_back(widget);
        }
    }
    return stops;
}

std::vector<QWidget*> tabStopsOfNew(QWidget& part)
{
    std::vector<QWidget*> stops;
    auto* widget = &part;
    do {
        if (isTabStop(*widget)) {
            stops.push_back(widget);
        }
        widget = widget->nextInFocusChain();
    } while (part.isAncestorOf(widget));
    return stops;
}
}
