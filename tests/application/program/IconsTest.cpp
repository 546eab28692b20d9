#include <program/Icons.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QTest>
#include <QToolBar>
#include <QWidget>

#include <gtest/gtest.h>
#include <support/MessageLog.h>

namespace tallymere::program {
namespace {

class IconsTest : public ::testing::TestWithParam<bool>
{
protected:
    tlm::navigation::ConfigurationOptions wording{GetParam(), false};
    tlm::desktop_ui::MainWindow window{wording};

    /// Until the window has been painted and has its icon.
    void show()
    {
        QApplication::setWindowIcon({});
        window.show();
        ASSERT_TRUE(QTest::qWaitFor([] { return !QApplication::windowIcon().isNull(); }));
    }
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

TEST_P(IconsTest, TheProgramSoonHasAWindowIcon)
{
    dress(window);

    show();

    EXPECT_FALSE(QApplication::windowIcon().pixmap(64, 64).isNull());
}

TEST_P(IconsTest, WhatWasPaintedWithTheWindowIsNotAskedToPaintAgain)
{
    class Heard : public QWidget
    {
    public:
        int updates = 0;

    protected:
        bool event(QEvent* event) override
        {
            updates += event->type() == QEvent::UpdateLater ? 1 : 0;
            return QWidget::event(event);
        }
    };
    auto* const view = new Heard;
    window.setCentralWidget(view);
    dress(window);
    window.show();

    window.grab();
    show();

    EXPECT_EQ(view->updates, 0);
}

TEST_P(IconsTest, ToolBarEntriesSoonWearTheMenusPictures)
{
    dress(window);
    auto const bars = window.findChildren<QToolBar*>();
    ASSERT_EQ(bars.size(), 2);
    QList<QImage> before;
    for (auto const* const bar : bars) {
        ASSERT_EQ(bar->actions().size(), 2);
        for (auto const* const action : bar->actions()) {
            before.append(action->icon().pixmap(24, 24).toImage());
        }
    }

    show();

    for (auto const* const bar : bars) {
        for (auto const* const action : bar->actions()) {
            EXPECT_NE(action->icon().pixmap(24, 24).toImage(), before.takeFirst()) << action->text().toStdString();
        }
    }
}

TEST_P(IconsTest, ToolBarsHaveRoomForTheirPicturesFromTheStart)
{
    dress(window);
    auto const bars = window.findChildren<QToolBar*>();
    auto const sizes = [&bars] {
        QList<QSize> all;
        std::ranges::transform(bars, std::back_inserter(all), [](auto const* bar) { return bar->sizeHint(); });
        return all;
    };
    auto const before = sizes();

    show();

    EXPECT_EQ(sizes(), before);
}

/// \return whether all that \a icon draws is in one colour
bool isDrawnIn(QColor const& colour, QIcon const& icon, QIcon::Mode mode)
{
    auto const image = icon.pixmap(48, 48, mode).toImage();
    auto drawn = 0;
    for (auto y = 0; y < image.height(); ++y) {
        for (auto x = 0; x < image.width(); ++x) {
            auto const dot = image.pixelColor(x, y);
            if (dot.alpha() == 255 && dot != colour) {
                return false;
            }
            drawn += dot.alpha() == 255 ? 1 : 0;
        }
    }
    return drawn > 0;
}

TEST_P(IconsTest, TheChosenEntryOfAMenuHasAPictureInTheColourOfItsText)
{
    auto const before = QApplication::palette();
    auto palette = before;
    palette.setColor(QPalette::HighlightedText, Qt::magenta);
    QApplication::setPalette(palette);
    auto const* const banks = window.findChild<QAction*>("banksActn");
    dress(window);

    emit window.findChild<QMenu*>("accountingMn")->aboutToShow();

    EXPECT_TRUE(isDrawnIn(Qt::magenta, banks->icon(), QIcon::Active));
    EXPECT_FALSE(isDrawnIn(Qt::magenta, banks->icon(), QIcon::Normal));
    QApplication::setPalette(before);
}

TEST_P(IconsTest, ToolBarEntriesKeepTheirColoursUnderTheMouse)
{
    dress(window);

    show();

    for (auto const* const bar : window.findChildren<QToolBar*>()) {
        for (auto const* const action : bar->actions()) {
            EXPECT_FALSE(isDrawnIn(QApplication::palette().highlightedText().color(), action->icon(), QIcon::Active))
                << action->text().toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BothWordings, IconsTest, ::testing::Bool());
}
}
