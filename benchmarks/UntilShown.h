#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

/// Ends the program as soon as \a window has been painted once.
class UntilShown : public QObject
{
public:
    explicit UntilShown(QWidget& window) { window.installEventFilter(this); }

    bool eventFilter(QObject* /*window*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            // Quitting would ask the window whether it may close.
            auto const exit = [] { QCoreApplication::exit(); };
            QMetaObject::invokeMethod(qApp, exit, Qt::QueuedConnection);
        }
        return false;
    }
};
