#include "tlm/desktop_ui/EventFrequencyEntryWidget.h"

#include "internal/Shared.h"
#include "internal/TextListModel.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <QDebug>

#include <memory>
#include <utility>

namespace tlm::desktop_ui {

using budgeting::EventFrequency;
using foundation::QtPtr;

namespace {

std::vector<EventFrequency> allFrequencies()
{
    constexpr unsigned char count = 22;
    std::vector<EventFrequency> all;
    for (unsigned char value = 0; value < count; ++value) {
        all.push_back(EventFrequency{value});
    }
    return all;
}

QString itemText(EventFrequency frequency)
{
    return frequency == EventFrequency::None ? QString() : presentationText(frequency);
}
}

/// The texts of a list, in the language that one of them tells.
struct EventFrequencyEntryWidget::Texts
{
    using Key = std::pair<std::vector<EventFrequency>, QString>;

    static Key keyOf(std::vector<EventFrequency> const& frequencies)
    {
        return {frequencies, presentationText(EventFrequency::Monthly)};
    }

    explicit Texts(Key const& key)
    {
        for (auto const frequency : key.first) {
            all.append(itemText(frequency));
        }
    }

    QStringList all;
};

EventFrequencyEntryWidget::EventFrequencyEntryWidget(QtPtr<QWidget> const& parent)
    : EventFrequencyEntryWidget(allFrequencies(), parent)
{}

EventFrequencyEntryWidget::EventFrequencyEntryWidget(std::vector<EventFrequency> const& frequencies,
                                                     QtPtr<QWidget> const& parent)
    : QWidget(parent.get())
{
    setupUi(this);
    offer(frequencies);
    connect(periodCmbbx, &QComboBox::currentIndexChanged, this, &EventFrequencyEntryWidget::onCurrentIndexChanged);
}

void EventFrequencyEntryWidget::offer(std::vector<EventFrequency> const& frequencies)
{
    texts_ = internal::shared<Texts>(Texts::keyOf(frequencies));
    internal::appendTexts(*periodCmbbx, texts_->all);
    periodCmbbx->setCurrentIndex(0);
}

EventFrequency EventFrequencyEntryWidget::period() const
{
    auto const text = periodCmbbx->currentText();
    return text.isEmpty() ? EventFrequency::None : budgeting::toEventFrequency(text);
}

void EventFrequencyEntryWidget::select(EventFrequency const& frequency)
{
    qInfo() << "Selecting period frequency:" << frequency;
    auto const text = itemText(frequency);
    auto const row = periodCmbbx->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row < 0) {
        throw DataEntryError(tr("period"), text, tr("The frequency is not a valid selection."), std::exception());
    }
    periodCmbbx->setCurrentIndex(row);
}

void EventFrequencyEntryWidget::setDescription(QString const& text)
{
    if (text.trimmed().isEmpty()) {
        throw DataEntryError(tr("period description"), text, tr("The period description cannot be empty."),
                             std::exception());
    }
    periodLbl->setText(text);
}

void EventFrequencyEntryWidget::onCurrentIndexChanged(int index)
{
    auto const frequency = budgeting::toEventFrequency(periodCmbbx->itemText(index));
    qInfo() << "Frequency changed to:" << frequency;
    emit selectionChanged(frequency);
}
}
