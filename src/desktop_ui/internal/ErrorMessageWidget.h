#pragma once

#include "ui_ErrorWdgt.h"

#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QWidget>

#include <optional>

namespace tlm::desktop_ui::internal {

/// The red line of a form that tells what is wrong. Takes no room while there is nothing to tell.
class ErrorMessageWidget : public QWidget, private Ui::ErrorWdgt
{
    Q_OBJECT

public:
    /// Makes the line hidden.
    explicit ErrorMessageWidget(foundation::QtPtr<QWidget> const& parent);

    /// Shows \a message as it stands, or hides and forgets what was shown when there is none.
    void showMessage(std::optional<QString> const& message);

    /// \return the message told, none when its text is empty
    std::optional<QString> message() const;
};
}
