#pragma once

#include <tlm/budgeting/EventFrequency.h>
#include <tlm/desktop_ui/Export.h>
#include <tlm/desktop_ui/ui_EventFrequencyEntryWdgt.h>
#include <tlm/foundation/QtPtr.h>

#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

namespace tlm::desktop_ui {

/// Lets a person pick how often a budget event happens.
class TLM_DESKTOP_UI_EXPORT EventFrequencyEntryWidget : public QWidget, private Ui::EventFrequencyEntryWdgt
{
    Q_OBJECT

public:
    /// Offers every frequency, `None` first as a blank item.
    explicit EventFrequencyEntryWidget(foundation::QtPtr<QWidget> const& parent);

    /// Offers \a frequencies in the order given and selects the first.
    EventFrequencyEntryWidget(std::vector<budgeting::EventFrequency> const& frequencies,
                              foundation::QtPtr<QWidget> const& parent);

    /// \return the selected frequency, `None` on the blank item and in an empty list
    budgeting::EventFrequency period() const;

    /// \throws DataEntryError when \a frequency isn't on offer; the selection stays as it was
    void select(budgeting::EventFrequency const& frequency);

    /// Names the entry for the person.
    /// \throws DataEntryError when \a text is blank; the name stays as it was
    void setDescription(QString const& text);

signals:
    void selectionChanged(tlm::budgeting::EventFrequency changed);

private slots:
    void onCurrentIndexChanged(int index);

private:
    struct Texts;

    void offer(std::vector<budgeting::EventFrequency> const& frequencies);

    std::shared_ptr<Texts const> texts_; ///< shared by all lists that offer the same
};
}
