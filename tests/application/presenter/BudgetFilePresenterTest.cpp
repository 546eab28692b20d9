#include "Fixture.h"
#include "FullDisk.h"

#include <presenter/BudgetFilePresenter.h>
#include <presenter/DashboardPresenter.h>

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QSignalSpy>

namespace tallymere::presenter {
namespace {

using tlm::desktop_ui::MainWindow;
using tlm::testing::expectMessage;
using tlm::testing::MessageBoxAnswerer;
using tlm::testing::shownWindow;

class BudgetFilePresenterTest : public PresenterTest
{
protected:
    void openSample()
    {
        path = writeSample("sample.budget");
        session.open(path);
    }

    /// Reads and closes the message box that tells of a failure.
    static QString readFailure()
    {
        auto* const box = shownWindow<QMessageBox>();
        if (box == nullptr) {
            return {};
        }
        auto text = box->text();
        box->button(QMessageBox::Ok)->click();
        return text;
    }

    QString path;
    BudgetFilePresenter presenter{window, session};
    QSignalSpy dashboards{&window, &MainWindow::prepareShowDashboard};
};

TEST_F(BudgetFilePresenterTest, ACleanBudgetGivesWayToANewOneUnasked)
{
    openSample();

    emit window.prepareNewBudgetEmpty();

    EXPECT_TRUE(session.household().content().items.empty());
    EXPECT_EQ(status(), "Created New Budget");
    EXPECT_EQ(dashboards.count(), 1);
}

TEST_F(BudgetFilePresenterTest, UnsavedChangesAreLostToANewBudgetOnlyAfterAYes)
{
    openSample();
    changeSomething();
    MessageBoxAnswerer const no(QMessageBox::No);

    emit window.prepareNewBudgetEmpty();

    EXPECT_TRUE(no.hasAnswered());
    EXPECT_FALSE(session.household().content().items.empty());
    MessageBoxAnswerer const yes(QMessageBox::Yes);
    emit window.prepareNewBudgetEmpty();
    EXPECT_TRUE(yes.hasAnswered());
    EXPECT_TRUE(session.household().content().items.empty());
}

TEST_F(BudgetFilePresenterTest, ANameThatLooksLikeMarkupIsToldAsItIs)
{
    expectMessage(QtWarningMsg, "Open Budget");

    emit window.loadBudgetFile(home.path("<img src='x'>.budget"));

    auto* const box = shownWindow<QMessageBox>();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->text().contains("<img src='x'>.budget"));
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    box->button(QMessageBox::Ok)->click();
}

TEST_F(BudgetFilePresenterTest, OpensAFileAndShowsItsDashboard)
{
    auto const sample = writeSample("sample.budget");

    emit window.loadBudgetFile(sample);

    EXPECT_EQ(session.document().filePathName(), sample);
    EXPECT_EQ(status(), QStringLiteral("Opened: '%1'").arg(sample));
    EXPECT_EQ(dashboards.count(), 1);
}

TEST_F(BudgetFilePresenterTest, AsksBeforeAnotherFileTakesUnsavedChangesAway)
{
    auto const sample = writeSample("sample.budget");
    changeSomething();
    MessageBoxAnswerer const no(QMessageBox::No);

    emit window.loadBudgetFile(sample);

    EXPECT_EQ(no.title(), "Confirm Open Budget");
    EXPECT_TRUE(session.document().filePathName().isEmpty());
    MessageBoxAnswerer const yes(QMessageBox::Yes);
    emit window.loadBudgetFile(sample);
    EXPECT_EQ(session.document().filePathName(), sample);
}

TEST_F(BudgetFilePresenterTest, TellsWhyAFileCannotBeOpenedAndKeepsTheBudget)
{
    openSample();
    auto const before = session.household().content();
    QFile foreign(home.path("letter.budget"));
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
    foreign.write("Dear Sir or Madam");
    foreign.close();
    expectMessage(QtWarningMsg, "Open Budget");

    emit window.loadBudgetFile(foreign.fileName());

    EXPECT_TRUE(readFailure().contains("letter.budget"));
    EXPECT_EQ(session.household().content(), before);
    EXPECT_EQ(session.document().filePathName(), path);
    EXPECT_EQ(dashboards.count(), 0);
}

TEST_F(BudgetFilePresenterTest, ReloadingWithoutAFileSaysSo)
{
    emit window.reloadBudgetFile();

    EXPECT_EQ(status(), "No budget file opened to reload.");
}

TEST_F(BudgetFilePresenterTest, ReloadingReadsTheFileAgain)
{
    openSample();
    changeSomething();

    emit window.reloadBudgetFile();

    EXPECT_EQ(session.household().content(), engine::sampleHousehold(QDate::currentDate()).content);
    EXPECT_EQ(status(), QStringLiteral("Reloaded: '%1'").arg(path));
    EXPECT_EQ(dashboards.count(), 1);
}

TEST_F(BudgetFilePresenterTest, TellsWhyAFileCannotBeReadAgainAndKeepsTheBudget)
{
    openSample();
    changeSomething();
    auto const before = session.household().content();
    ASSERT_TRUE(QFile::remove(path));
    expectMessage(QtWarningMsg, "Open Budget");

    emit window.reloadBudgetFile();

    EXPECT_TRUE(readFailure().contains("it isn't there"));
    EXPECT_EQ(session.household().content(), before);
    EXPECT_EQ(dashboards.count(), 0);
    EXPECT_NE(status().left(8), "Reloaded");
}

TEST_F(BudgetFilePresenterTest, TellsWhyANewBudgetCannotBeBegunAndKeepsTheOldOne)
{
    openSample();
    auto const before = session.household().content();
    expectMessage(QtWarningMsg, "New Budget");

    {
        FullDisk const full;
        emit window.prepareNewBudgetEmpty();
    }

    EXPECT_FALSE(readFailure().isEmpty());
    EXPECT_EQ(session.household().content(), before);
    EXPECT_EQ(session.document().filePathName(), path);
    EXPECT_EQ(dashboards.count(), 0);
}

TEST_F(BudgetFilePresenterTest, TellsThatTheDiskIsFullAndKeepsTheFile)
{
    openSample();
    changeSomething();
    expectMessage(QtWarningMsg, "Save Budget");

    {
        FullDisk const full;
        emit window.saveBudgetFile();
    }

    EXPECT_TRUE(readFailure().contains("sample.budget"));
    EXPECT_TRUE(session.isDirty());
    EXPECT_NE(status().left(5), "Saved");
    emit window.saveBudgetFile();
    EXPECT_FALSE(session.isDirty());
}

TEST_F(BudgetFilePresenterTest, SavingABudgetWithoutAFileAsksForAName)
{
    emit window.saveBudgetFile();

    auto* const dialog = shownWindow<QFileDialog>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    dialog->reject();
}

TEST_F(BudgetFilePresenterTest, SavingStoresToTheOpenFile)
{
    openSample();
    changeSomething();

    emit window.saveBudgetFile();

    EXPECT_EQ(status(), QStringLiteral("Saved: '%1'").arg(path));
    EXPECT_FALSE(session.isDirty());
}

TEST_F(BudgetFilePresenterTest, ANameWithoutASuffixGetsOne)
{
    emit window.saveAsBudgetFile(home.path("family"));

    EXPECT_TRUE(QFileInfo::exists(home.path("family.budget")));
    EXPECT_FALSE(QFileInfo::exists(home.path("family")));
    EXPECT_EQ(status(), QStringLiteral("Saved: '%1'").arg(home.path("family.budget")));
    EXPECT_EQ(session.document().filePathName(), home.path("family.budget"));
}

TEST_F(BudgetFilePresenterTest, ANameThatOnlyItsSuffixMakesAnExistingOneIsAskedAbout)
{
    auto const sample = writeSample("family.budget");
    QFile file(sample);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    auto const before = file.readAll();
    MessageBoxAnswerer const no(QMessageBox::No);

    emit window.saveAsBudgetFile(home.path("family"));

    EXPECT_TRUE(no.text().contains("family.budget"));
    file.seek(0);
    EXPECT_EQ(file.readAll(), before);
    EXPECT_TRUE(session.document().filePathName().isEmpty());
}

TEST_F(BudgetFilePresenterTest, TellsWhyABudgetCannotBeSavedAndKeepsItUnsaved)
{
    changeSomething();
    expectMessage(QtWarningMsg, "Save Budget");

    emit window.saveAsBudgetFile(home.path("no such folder/family.budget"));

    EXPECT_FALSE(readFailure().isEmpty());
    EXPECT_TRUE(session.isDirty());
    EXPECT_NE(status().left(5), "Saved");
}

TEST_F(BudgetFilePresenterTest, AnExitWithNothingToLoseIsNotAskedAbout)
{
    window.QWidget::show();

    emit window.checkIsBudgetFileDirty();

    EXPECT_FALSE(window.isVisible());
}

TEST_F(BudgetFilePresenterTest, ASecondWishToExitIsNotAskedAboutWhileTheFirstIs)
{
    changeSomething();
    auto questions = 0;
    tlm::testing::MessageBoxAnswerer const no([&](QMessageBox& box) {
        emit window.checkIsBudgetFileDirty(); // which would come back only once its own question is answered
        auto const windows = QApplication::topLevelWidgets();
        questions = static_cast<int>(std::ranges::count_if(windows, [](QWidget const* shown) {
            return shown->isVisible() && qobject_cast<QMessageBox const*>(shown) != nullptr;
        }));
        box.button(QMessageBox::No)->click();
    });

    emit window.checkIsBudgetFileDirty();

    EXPECT_TRUE(no.hasAnswered());
    EXPECT_EQ(questions, 1);
}

TEST_F(BudgetFilePresenterTest, AnExitIsAskedAboutAgainAfterItWasDeclined)
{
    changeSomething();
    {
        tlm::testing::MessageBoxAnswerer const no(QMessageBox::No);
        emit window.checkIsBudgetFileDirty();
    }
    tlm::testing::MessageBoxAnswerer const again(QMessageBox::No);

    emit window.checkIsBudgetFileDirty();

    EXPECT_TRUE(again.hasAnswered());
}

TEST_F(BudgetFilePresenterTest, AnExitWithUnsavedChangesIsAskedAbout)
{
    window.QWidget::show();
    changeSomething();
    MessageBoxAnswerer const no(QMessageBox::No);

    emit window.checkIsBudgetFileDirty();

    EXPECT_EQ(no.title(), "Confirm Exiting");
    EXPECT_TRUE(window.isVisible());
}
}
}
