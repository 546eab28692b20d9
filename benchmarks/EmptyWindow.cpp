#include "UntilShown.h"

#include <QMainWindow>

/// What any program with a window pays, so that a figure can be held against it.
int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    QMainWindow window;
    window.resize(1280, 800);
    UntilShown const untilShown(window);
    window.show();
    return QApplication::exec();
}
