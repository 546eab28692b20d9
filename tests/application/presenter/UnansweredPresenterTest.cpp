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
    emit window.prepareShowBills();

    EXPECT_EQ(status(), "This isn't part of Tallymere yet. A later version brings it.");
}

TEST_F(UnansweredPresenterTest, LeavesTheDashboardToItsOwnPresenter)
{
    emit window.prepareShowDashboard();

    EXPECT_TRUE(status().isEmpty());
}
}
}
