#include "tlm/desktop_ui/VerticalLabel.h"

#include "internal/QuarterTurn.h"

#include <QPainter>

namespace tlm::desktop_ui {

VerticalLabel::VerticalLabel(foundation::QtPtr<QWidget> const& parent) : QLabel(QString(), parent.get()) {}

QSize VerticalLabel::sizeHint() const
{
    return QLabel::sizeHint().transposed();
}

QSize VerticalLabel::minimumSizeHint() const
{
    return QLabel::minimumSizeHint().transposed();
}

void VerticalLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    adjustToVertical(painter);
    painter.drawText(0, 0, height(), width(), static_cast<int>(alignment()), text());
}

void VerticalLabel::adjustToVertical(QPainter& painter) const
{
    painter.setTransform(internal::quarterTurn(sizeHint(), layoutDirection()), true);
}
}
