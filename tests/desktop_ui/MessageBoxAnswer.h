#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QString>
#include <QTimer>

#include <functional>
#include <optional>

namespace tlm::testing {

/// Answers the next message box, which blocks its caller, and keeps what it asked.
class MessageBoxAnswer
{
public:
    struct Asked
    {
        QString title;
        QString text;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
        QMessageBox::StandardButton byDefault;
        QObject* parent;
    };

    /// \param act is what the person does with the box; it has to close it
    explicit MessageBoxAnswer(std::function<void(QMessageBox&)> act)
    {
        QTimer::singleShot(0, &context_, [this, act = std::move(act)] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) {
                return;
            }
            asked_ = Asked{box->windowTitle(),     box->text(),           box->icon(),
                           box->standardButtons(), defaultButtonOf(*box), box->parent()};
            act(*box);
        });
    }

    explicit MessageBoxAnswer(QMessageBox::StandardButton button)
        : MessageBoxAnswer([button](QMessageBox& box) { box.button(button)->click(); })
    {}

    /// \return what was asked, empty as long as no box came
    std::optional<Asked> const& asked() const { return asked_; }

private:
    static QMessageBox::StandardButton defaultButtonOf(QMessageBox const& box)
    {
        return box.standardButton(box.defaultButton());
    }

    QObject context_;
    std::optional<Asked> asked_;
};
}
