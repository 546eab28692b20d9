#pragma once

#include <QObject>

namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::presenter {

/// Tells the person that a view hasn't been built yet, where silence would look like a fault.
class UnansweredPresenter : public QObject
{
    Q_OBJECT

public:
    /// \a window must outlive the presenter.
    explicit UnansweredPresenter(tlm::desktop_ui::MainWindow& window);

private:
    void tell();

    tlm::desktop_ui::MainWindow& window_;
};
}
