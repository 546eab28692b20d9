#include <presenter/UnansweredPresenter.h>
#include <tlm/desktop_ui/MainWindow.h>

#include <QStatusBar>

#include <chrono>

namespace tallymere::presenter {

using tlm::desktop_ui::MainWindow;

UnansweredPresenter::UnansweredPresenter(MainWindow& window) : window_(window)
{
    using Wish = void (MainWindow::*)();
    for (Wish const wish : {&MainWindow::prepareShowProcessBudgetItems, &MainWindow::prepareShowSurvey,
                            &MainWindow::prepareShowBudgetItemRefund, &MainWindow::prepareShowExchangeRates,
                            &MainWindow::prepareShowConfigure, &MainWindow::prepareNewBudgetFirstTimeWizard,
                            &MainWindow::fetchReleaseNotes}) {
        connect(&window_, wish, this, &UnansweredPresenter::tell);
    }
}

void UnansweredPresenter::tell()
{
    using namespace std::chrono_literals;
    window_.statusBar()->showMessage(tr("This isn't part of Tallymere yet. A later version brings it."),
                                     std::chrono::milliseconds(5s).count());
}
}
