#pragma once

#include <QLoggingCategory>

namespace tlm::desktop_ui::internal {

/// The category of qInfo() and its like, for `qCInfo(generalLog)`: a line that comes for each of thousands of entries isn't even put
/// together while nobody listens to it.
inline QLoggingCategory const& generalLog()
{
    return *QLoggingCategory::defaultCategory();
}
}
