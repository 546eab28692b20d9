#pragma once

#include <QWidget>

#include <vector>

namespace tlm::desktop_ui::internal {

/// \return what the Tab key stops at inside \a part, in that order
std::vector<QWidget*> tabStops(QWidget const& part);
}
