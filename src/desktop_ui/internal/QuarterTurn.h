#pragma once

#include <QSize>
#include <QTransform>

namespace tlm::desktop_ui::internal {

/// \return what turns a horizontal text by a quarter into the place that \a hint asks for: down for text that is written
///         from left to right, else up
/// \throws std::logic_error for `Qt::LayoutDirectionAuto`
QTransform quarterTurn(QSize const& hint, Qt::LayoutDirection direction);
}
