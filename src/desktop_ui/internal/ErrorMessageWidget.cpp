#include "internal/ErrorMessageWidget.h"

#include <QBrush>
#include <QPalette>

namespace tlm::desktop_ui::internal {

ErrorMessageWidget::ErrorMessageWidget(foundation::QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
    auto colours = messageLbl->palette();
    colours.setBrush(QPalette::All, messageLbl->foregroundRole(), QBrush(Qt::red));
    messageLbl->setPalette(colours);
    hide();
}

void ErrorMessageWidget::showMessage(std::optional<QString> const& message)
{
    if (message) {
        messageLbl->setText(*message);
        show();
    } else {
        hide();
        messageLbl->clear();
    }
}

std::optional<QString> ErrorMessageWidget::message() const
{
    auto const text = messageLbl->text();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}
}
