#pragma once

class QComboBox;
class QEvent;

namespace tlm::desktop_ui::internal {

/// Settles the size that \a box wants to have by the few items that it has now, whatever is added to it.
///
/// A box measures each of its items otherwise, when it is laid out and again when it is first shown, which costs rows with
/// hundreds of accounts more than all the rest. Any other policy of its sizes makes it build its pop-up at once.
void settleSize(QComboBox& box);

/// \return whether \a event, sent to a combo box, brings up its items
bool opensPopUp(QEvent const& event);

/// Lets the items of \a box be wider than the box once they come up.
void makeRoomForItems(QComboBox& box);
}
