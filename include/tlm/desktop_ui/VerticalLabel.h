#pragma once

#include <tlm/desktop_ui/Export.h>
#include <tlm/foundation/QtPtr.h>

#include <QLabel>

class QPainter;

namespace tlm::desktop_ui {

/// A label whose plain text runs down, or up where people write from right to left.
///
/// Its alignment counts along the text. Frames, pictures and markup aren't drawn.
class TLM_DESKTOP_UI_EXPORT VerticalLabel : public QLabel
{
    Q_OBJECT

public:
    explicit VerticalLabel(foundation::QtPtr<QWidget> const& parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void adjustToVertical(QPainter& painter) const;
};
}
