#include "internal/QuarterTurn.h"

#include <stdexcept>

namespace tlm::desktop_ui::internal {

QTransform quarterTurn(QSize const& hint, Qt::LayoutDirection direction)
{
    switch (direction) {
    case Qt::LeftToRight:
        return QTransform::fromTranslate(hint.width(), 0).rotate(90);
    case Qt::RightToLeft:
        return QTransform::fromTranslate(0, hint.height()).rotate(270);
    case Qt::LayoutDirectionAuto:
        break;
    }
    throw std::logic_error("The Qt::LayoutDirectionAuto text content detection is not implemented.");
}
}
