#include <program/Application.h>

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>
#include <stdexcept>
#include <support/Dialogs.h>

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
    ApplicationTest()
    {
        logged.clear();
        button.show();
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

    QPushButton button;
};

TEST_F(ApplicationTest, WhatLeavesASlotIsToldAndLogged)
{
    QObject::connect(&button, &QPushButton::clicked, [] { throw std::runtime_error("Zürich has no rate."); });

    QTest::mouseClick(&button, Qt::LeftButton);

    EXPECT_TRUE(readBox().contains("Zürich has no rate."));
    ASSERT_EQ(logged.size(), 1);
    EXPECT_TRUE(logged.constFirst().contains("Zürich has no rate."));
}

TEST_F(ApplicationTest, WhatIsNoExceptionIsToldToo)
{
    QObject::connect(&button, &QPushButton::clicked, [] { throw 7; });

    QTest::mouseClick(&button, Qt::LeftButton);

    EXPECT_TRUE(readBox().contains("cause"));
    EXPECT_EQ(logged.size(), 1);
}

TEST_F(ApplicationTest, TheProgramGoesOnAfterAFailure)
{
    auto clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&clicks] {
        if (++clicks == 1) {
            throw std::runtime_error("once");
        }
    });

    QTest::mouseClick(&button, Qt::LeftButton);
    readBox();
    QTest::mouseClick(&button, Qt::LeftButton);

    EXPECT_EQ(clicks, 2);
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
