#include "Fixture.h"

#include <presenter/WindowTitle.h>

#include <QEvent>
#include <QTest>

namespace tallymere::presenter {
namespace {

/// Counts how often a window's mark of unsaved changes turns.
class ModificationMark : public QObject
{
public:
    explicit ModificationMark(QWidget& window) { window.installEventFilter(this); }

    int changes() const { return changes_; }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        changes_ += event->type() == QEvent::ModifiedChange ? 1 : 0;
        return false;
    }

private:
    int changes_ = 0;
};

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

TEST_F(WindowTitleTest, MarksUnsavedChangesOnceTheProgramComesToRest)
{
    session.open(writeSample("family.budget"));

    changeSomething();

    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isWindowModified(); }));
}

TEST_F(WindowTitleTest, TakesTheMarkAwayWhenAChangeIsUndoneByHand)
{
    session.open(writeSample("family.budget"));
    auto const before = session.household().content().settings;
    changeSomething();
    ASSERT_TRUE(QTest::qWaitFor([this] { return window.isWindowModified(); }));

    session.change([&](engine::Household& household) { household.configure(before); });

    EXPECT_TRUE(QTest::qWaitFor([this] { return !window.isWindowModified(); }));
}

TEST_F(WindowTitleTest, ManyChangesInARowAreMarkedTogether)
{
    session.open(writeSample("family.budget"));
    ModificationMark const mark(window);

    for (auto change = 0; change < 5; ++change) {
        changeSomething();
        EXPECT_EQ(mark.changes(), 0) << "comparing with the file after each change would cost too much";
    }

    EXPECT_TRUE(QTest::qWaitFor([&] { return mark.changes() == 1; }));
}

TEST_F(WindowTitleTest, ASaveRightAfterAChangeLeavesNoMark)
{
    session.open(writeSample("family.budget"));
    changeSomething();

    session.save();
    QCoreApplication::processEvents();

    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(WindowTitleTest, AFileNameIsNotTakenForTheMarkOfChanges)
{
    session.saveAs(home.path("odd[*].budget"));

    EXPECT_EQ(window.windowTitle(), "odd[*][*].budget[*] - " + product);
}
}
}
