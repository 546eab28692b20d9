#include "internal/ComboBoxes.h"

#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShowEvent>
#include <QTimerEvent>

namespace tlm::desktop_ui::internal {

void settleSize(QComboBox& box, QString const& text)
{
    box.addItem(text);
    QShowEvent firstOne;
    QCoreApplication::sendEvent(&box, &firstOne);
    box.sizeHint();
    box.minimumSizeHint();
    box.clear();
}

void settleContents(QComboBox& box)
{
    if (box.isVisible() || box.sizeAdjustPolicy() != QComboBox::AdjustToContents) {
        return;
    }
    auto* const items = box.view();
    for (QObject* const waiting : {static_cast<QObject*>(items), items->parent()}) {
        for (auto const& timer : QAbstractEventDispatcher::instance()->registeredTimers(waiting)) {
            QTimerEvent due(timer.timerId);
            QCoreApplication::sendEvent(waiting, &due);
        }
    }
}

bool opensPopUp(QEvent const& event)
{
    if (event.type() != QEvent::KeyPress) {
        return event.type() == QEvent::MouseButtonPress;
    }
    auto const& press = static_cast<QKeyEvent const&>(event);
    auto const isArrow = press.key() == Qt::Key_Up || press.key() == Qt::Key_Down;
    return press.key() == Qt::Key_F4 || press.key() == Qt::Key_Space ||
           (isArrow && press.modifiers().testFlag(Qt::AltModifier));
}

void makeRoomForItems(QComboBox& box)
{
    auto& items = *box.view();
    items.setMinimumWidth(items.sizeHintForColumn(0) + items.verticalScrollBar()->sizeHint().width());
}
}
