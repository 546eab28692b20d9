#include "Fixture.h"

#include <presenter/UnansweredPresenter.h>

namespace tallymere::presenter {
namespace {

class UnansweredPresenterTest : public PresenterTest
{
protected:
    UnansweredPresenter presenter{window};
};

TEST_F(UnansweredPresenterTest, SaysThatAViewIsNotThereYet)
{
    emit window.prepareShowSurvey();

    EXPECT_EQ(status(), "This isn't part of Tallymere yet. A later version brings it.");
}

TEST_F(UnansweredPresenterTest, LeavesTheOtherViewsToTheirOwnPresenters)
{
    using tlm::desktop_ui::MainWindow;
    for (auto const wish :
         {&MainWindow::prepareShowDashboard, &MainWindow::prepareShowBills, &MainWindow::prepareShowDebts,
          &MainWindow::prepareShowGoals, &MainWindow::prepareShowNontracks, &MainWindow::prepareShowWages,
          &MainWindow::prepareShowAccounts, &MainWindow::prepareShowLedgers, &MainWindow::prepareShowMoneyTransfer,
          &MainWindow::prepareShowBanks}) {
        emit(window.*wish)();
    }

    EXPECT_TRUE(status().isEmpty());
}
}
}
