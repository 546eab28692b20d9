#pragma once

#include <QObject>
#include <QStringList>

#include <functional>

namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::presenter {

/// The changes that a view tells one after the other when the person saves it, until the program comes to rest.
///
/// A view takes an accepted change for the last one of its entry, so it may close over the answer while it still has to tell
/// another. What is refused then nobody would see: it is told in a message box over a fresh view.
class SaveWalk : public QObject
{
    Q_OBJECT

public:
    /// \param window must outlive the walk
    /// \param showAgain shows the view afresh
    SaveWalk(tlm::desktop_ui::MainWindow& window, std::function<void()> showAgain);

    /// Comes with each change.
    void goOn();

    /// \return whether the view closed over an answer of this walk
    bool hasViewGone() const { return hasViewGone_; }

    /// Tells \a sentence once the walk has ended, over a fresh view where the old one has gone by then.
    void tellAtEnd(QString const& sentence);

signals:
    /// Comes before anything is told.
    void ended();

private:
    void onPrepareShowDashboard();
    void end();

    tlm::desktop_ui::MainWindow& window_;
    std::function<void()> showAgain_;
    QStringList sentences_;
    bool isUnderWay_ = false;
    bool hasViewGone_ = false;
};
}
