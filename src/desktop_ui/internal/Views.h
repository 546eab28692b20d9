#pragma once

#include <tlm/foundation/Error.h>
#include <tlm/foundation/QtPtr.h>

#include <QDebug>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QWidget>

#include <optional>

/// What the views that list entries have in common.
namespace tlm::desktop_ui::internal {

/// Lets \a view say that it closes, and closes it unless whoever hears that has ended it.
/// \return whether it is closed
template <typename View>
bool tellAndClose(View* view)
{
    foundation::QtPtr<View> const guarded = view;
    emit view->closing();
    return !guarded || view->QWidget::close();
}

/// \return the new button, which \a box owns
/// \throws Error with \a failure when \a box makes none
inline foundation::QtPtr<QPushButton> addButton(QDialogButtonBox& box, QString const& text, QString const& failure)
{
    foundation::QtPtr<QPushButton> button = box.addButton(text, QDialogButtonBox::ActionRole);
    if (!button) {
        throw foundation::Error(failure);
    }
    return button;
}

/// Logs that a list shows the form of another row.
/// \param kind what the rows stand for
/// \param previous text of the row until now, none when there was no row, \a current likewise
inline void logDisplayed(char const* kind, std::optional<QString> const& previous,
                         std::optional<QString> const& current)
{
    auto line = qInfo() << "Changing displayed" << kind << "from";
    previous ? line << *previous : line << "nothing";
    line << "to";
    current ? line << *current : line << "nothing.";
}
}
