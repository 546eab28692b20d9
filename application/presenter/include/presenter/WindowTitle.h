#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace tallymere::presenter {

class Session;

/// Keeps the window's title telling which budget is open and whether it holds unsaved changes.
class WindowTitle : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the title. The title that \a window has now becomes the end of every later one,
    /// from the next budget or save on.
    WindowTitle(QWidget& window, Session& session);

private:
    void tell();

    QWidget& window_;
    Session& session_;
    QString const product_;
};
}
