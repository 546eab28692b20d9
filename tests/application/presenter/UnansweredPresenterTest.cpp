#include "Fixture.h"

#include <presenter/UnansweredPresenter.h>

#include <QAction>
#include <QPointer>

namespace tallymere::presenter {
namespace {

using tlm::desktop_ui::MainWindow;

/// The parameter is the action by which a person wishes for a view that isn't there yet.
class UnansweredPresenterTest : public PresenterTest, public ::testing::WithParamInterface<char const*>
{
protected:
    UnansweredPresenter presenter{window};
};

TEST_P(UnansweredPresenterTest, SaysThatAViewIsNotThereYetAndLeavesTheOneOnScreen)
{
    QPointer<QWidget> const view = window.centralWidget();
    changeSomething();

    window.findChild<QAction*>(GetParam())->trigger();

    EXPECT_EQ(status(), "This isn't part of Tallymere yet. A later version brings it.");
    EXPECT_EQ(window.centralWidget(), view);
    EXPECT_EQ(tlm::testing::shownWindow<QDialog>(), nullptr) << "no question about changes that nothing would lose";
}

INSTANTIATE_TEST_SUITE_P(EachAction, UnansweredPresenterTest,
                         ::testing::Values("wizardActn", "processActn", "reconciliationActn", "refundActn",
                                           "configureActn", "exchangeRatesActn", "releaseNotesActn"),
                         [](auto const& action) { return std::string(action.param); });

class AnsweredElsewhereTest : public PresenterTest
{
protected:
    UnansweredPresenter presenter{window};
};

TEST_F(AnsweredElsewhereTest, LeavesTheOtherViewsToTheirOwnPresenters)
{
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
