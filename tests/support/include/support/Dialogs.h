#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <functional>

namespace tlm::testing {

/// \return the window of type \a T that is on screen, nullptr if there is none
template <typename T>
T* shownWindow()
{
    for (auto* const window : QApplication::topLevelWidgets()) {
        if (auto* const wanted = qobject_cast<T*>(window); wanted != nullptr && wanted->isVisible()) {
            return wanted;
        }
    }
    return nullptr;
}

/// Waits, beside a question that blocks, for a message box to come up, and hands it to \a act once.
class MessageBoxAnswerer : public QObject
{
public:
    explicit MessageBoxAnswerer(std::function<void(QMessageBox&)> act) : act_(std::move(act))
    {
        connect(&timer_, &QTimer::timeout, this, &MessageBoxAnswerer::look);
        timer_.start(10);
    }
    /// Presses \a button, which stands for what a person would do.
    explicit MessageBoxAnswerer(QMessageBox::StandardButton button)
        : MessageBoxAnswerer([button](QMessageBox& box) { box.button(button)->click(); })
    {}

    bool hasAnswered() const { return hasAnswered_; }
    /// Text and title of the box that was answered.
    QString text() const { return text_; }
    QString title() const { return title_; }

private:
    void look()
    {
        if (auto* const box = shownWindow<QMessageBox>()) {
            timer_.stop();
            hasAnswered_ = true;
            text_ = box->text();
            title_ = box->windowTitle();
            act_(*box);
        }
    }

    std::function<void(QMessageBox&)> act_;
    QTimer timer_;
    bool hasAnswered_ = false;
    QString text_;
    QString title_;
};
}
