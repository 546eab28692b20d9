#include "Journey.h"

#include <QFile>
#include <QFileInfo>
#include <QTableWidget>

#include <support/MessageLog.h>

namespace tallymere {
namespace {

using tlm::testing::expectMessage;
using tlm::testing::MessageBoxAnswerer;
using tlm::testing::shownWindow;

using BudgetFileJourneyTest = Journey;

TEST_F(BudgetFileJourneyTest, ANewBudgetIsSavedLeftAndFoundAgain)
{
    auto const path = home.path("Documents/family.budget");
    startSample();
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(status(), "Created New Budget");
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    chooseFile("family.budget");
    ASSERT_EQ(status(), QStringLiteral("Saved: '%1'").arg(path));
    ASSERT_TRUE(window().windowTitle().startsWith("family.budget"));
    changeSomething();
    press(Qt::Key_S, Qt::ControlModifier);
    auto const left = program->session().household().content();
    press(Qt::Key_Q, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window().isVisible(); })) << "nothing is unsaved, so nothing is asked";
    program.reset();

    startOn(path);

    EXPECT_EQ(program->session().household().content(), left);
    EXPECT_EQ(find<QTableWidget>("budgetItemsDueTblwdgt").rowCount(), 0);
}

TEST_F(BudgetFileJourneyTest, UnsavedChangesKeepTheWindowOpenUntilAYes)
{
    start({});
    changeSomething();
    {
        MessageBoxAnswerer const no(QMessageBox::No);
        press(Qt::Key_Q, Qt::ControlModifier);
        ASSERT_TRUE(QTest::qWaitFor([&no] { return no.hasAnswered(); }));
        EXPECT_EQ(no.text(), "Are you sure you wish to exit?\nThere are unsaved changes. Exiting will lose all current "
                             "changes.");
    }
    EXPECT_TRUE(window().isVisible());
    MessageBoxAnswerer const yes(QMessageBox::Yes);
    window().close();

    EXPECT_TRUE(QTest::qWaitFor([this] { return !window().isVisible(); }));
    EXPECT_TRUE(yes.hasAnswered());
}

TEST_F(BudgetFileJourneyTest, EscapeOnTheExitQuestionStays)
{
    start({});
    changeSomething();
    MessageBoxAnswerer const escape([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });

    window().close();

    ASSERT_TRUE(QTest::qWaitFor([&escape] { return escape.hasAnswered(); }));
    EXPECT_TRUE(window().isVisible());
}

TEST_F(BudgetFileJourneyTest, AFileChosenInTheDialogOpens)
{
    auto const path = home.path("Documents/other.budget");
    storage::Document::create(storage::Places::ofUser(), engine::emptyContent(QLocale()))->saveAs(path);
    startSample();

    press(Qt::Key_O, Qt::ControlModifier);
    chooseFile("other.budget");

    EXPECT_EQ(status(), QStringLiteral("Opened: '%1'").arg(path));
    EXPECT_TRUE(QTest::qWaitFor([this] { return find<QTableWidget>("budgetItemsDueTblwdgt").rowCount() == 0; }))
        << "the sample's dashboard gives way";
}

TEST_F(BudgetFileJourneyTest, LookingAroundInTheSampleLeavesTheNextStartToTheBudgetOpenedLast)
{
    auto const path = home.path("Documents/family.budget");
    storage::Document::create(storage::Places::ofUser(), engine::emptyContent(QLocale()))->saveAs(path);
    startOn(path);
    program.reset();
    startSample();
    ASSERT_NE(program->session().document().filePathName(), path);
    program.reset();

    start({});

    EXPECT_EQ(program->session().document().filePathName(), path);
}

TEST_F(BudgetFileJourneyTest, WorkSavedInTheSampleIsThereAtTheNextStart)
{
    startSample();
    changeSomething();
    press(Qt::Key_S, Qt::ControlModifier);
    auto const sample = program->session().document().filePathName();
    auto const left = program->session().household().content();
    program.reset();

    start({});

    EXPECT_EQ(program->session().document().filePathName(), sample);
    EXPECT_EQ(program->session().household().content(), left);
}

TEST_F(BudgetFileJourneyTest, AFileThatCannotBeOpenedNeverKeepsTheProgramFromStarting)
{
    QFile foreign(home.path("letter.budget"));
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
    foreign.write("Dear Sir or Madam");
    foreign.close();
    expectMessage(QtWarningMsg, "Open Budget");

    startOn(foreign.fileName());

    auto* const box = shownWindow<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->text().contains("letter.budget"));
    box->button(QMessageBox::Ok)->click();
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(find<QTableWidget>("budgetItemsDueTblwdgt").rowCount(), 0);
}
}
}
