#include "Journey.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace tallymere {
namespace {

using tlm::testing::MessageBoxAnswerer;

class RecoveryJourneyTest : public Journey
{
protected:
    /// Has another process open \a path, change it, and die without a chance to tidy up.
    static void crashOn(QString const& path)
    {
        auto const crashing = fork();
        if (crashing == 0) {
            auto const document = storage::Document::open(storage::Places::ofUser(), path);
            engine::Household household(document->content(), *document);
            auto settings = household.content().settings;
            settings.dueWithin = std::chrono::days(33);
            household.configure(settings);
            raise(SIGKILL);
        }
        waitpid(crashing, nullptr, 0);
    }

    static void click(QMessageBox& box, QString const& text)
    {
        for (auto* const button : box.buttons()) {
            if (button->text().remove('&') == text) {
                button->click();
                return;
            }
        }
        ADD_FAILURE() << "no button " << text.toStdString();
    }

    RecoveryJourneyTest()
    {
        storage::Document::create(storage::Places::ofUser(), engine::emptyContent(QLocale()))->saveAs(path);
        crashOn(path);
    }

    std::chrono::days dueWithin() { return program->session().household().content().settings.dueWithin; }

    QString path = home.path("family.budget");
};

TEST_F(RecoveryJourneyTest, WhatACrashLeftUnsavedIsRecovered)
{
    MessageBoxAnswerer const recover([](QMessageBox& box) { click(box, "Recover"); });

    start({});

    EXPECT_TRUE(recover.text().contains("family.budget"));
    EXPECT_EQ(dueWithin(), std::chrono::days(33));
    EXPECT_TRUE(program->session().isDirty());
    EXPECT_TRUE(window().isWindowModified());
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(storage::Document::orphans(storage::Places::ofUser()).size(), 0U);
    program.reset();
    startOn(path);
    EXPECT_EQ(dueWithin(), std::chrono::days(33));
}

TEST_F(RecoveryJourneyTest, WhatIsDiscardedIsNotOfferedAgain)
{
    MessageBoxAnswerer const discard([](QMessageBox& box) { click(box, "Discard"); });

    startOn(path);

    EXPECT_TRUE(discard.hasAnswered());
    EXPECT_NE(dueWithin(), std::chrono::days(33));
    EXPECT_TRUE(storage::Document::orphans(storage::Places::ofUser()).empty());
}

TEST_F(RecoveryJourneyTest, WhatIsPutOffIsOfferedAtTheNextStart)
{
    {
        MessageBoxAnswerer const later([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        start({});
        EXPECT_TRUE(later.hasAnswered());
    }
    program.reset();
    MessageBoxAnswerer const recover([](QMessageBox& box) { click(box, "Recover"); });

    start({});

    EXPECT_EQ(dueWithin(), std::chrono::days(33));
}
}
}
