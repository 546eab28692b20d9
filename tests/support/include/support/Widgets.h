#pragma once

#include <QApplication>
#include <QTest>
#include <QWidget>

#include <stdexcept>

namespace tlm::testing {

/// \return the descendant of \a parent named \a name
/// \throws std::runtime_error when there is none of that type and name
template <typename T>
T& child(QObject const& parent, QString const& name)
{
    auto* const found = parent.findChild<T*>(name);
    if (found == nullptr) {
        throw std::runtime_error("no " + std::string(T::staticMetaObject.className()) + " named " + name.toStdString());
    }
    return *found;
}

/// Presses Tab from \a first on inside its shown and active window.
/// \return object names in the order in which they took the focus, \a first included, until the walk comes round
inline QStringList tabOrder(QWidget& first)
{
    constexpr auto mostStops = 200;
    QStringList names{first.objectName()};
    first.setFocus(Qt::TabFocusReason);
    while (names.size() < mostStops) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        auto* const focused = QApplication::focusWidget();
        if (focused == nullptr || focused == &first) {
            break;
        }
        names.append(focused->objectName());
    }
    return names;
}
}
