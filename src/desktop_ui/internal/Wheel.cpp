#include "internal/Wheel.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>

namespace tlm::desktop_ui::internal {

namespace {

/// Passes the wheel on from fields without the focus.
class WheelGuard : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Wheel || static_cast<QWidget const*>(watched)->hasFocus()) {
            return false;
        }
        event->ignore();
        return true;
    }
};

void guard(QWidget& field)
{
    static WheelGuard stateless;
    field.setFocusPolicy(
        Qt::FocusPolicy(field.focusPolicy() & Qt::StrongFocus)); // or the wheel itself brings the focus
    field.installEventFilter(&stateless);
}
}

void leaveWheelToList(QWidget const& form)
{
    for (auto* const box : form.findChildren<QComboBox*>()) {
        guard(*box);
    }
    for (auto* const box : form.findChildren<QAbstractSpinBox*>()) {
        guard(*box);
    }
}
}
