#include "MessageBoxAnswer.h"

#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>
#include <support/MessageLog.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using tlm::testing::child;
using tlm::testing::MessageBoxAnswer;
using tlm::testing::MessageLog;

namespace {

/// Marks every text that passes through it.
class MarkingTranslator : public QTranslator
{
public:
    MarkingTranslator() { QCoreApplication::installTranslator(this); }

    QString translate(char const* /*context*/, char const* source, char const* /*disambiguation*/,
                      int /*n*/) const override
    {
        return QStringLiteral("translated: ") + QString::fromUtf8(source);
    }
    bool isEmpty() const override { return false; }
};

/// Every way to say No to a question.
struct Refusal
{
    char const* name;
    void (*act)(QMessageBox&);
};

std::ostream& operator<<(std::ostream& out, Refusal const& refusal)
{
    return out << refusal.name;
}

constexpr Refusal refusals[] = {
    {"No", [](QMessageBox& box) { box.button(QMessageBox::No)->click(); }},
    {"Escape", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }},
    {"CloseButton", [](QMessageBox& box) { box.close(); }},
    {"ReturnOnTheDefaultButton", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }},
};

void expectQuestion(MessageBoxAnswer const& answer, MainWindow const& window, QString const& title, QString const& text)
{
    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(answer.asked()->title, title);
    EXPECT_EQ(answer.asked()->text, text);
    EXPECT_EQ(answer.asked()->icon, QMessageBox::Question);
    EXPECT_EQ(answer.asked()->buttons, QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(answer.asked()->byDefault, QMessageBox::No);
    EXPECT_EQ(answer.asked()->parent, &window);
}
}

class MainWindowBudgetFileTest : public ::testing::Test
{
protected:
    void expectStatus(QString const& message)
    {
        EXPECT_EQ(status.currentMessage(), message);
        EXPECT_EQ(status.findChild<QTimer*>()->interval(), 5000);
    }

    void trigger(QString const& action) { child<QAction>(window, action).trigger(); }

    void confirmNewBudget(QMessageBox::StandardButton button)
    {
        MessageBoxAnswer const answer(button);
        window.onShowConfirmNewBudget();
        ASSERT_TRUE(answer.asked());
    }

    QFileDialog& fileDialog() { return *window.findChild<QFileDialog*>(); }

    navigation::ConfigurationOptions const options{true, false};
    MainWindow window{options};
    QStatusBar& status = child<QStatusBar>(window, "infoSttsbr");
    QSignalSpy confirmedEmpty{&window, &MainWindow::confirmedNewBudgetEmpty};
    QSignalSpy confirmedWizard{&window, &MainWindow::confirmedNewBudgetFirstTimeWizard};
    QSignalSpy confirmedLoad{&window, &MainWindow::confirmedLoadBudgetFile};
    QSignalSpy load{&window, &MainWindow::loadBudgetFile};
    QSignalSpy saveAs{&window, &MainWindow::saveAsBudgetFile};
    QSignalSpy dashboard{&window, &MainWindow::prepareShowDashboard};
};

class MainWindowRefusalTest : public MainWindowBudgetFileTest, public ::testing::WithParamInterface<Refusal>
{};

TEST_F(MainWindowBudgetFileTest, ANewBudgetIsConfirmedAsTheKindWishedFor)
{
    trigger("emptyActn");
    MessageBoxAnswer const answer(QMessageBox::Yes);
    window.onShowConfirmNewBudget();

    expectQuestion(answer, window, "Confirm New Budget",
                   "Are you sure you wish to create a new budget?\nThis will lose all current changes.");
    EXPECT_EQ(confirmedEmpty.count(), 1);
    EXPECT_EQ(confirmedWizard.count(), 0);

    trigger("wizardActn");
    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedEmpty.count(), 1);
    EXPECT_EQ(confirmedWizard.count(), 1);
}

TEST_F(MainWindowBudgetFileTest, ANewBudgetThatNobodyWishedForIsEmpty)
{
    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedEmpty.count(), 1);
    EXPECT_EQ(confirmedWizard.count(), 0);
}

TEST_F(MainWindowBudgetFileTest, TheKindWishedForIsForgottenOnceConfirmed)
{
    trigger("wizardActn");
    confirmNewBudget(QMessageBox::Yes);

    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedWizard.count(), 1);
    EXPECT_EQ(confirmedEmpty.count(), 1);
}

TEST_F(MainWindowBudgetFileTest, TheNextWishReplacesTheOneBefore)
{
    trigger("wizardActn");
    trigger("emptyActn");

    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedEmpty.count(), 1);
    EXPECT_EQ(confirmedWizard.count(), 0);
}

TEST_P(MainWindowRefusalTest, ADeclinedNewBudgetKeepsTheKindWishedFor)
{
    trigger("wizardActn");
    MessageBoxAnswer const answer(GetParam().act);
    window.onShowConfirmNewBudget();
    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(confirmedEmpty.count() + confirmedWizard.count(), 0);

    confirmNewBudget(QMessageBox::Yes);

    EXPECT_EQ(confirmedWizard.count(), 1);
}

TEST_F(MainWindowBudgetFileTest, ADeclinedNewBudgetHasNoEffectOnOpening)
{
    trigger("wizardActn");
    confirmNewBudget(QMessageBox::No);
    MessageBoxAnswer const answer(QMessageBox::Yes);

    window.onShowConfirmLoadBudgetFile("/home/a/home.budget");

    EXPECT_EQ(confirmedLoad.count(), 1);
    EXPECT_EQ(confirmedEmpty.count() + confirmedWizard.count(), 0);
}

TEST_F(MainWindowBudgetFileTest, ANewBudgetIsToldAndLeadsToTheDashboard)
{
    window.onShowNewBudget();

    expectStatus("Created New Budget");
    EXPECT_EQ(dashboard.count(), 1);
}

TEST_F(MainWindowBudgetFileTest, OpeningOffersBudgetFilesWithoutBlocking)
{
    window.show();

    trigger("openActn");

    auto const& dialog = fileDialog();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(dialog.parent(), &window);
    EXPECT_EQ(dialog.windowTitle(), "Open Budget");
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
    EXPECT_EQ(dialog.nameFilters(), QStringList({"Budget Files (*.budget)", "All Files (*.*)"}));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("Displaying Open Budget File Dialog."));
}

TEST_F(MainWindowBudgetFileTest, FilesAreLookedForAmongThePersonsDocuments)
{
    auto const home = qgetenv("HOME");
    QTemporaryDir const folder;
    qputenv("HOME", QFile::encodeName(folder.path()));
    auto const documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    ASSERT_TRUE(QDir().mkpath(documents));

    window.onShowOpenBudgetFile();
    auto const looksIn = fileDialog().directory().absolutePath();
    qputenv("HOME", home);

    EXPECT_THAT(documents.toStdString(), ::testing::StartsWith(folder.path().toStdString()));
    EXPECT_EQ(looksIn, documents);
}

TEST_F(MainWindowBudgetFileTest, AChosenFileIsToBeLoadedAndItsDialogGoes)
{
    QTemporaryDir const folder;
    auto const path = folder.filePath("home.budget");
    QFile(path).open(QIODevice::WriteOnly);
    trigger("openActn");
    QPointer<QFileDialog> const dialog = &fileDialog();

    dialog->setDirectory(folder.path());
    child<QLineEdit>(*dialog, "fileNameEdit").setText("home.budget");
    QTest::keyClick(&child<QLineEdit>(*dialog, "fileNameEdit"), Qt::Key_Return);

    ASSERT_EQ(load.count(), 1);
    EXPECT_EQ(load.at(0).at(0).toString(), path);
    EXPECT_EQ(saveAs.count(), 0);
    QApplication::sendPostedEvents(dialog, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(MainWindowBudgetFileTest, ACancelledDialogAsksForNothingAndGoes)
{
    for (auto const* const action : {"openActn", "saveAsActn"}) {
        trigger(action);
        QPointer<QFileDialog> const dialog = &fileDialog();

        QTest::keyClick(dialog, Qt::Key_Escape);

        QApplication::sendPostedEvents(dialog, QEvent::DeferredDelete);
        EXPECT_TRUE(dialog.isNull());
    }
    EXPECT_EQ(load.count() + saveAs.count(), 0);
}

TEST_F(MainWindowBudgetFileTest, SavingAsOffersBudgetFilesWithoutBlocking)
{
    window.show();

    trigger("saveAsActn");

    auto const& dialog = fileDialog();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(dialog.parent(), &window);
    EXPECT_EQ(dialog.windowTitle(), "Save Budget As...");
    EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog.nameFilters(), QStringList({"Budget Files (*.budget)", "All Files (*.*)"}));
    EXPECT_EQ(dialog.defaultSuffix(), "");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("Displaying Save As Budget File Dialog."));
}

TEST_F(MainWindowBudgetFileTest, APathToSaveUnderGoesOutAsTyped)
{
    QTemporaryDir const folder;
    window.onShowSaveAsBudgetFile();
    auto& dialog = fileDialog();

    dialog.setDirectory(folder.path());
    child<QLineEdit>(dialog, "fileNameEdit").setText("no suffix");
    QTest::keyClick(&child<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);

    ASSERT_EQ(saveAs.count(), 1);
    EXPECT_EQ(saveAs.at(0).at(0).toString(), folder.filePath("no suffix"));
    EXPECT_EQ(load.count(), 0);
}

TEST_F(MainWindowBudgetFileTest, TheFilterIsOlderThanAnyTranslator)
{
    MarkingTranslator const translator;

    window.onShowOpenBudgetFile();

    EXPECT_EQ(fileDialog().windowTitle(), "translated: Open Budget");
    EXPECT_EQ(fileDialog().nameFilters(), QStringList({"Budget Files (*.budget)", "All Files (*.*)"}));
}

TEST_F(MainWindowBudgetFileTest, OpeningOverChangesIsConfirmed)
{
    MessageBoxAnswer const answer(QMessageBox::Yes);

    window.onShowConfirmLoadBudgetFile("/home/a/it's 100%1.budget");

    expectQuestion(answer, window, "Confirm Open Budget",
                   "Are you sure you wish to open a the budget file:\n\t'/home/a/it's 100%1.budget'?\n"
                   "This will lose all the current changes.");
    ASSERT_EQ(confirmedLoad.count(), 1);
    EXPECT_EQ(confirmedLoad.at(0), QVariantList({"/home/a/it's 100%1.budget", false}));
}

TEST_P(MainWindowRefusalTest, ADeclinedOpeningAsksForNothing)
{
    MessageBoxAnswer const answer(GetParam().act);

    window.onShowConfirmLoadBudgetFile("/home/a/home.budget");

    ASSERT_TRUE(answer.asked());
    EXPECT_EQ(confirmedLoad.count(), 0);
}

TEST_F(MainWindowBudgetFileTest, ALoadedBudgetIsToldByItsPathAsItStands)
{
    window.onLoadedBudgetFile("/home/a/it's %2.budget", false);
    expectStatus("Opened: '/home/a/it's %2.budget'");

    window.onLoadedBudgetFile("/home/a/home.budget", true);
    expectStatus("Reloaded: '/home/a/home.budget'");

    EXPECT_EQ(dashboard.count(), 2);
}

TEST_F(MainWindowBudgetFileTest, TheViewOfTheBudgetBeforeIsOnItsWayOutWhenTheDashboardIsAskedFor)
{
    QPointer<QWidget> const before = window.centralWidget();
    QPointer<QWidget> const after = new QWidget;
    auto stoodUntilAsked = false;
    QObject::connect(&window, &MainWindow::prepareShowDashboard, &window, [&] {
        stoodUntilAsked = !before.isNull();
        QApplication::sendPostedEvents(before, QEvent::DeferredDelete);
        EXPECT_TRUE(before.isNull()) << "its end has to be under way";
        window.setCentralWidget(after);
    });

    window.onLoadedBudgetFile("/home/a/home.budget", false);

    EXPECT_TRUE(stoodUntilAsked);
    EXPECT_EQ(window.centralWidget(), after);
}

TEST_F(MainWindowBudgetFileTest, OldAndNewViewStandSideBySideForATurnOfTheEventLoop)
{
    QPointer<QWidget> const before = window.centralWidget();
    QPointer<QWidget> const after = new QWidget;
    QObject::connect(&window, &MainWindow::prepareShowDashboard, &window, [&] { window.setCentralWidget(after); });

    window.onLoadedBudgetFile("/home/a/home.budget", false);
    EXPECT_FALSE(before.isNull());

    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(before.isNull());
    EXPECT_FALSE(after.isNull());
    EXPECT_EQ(window.centralWidget(), after);
}

TEST_F(MainWindowBudgetFileTest, LoadingTwiceWithoutAnAnswerLeavesNoView)
{
    window.onLoadedBudgetFile("/home/a/home.budget", false);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(window.centralWidget(), nullptr);

    window.onLoadedBudgetFile("/home/a/other.budget", false);

    EXPECT_EQ(dashboard.count(), 2);
}

TEST_F(MainWindowBudgetFileTest, ASavedBudgetIsTold)
{
    window.onSavedBudgetFile("/home/a/it's %1.budget");

    expectStatus("Saved: '/home/a/it's %1.budget'");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("Successfully stored budget."));
}

TEST_F(MainWindowBudgetFileTest, ThatThereIsNothingToReloadIsTold)
{
    window.onShowNoBudgetFileOpened();

    expectStatus("No budget file opened to reload.");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains("There is not a budget file currently to reload."));
}

TEST_F(MainWindowBudgetFileTest, ACleanBudgetClosesWithoutAQuestion)
{
    window.show();
    MessageBoxAnswer const answer(QMessageBox::No);

    window.onCheckCleanExit(false);
    QApplication::processEvents();

    EXPECT_FALSE(answer.asked());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowBudgetFileTest, ADirtyBudgetClosesUnsavedWhenThePersonAgrees)
{
    QSignalSpy const save(&window, &MainWindow::saveBudgetFile);
    window.show();
    MessageBoxAnswer const answer(QMessageBox::Yes);

    window.onCheckCleanExit(true);

    expectQuestion(answer, window, "Confirm Exiting",
                   "Are you sure you wish to exit?\nThere are unsaved changes. Exiting will lose all current changes.");
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(save.count(), 0);
}

TEST_P(MainWindowRefusalTest, ADirtyBudgetStaysOpenWhenThePersonDeclinesAndIsAskedAbout)
{
    QSignalSpy check(&window, &MainWindow::checkIsBudgetFileDirty);
    window.show();
    MessageBoxAnswer const answer(GetParam().act);

    window.onCheckCleanExit(true);
    ASSERT_TRUE(answer.asked());
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.close());

    EXPECT_TRUE(check.wait(1000));
    EXPECT_TRUE(window.isVisible());
}

INSTANTIATE_TEST_SUITE_P(EveryWay, MainWindowRefusalTest, ::testing::ValuesIn(refusals),
                         [](auto const& row) { return std::string(row.param.name); });
}
