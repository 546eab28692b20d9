#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class QWidget;

namespace tallymere::presenter {

class Session;

/// Keeps the window's title telling which budget is open and whether it holds unsaved changes.
///
/// A new budget or a save is told at once. Comparing a changed budget with its file reads all of it, so a run of changes is
/// told once, when the program comes to rest.
class WindowTitle : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the title. The title that \a window has now becomes the end of every later one,
    /// from the next budget or save on.
    WindowTitle(QWidget& window, Session& session);

private:
    void tell();
    void markUnsaved();

    QWidget& window_;
    Session& session_;
    QString const product_;
    QTimer atRest_;
};
}
