#include "MainWindowBudgetFixture.h"

#include <QLineEdit>
#include <QPointer>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <gmock/gmock.h>
#include <support/MessageLog.h>

namespace tlm::desktop_ui {

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
}
