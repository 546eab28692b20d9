#pragma once

#include <QLayout>
#include <QTest>
#include <QWidget>

#include <stdexcept>

namespace tlm::testing {

/// Shows \a window and waits until it takes keys.
///
/// Its layout settles first, since the offscreen platform complains when the size limits of a shown window change.
/// \throws std::runtime_error when it doesn't become active
inline void showActive(QWidget& window)
{
    window.layout()->activate();
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window)) {
        throw std::runtime_error("the window never became active");
    }
}
}
