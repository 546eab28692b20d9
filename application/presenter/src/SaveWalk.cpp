#include <presenter/Messages.h>
#include <presenter/SaveWalk.h>
#include <tlm/desktop_ui/MainWindow.h>

#include <utility>

namespace tallymere::presenter {

using tlm::desktop_ui::MainWindow;

SaveWalk::SaveWalk(MainWindow& window, std::function<void()> showAgain)
    : window_(window), showAgain_(std::move(showAgain))
{
    connect(&window_, &MainWindow::prepareShowDashboard, this, &SaveWalk::onPrepareShowDashboard);
}

void SaveWalk::goOn()
{
    if (!isUnderWay_) {
        isUnderWay_ = true;
        QMetaObject::invokeMethod(this, &SaveWalk::end, Qt::QueuedConnection);
    }
}

void SaveWalk::tellAtEnd(QString const& sentence)
{
    if (!sentences_.contains(sentence)) {
        sentences_.append(sentence);
    }
}

void SaveWalk::onPrepareShowDashboard()
{
    hasViewGone_ = isUnderWay_;
}

void SaveWalk::end()
{
    emit ended();
    isUnderWay_ = false;
    auto const hasViewGone = std::exchange(hasViewGone_, false);
    auto const sentences = std::exchange(sentences_, {});
    if (sentences.isEmpty()) {
        return;
    }
    if (hasViewGone) {
        showAgain_();
    }
    tellFailure(window_, tr("Not Everything Was Changed"), sentences.join(QStringLiteral("\n\n")));
}
}
