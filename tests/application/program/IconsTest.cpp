#include <program/Icons.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QToolBar>

#include <gtest/gtest.h>
#include <support/MessageLog.h>

namespace tallymere::program {
namespace {

class IconsTest : public ::testing::TestWithParam<bool>
{
protected:
    tlm::navigation::ConfigurationOptions wording{GetParam(), false};
    tlm::desktop_ui::MainWindow window{wording};
};

TEST_P(IconsTest, EveryEntryOfAnOpenedMenuButQtsOwnHasAPictureThatCanBeDrawn)
{
    dress(window);

    for (auto* const menu : window.findChildren<QMenu*>()) {
        emit menu->aboutToShow();
    }
    for (auto const* const action : window.findChildren<QAction*>(QRegularExpression("Actn$"))) {
        if (action->objectName() != "aboutQtActn") {
            EXPECT_FALSE(action->icon().pixmap(24, 24).isNull()) << action->objectName().toStdString();
        }
    }
}

TEST_P(IconsTest, ToolBarEntriesWearTheMenusPictures)
{
    dress(window);

    auto const bars = window.findChildren<QToolBar*>();
    ASSERT_EQ(bars.size(), 2);
    for (auto const* const bar : bars) {
        EXPECT_EQ(bar->actions().size(), 2);
        for (auto const* const action : bar->actions()) {
            EXPECT_FALSE(action->icon().pixmap(24, 24).isNull()) << action->text().toStdString();
        }
    }
}

TEST_P(IconsTest, TheProgramSoonHasAWindowIcon)
{
    QApplication::setWindowIcon({});

    dress(window);

    EXPECT_TRUE(QTest::qWaitFor([] { return !QApplication::windowIcon().pixmap(64, 64).isNull(); }));
}

INSTANTIATE_TEST_SUITE_P(BothWordings, IconsTest, ::testing::Bool());
}
}
