#include "Fixture.h"

#include <presenter/WindowTitle.h>

namespace tallymere::presenter {
namespace {

class WindowTitleTest : public PresenterTest
{
protected:
    QString const product = window.windowTitle();
    WindowTitle title{window, session};
};

TEST_F(WindowTitleTest, NamesABudgetWithoutAFile)
{
    session.beginEmpty();

    EXPECT_EQ(window.windowTitle(), "New budget[*] - " + product);
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(WindowTitleTest, NamesTheOpenFile)
{
    auto const path = writeSample("family.budget");

    session.open(path);

    EXPECT_EQ(window.windowTitle(), "family.budget[*] - " + product);
    EXPECT_EQ(window.windowFilePath(), path);
}

TEST_F(WindowTitleTest, FollowsASaveUnderAnotherName)
{
    session.saveAs(home.path("other.budget"));

    EXPECT_EQ(window.windowTitle(), "other.budget[*] - " + product);
}

TEST_F(WindowTitleTest, AFileNameIsNotTakenForTheMarkOfChanges)
{
    session.saveAs(home.path("odd[*].budget"));

    EXPECT_EQ(window.windowTitle(), "odd[*][*].budget[*] - " + product);
}
}
}
