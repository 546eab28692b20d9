#pragma once

#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QCoreApplication>
#include <QEvent>
#include <QSize>

/// A window on screen, in which a benchmark shows a view.
struct ShownWindow
{
    explicit ShownWindow(QSize const& size, tlm::navigation::ConfigurationOptions const& options = {})
        : wording(options)
    {
        window.resize(size);
        window.show();
        QCoreApplication::processEvents();
    }

    /// Ends when the view that the window shows has been painted.
    void settle()
    {
        QCoreApplication::processEvents();
        window.repaint();
    }

    /// Leaves an empty window.
    void end()
    {
        window.setCentralWidget(new QWidget);
        letGo();
    }

    /// Ends what waits to be deleted.
    static void letGo()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    tlm::navigation::ConfigurationOptions const wording;
    tlm::desktop_ui::MainWindow window{wording};
};
