#pragma once

class QMainWindow;

namespace tallymere::program {

/// Gives \a window and its actions their icons: the desktop theme's where it has one, else the program's own.
void dress(QMainWindow& window);
}
