#include <program/Application.h>

#include <QPushButton>
#include <QToolBar>
#include <QToolButton>

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <support/Dialogs.h>
#include <support/Widgets.h>

namespace tallymere::program {
namespace {

using tlm::testing::shownWindow;

QStringList logged; // critical lines since the present test began

void hear(QtMsgType type, QMessageLogContext const& /*context*/, QString const& text)
{
    if (type == QtCriticalMsg) {
        logged.append(text);
    }
}

class ApplicationTest : public ::testing::Test
{
protected:
    ApplicationTest() { logged.clear(); }

    /// Has the event loop call \a slot. Not by a click, on whose way through Qt an exception leaks what Qt allocated.
    static void run(std::function<void()> const& slot)
    {
        QMetaObject::invokeMethod(qApp, slot, Qt::QueuedConnection);
        QCoreApplication::processEvents();
    }

    /// Text of the message box that is on screen, which is then closed.
    static QString readBox()
    {
        auto* const box = shownWindow<QMessageBox>();
        if (box == nullptr) {
            return {};
        }
        auto text = box->text();
        box->button(QMessageBox::Ok)->click();
        return text;
    }
};

TEST_F(ApplicationTest, WhatLeavesASlotIsToldAndLogged)
{
    run([] { throw std::runtime_error("Zürich has no rate."); });

    EXPECT_TRUE(readBox().contains("Zürich has no rate."));
    ASSERT_EQ(logged.size(), 1);
    EXPECT_TRUE(logged.constFirst().contains("Zürich has no rate."));
}

TEST_F(ApplicationTest, WhatLooksLikeMarkupIsToldAsItIs)
{
    run([] { throw std::runtime_error("<img src='x'> has no rate."); });

    auto const* const box = shownWindow<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    EXPECT_TRUE(readBox().contains("<img src='x'> has no rate."));
}

TEST_F(ApplicationTest, ToolBarsWearTheProgramsArrow)
{
    QToolBar const bar;

    auto const& arrow = tlm::testing::child<QToolButton>(bar, "qt_toolbar_ext_button");

    EXPECT_EQ(arrow.icon().pixmap(QSize(64, 64), 1.0).size(), QSize(64, 64)) << "the platform's own is small";
}

TEST_F(ApplicationTest, WhatIsNoExceptionIsToldToo)
{
    run([] { throw 7; });

    EXPECT_TRUE(readBox().contains("cause"));
    EXPECT_EQ(logged.size(), 1);
}

TEST_F(ApplicationTest, TheProgramGoesOnAfterAFailure)
{
    auto runs = 0;
    auto const failOnce = [&runs] {
        if (++runs == 1) {
            throw std::runtime_error("once");
        }
    };

    run(failOnce);
    readBox();
    run(failOnce);

    EXPECT_EQ(runs, 2);
    EXPECT_EQ(logged.size(), 1);
}
}
}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ::testing::InitGoogleTest(&argc, argv);
    tallymere::program::Application const application(argc, argv);
    qInstallMessageHandler(tallymere::program::hear);
    return RUN_ALL_TESTS();
}
