#include "StorageTest.h"

#include <QDir>
#include <QProcess>
#include <QSysInfo>

#include <sys/wait.h>
#include <unistd.h>

namespace tallymere::storage {

using namespace testing;
using ::testing::HasSubstr;

/// Locks, backups, and what a crash leaves behind.
class SafekeepingTest : public StorageTest
{
protected:
    /// Runs the driver of these tests until it says that it is ready.
    void start(QProcess& driver, QString const& task, QString const& filePathName)
    {
        driver.start(STORAGE_DRIVER, {task, folder.filePath("data"), filePathName});
        ASSERT_TRUE(driver.waitForReadyRead(30'000)) << driver.readAllStandardError().toStdString();
        ASSERT_EQ(driver.readLine(), "ready\n");
    }

    /// Lets a program change a budget, and crash.
    void crash(QString const& filePathName)
    {
        QProcess driver;
        start(driver, "hold", filePathName);
        driver.kill();
        ASSERT_TRUE(driver.waitForFinished());
    }

    QDir backups() const
    {
        QDir const all(places.backups);
        auto const folders = all.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        EXPECT_EQ(folders.size(), 1);
        return all.filePath(folders.value(0));
    }
};

TEST_F(SafekeepingTest, AFileOpenInThisProgramIsRefused)
{
    save(at("home.budget"));
    ASSERT_TRUE(QFile::link("home.budget", at("link.budget")));
    auto const document = Document::open(places, at("home.budget"));
    auto const other = Document::create(places, household());

    EXPECT_THAT(refusalOf([&] { Document::open(places, at("home.budget")); }).toStdString(),
                HasSubstr("open here already"));
    EXPECT_THAT(refusalOf([&] { Document::open(places, at("link.budget")); }).toStdString(),
                HasSubstr("open here already"));
    EXPECT_THAT(refusalOf([&] { other->saveAs(at("home.budget")); }).toStdString(), HasSubstr("open here already"));
}

TEST_F(SafekeepingTest, AFileOpenInAnotherProgramIsRefusedWithItsProcessAndHost)
{
    save(at("home.budget"));
    QProcess driver;
    start(driver, "hold", at("home.budget"));

    auto const sentence = refusalOf([&] { Document::open(places, at("home.budget")); }).toStdString();

    EXPECT_THAT(sentence, HasSubstr(std::to_string(driver.processId())));
    EXPECT_THAT(sentence, HasSubstr(QSysInfo::machineHostName().toStdString()));
    EXPECT_TRUE(Document::orphans(places).empty());
    driver.closeWriteChannel();
    ASSERT_TRUE(driver.waitForFinished());
    EXPECT_NO_THROW(Document::open(places, at("home.budget")));
}

TEST_F(SafekeepingTest, ACrashWithABudgetThatWasOnlyLookedAtLeavesNothingToRecover)
{
    save(at("home.budget"));
    QProcess driver;
    start(driver, "look", at("home.budget"));
    ASSERT_FALSE(workingFiles().isEmpty());
    driver.kill();
    driver.waitForFinished();

    auto const orphans = Document::orphans(places);

    EXPECT_TRUE(orphans.empty());
    EXPECT_TRUE(workingFiles().isEmpty()) << "what is of no use is tidied away";
    EXPECT_EQ(contentOf(at("home.budget")), household());
}

TEST_F(SafekeepingTest, TheLockOfACrashedProgramIsTakenOver)
{
    save(at("home.budget"));
    crash(at("home.budget"));
    auto const isLock = [](QString const& name) { return name.endsWith(".lock"); };
    ASSERT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).filter(".lock").size(), 1);

    EXPECT_NO_THROW(Document::open(places, at("home.budget")));

    EXPECT_TRUE(std::ranges::none_of(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), isLock));
}

TEST_F(SafekeepingTest, TheLockOfAnotherComputerStandsUntilItsFileIsRemoved)
{
    save(at("home.budget"));
    crash(at("home.budget"));
    auto const lock = at(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).filter(".lock").value(0));
    writeBytes(lock, R"({"host":"kitchen","machine":"0f","process":4711,"program":"tallymere"})");

    auto const sentence = refusalOf([&] { Document::open(places, at("home.budget")); }).toStdString();

    EXPECT_THAT(sentence, HasSubstr("4711"));
    EXPECT_THAT(sentence, HasSubstr("'kitchen'"));
    EXPECT_THAT(sentence, HasSubstr(lock.toStdString()));
    ASSERT_TRUE(QFile::remove(lock));
    EXPECT_NO_THROW(Document::open(places, at("home.budget")));
}

TEST_F(SafekeepingTest, ALockThatWasTakenSinceItsFileWasRemovedStays)
{
    save(at("home.budget"));
    auto earlier = Document::open(places, at("home.budget"));
    ASSERT_TRUE(QFile::remove(at(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).filter(".lock").value(0))));
    auto const later = Document::open(places, at("home.budget"));

    earlier.reset();

    EXPECT_THAT(refusalOf([&] { Document::open(places, at("home.budget")); }).toStdString(),
                HasSubstr("open here already"));
}

TEST_F(SafekeepingTest, AnEmptyLockFileIsTakenOver)
{
    save(at("home.budget"));
    crash(at("home.budget"));
    writeBytes(at(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).filter(".lock").value(0)), "");

    EXPECT_NO_THROW(Document::open(places, at("home.budget")));
}

TEST_F(SafekeepingTest, ACrashLeavesItsUnsavedWorkForRecovery)
{
    save(at("home.budget"), billsOnly(0));
    crash(at("home.budget"));

    auto const orphans = Document::orphans(places);

    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_EQ(orphans[0].filePathName, at("home.budget"));
    EXPECT_LT(orphans[0].changedOn.secsTo(QDateTime::currentDateTime()), 60);
    auto document = Document::recover(places, orphans[0]);
    EXPECT_EQ(document->content(), billsOnly(1));
    EXPECT_EQ(document->filePathName(), at("home.budget"));
    EXPECT_TRUE(document->isDirty());
    EXPECT_TRUE(Document::orphans(places).empty());
    document->save();
    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(contentOf(at("home.budget")), billsOnly(1));
    document.reset();
    EXPECT_EQ(workingFiles(), QStringList());
}

TEST_F(SafekeepingTest, WorkThatNeverHadAFileIsRecoveredWithoutOne)
{
    crash(QString());

    auto const orphans = Document::orphans(places);

    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_EQ(orphans[0].filePathName, QString());
    auto const document = Document::recover(places, orphans[0]);
    EXPECT_EQ(document->content(), billsOnly(1));
    EXPECT_EQ(document->filePathName(), QString());
    EXPECT_TRUE(document->isDirty());
}

TEST_F(SafekeepingTest, WorkWhoseFolderHasGoneIsRecoveredWithoutAFile)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("stick"));
    save(at("stick/home.budget"), billsOnly(0));
    crash(at("stick/home.budget"));
    ASSERT_TRUE(QDir(at("stick")).removeRecursively());

    auto const document = Document::recover(places, Document::orphans(places).at(0));

    EXPECT_EQ(document->content(), billsOnly(1));
    EXPECT_EQ(document->filePathName(), QString());
}

TEST_F(SafekeepingTest, WorkWhoseFileIsOpenStaysWhereItIs)
{
    save(at("home.budget"), billsOnly(0));
    crash(at("home.budget"));
    auto const orphans = Document::orphans(places);
    ASSERT_EQ(orphans.size(), 1U);
    auto document = Document::open(places, at("home.budget"));

    EXPECT_THAT(refusalOf([&] { Document::recover(places, orphans[0]); }).toStdString(),
                HasSubstr("open here already"));

    document.reset();
    EXPECT_EQ(Document::recover(places, orphans[0])->content(), billsOnly(1));
}

TEST_F(SafekeepingTest, WorkThatIsNotTakenOverStaysToBeRecovered)
{
    save(at("home.budget"), billsOnly(0));
    crash(at("home.budget"));
    auto const orphan = Document::orphans(places).at(0);

    EXPECT_THROW(Document::recover(places, orphan, [](Document&) { throw std::runtime_error("no"); }),
                 std::runtime_error);

    EXPECT_EQ(Document::orphans(places).size(), 1U);
    EXPECT_EQ(Document::recover(places, orphan)->content(), billsOnly(1));
}

TEST_F(SafekeepingTest, DiscardedWorkIsNotOfferedAgain)
{
    save(at("home.budget"), billsOnly(0));
    crash(at("home.budget"));

    Document::discard(Document::orphans(places).at(0));

    EXPECT_TRUE(Document::orphans(places).empty());
    EXPECT_EQ(workingFiles(), QStringList());
    EXPECT_EQ(contentOf(at("home.budget")), billsOnly(0));
}

TEST_F(SafekeepingTest, WorkThatStandsInTheFileIsNotOffered)
{
    save(at("home.budget"), billsOnly(0));
    crash(at("home.budget"));
    save(at("same.budget"), billsOnly(1), payments(1));
    writeBytes(at("home.budget"), bytesOf(at("same.budget")));

    EXPECT_TRUE(Document::orphans(places).empty());

    EXPECT_EQ(workingFiles(), QStringList());
}

TEST_F(SafekeepingTest, DamagedWorkIsOfferedRefusedAndKept)
{
    save(at("home.budget"), billsOnly(0));
    crash(at("home.budget"));
    auto const orphan = Document::orphans(places).at(0);
    writeBytes(orphan.workingCopy, bytesOf(orphan.workingCopy).left(5'000));

    ASSERT_EQ(Document::orphans(places).size(), 1U);
    EXPECT_NE(refusalOf([&] { Document::recover(places, orphan); }), QString());

    EXPECT_EQ(bytesOf(orphan.workingCopy).size(), 5'000);
}

TEST_F(SafekeepingTest, WhatIsLeftOfAWorkingCopyThatWasNeverCompleteIsTidiedAway)
{
    ASSERT_TRUE(QDir().mkpath(places.workingCopies));
    writeBytes(places.workingCopies + "/0123456789abcdef.budget", "half");
    writeBytes(places.workingCopies + "/fedcba9876543210.lock", "");

    EXPECT_TRUE(Document::orphans(places).empty());

    EXPECT_EQ(workingFiles(), QStringList());
}

TEST_F(SafekeepingTest, TheLastFiveSavesAreKept)
{
    auto const document = Document::create(places, billsOnly(0));
    document->saveAs(at("home.budget"));
    for (auto number = 0; number < 6; ++number) {
        plan(*document, number);
        document->save();
    }

    auto const kept = backups();

    EXPECT_EQ(kept.entryList(QDir::Files | QDir::Hidden, QDir::Name),
              (QStringList{"3.budget", "4.budget", "5.budget", "6.budget", "7.budget"}));
    for (auto number = 3; number <= 7; ++number) {
        EXPECT_EQ(contentOf(kept.filePath(QStringLiteral("%1.budget").arg(number))), billsOnly(number - 1));
    }
}

TEST_F(SafekeepingTest, OtherFilesAmongTheBackupsAreLeftAlone)
{
    auto const document = Document::create(places, billsOnly(0));
    document->saveAs(at("home.budget"));
    QStringList const others{"007.budget", "2147483647.budget", "copy.budget"};
    for (auto const& name : others) {
        writeBytes(backups().filePath(name), "mine");
    }

    plan(*document, 1);
    document->save();

    EXPECT_EQ(backups().entryList(QDir::Files, QDir::Name),
              (QStringList{others[0], "1.budget", "2.budget", others[1], others[2]}));
    EXPECT_EQ(contentOf(backups().filePath("2.budget")), document->content());
}

TEST_F(SafekeepingTest, WhatAnotherProgramWroteIsKeptBeforeItIsReplaced)
{
    save(at("home.budget"));
    auto const document = Document::open(places, at("home.budget"));
    plan(*document, 1);
    writeBytes(at("home.budget"), "another program's words");

    document->save();

    EXPECT_EQ(bytesOf(backups().filePath("2.budget")), "another program's words");
    EXPECT_EQ(contentOf(backups().filePath("3.budget")), document->content());
    EXPECT_EQ(contentOf(at("home.budget")), document->content());
}

TEST_F(SafekeepingTest, SavingTheSameTwiceKeepsOneBackup)
{
    auto const document = Document::create(places, household());
    document->saveAs(at("home.budget"));

    document->save();
    document->save();

    EXPECT_EQ(backups().entryList(QDir::Files), QStringList{"1.budget"});
}

TEST_F(SafekeepingTest, ABackupOpensAsABudget)
{
    save(at("home.budget"));

    EXPECT_EQ(Document::open(places, backups().filePath("1.budget"))->content(), household());
}
}
