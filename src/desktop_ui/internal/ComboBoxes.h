#pragma once

class QComboBox;
class QEvent;
class QString;

namespace tlm::desktop_ui::internal {

/// Settles the size that \a box, which has no items yet, wants to have: such that it shows \a text, whatever it is given.
///
/// A box measures each of its items otherwise, when it is laid out and again when it is first shown, which costs rows with
/// hundreds of accounts more than all the rest. Any other policy of its sizes makes it build its pop-up at once.
void settleSize(QComboBox& box, QString const& text);

/// Has \a box settle its size and its pop-up at once, if its size follows its items and it isn't on screen.
///
/// Such a box puts that off by timers each time an item comes. Thousands of boxes would leave thousands of timers running,
/// among which Qt looks for the one to start anew.
void settleContents(QComboBox& box);

/// \return whether \a event, sent to a combo box, brings up its items
bool opensPopUp(QEvent const& event);

/// Lets the items of \a box be wider than the box once they come up.
void makeRoomForItems(QComboBox& box);
}
