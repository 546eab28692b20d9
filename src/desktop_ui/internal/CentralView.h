#pragma once

class QMainWindow;
class QWidget;

namespace tlm::desktop_ui::internal {

/// Makes \a view the central widget of \a window, with the focus where a person begins, so that the keyboard goes on from
/// there. Where that is a field with a text, which would take keys that are meant for the window, and be typed over by chance,
/// the focus waits on the button that adds an entry.
void showCentral(QMainWindow& window, QWidget& view);
}
