#pragma once

#include <QWidget>

#include <vector>

namespace tlm::desktop_ui::internal {

/// \return what the Tab key stops at inside \a part, in that order
std::vector<QWidget*> tabStops(QWidget const& part);

/// The same for a \a part that has just been made, so that all of it still stands together: as long as \a part and not as
/// the window around it.
std::vector<QWidget*> tabStopsOfNew(QWidget& part);
}
