#pragma once

class QWidget;

namespace tlm::desktop_ui::internal {

/// Leaves the mouse wheel to the list that the entry \a form stands in: over a field it changes the value only where the
/// person works already. Otherwise a value would change because its field came by under the mouse.
void leaveWheelToList(QWidget const& form);
}
