#pragma once

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

namespace tlm::testing {

/// Turns the wheel of the mouse one step towards the person over \a widget, as the window system tells of it: what is under
/// the mouse may take the focus by it, and what it has no use for goes to the widgets around it.
inline void turnWheelOver(QWidget& widget)
{
    auto const middle = QPointF(widget.rect().center());
    QWheelEvent turn(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&turn);
    QCoreApplication::instance()->notify(&widget, &turn);
}
}
