#include "RefusalTest.h"

#include <QDir>

#include <SQLiteCpp/Database.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tallymere::storage {

using namespace testing;
using ::testing::HasSubstr;

TEST_F(RefusalTest, WhatIsNoFileIsRefusedWithoutWaiting)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(at("pipe")).constData(), 0600), 0);

    EXPECT_THAT(refused(folder.path()), HasSubstr("it is a folder"));
    EXPECT_THAT(refused(at("pipe")), HasSubstr("not a file"));
    EXPECT_THAT(refused("/dev/zero"), HasSubstr("not a file"));
    EXPECT_THAT(refused(at("missing.budget")), HasSubstr("isn't there"));
    EXPECT_THAT(refused(at("missing/home.budget")), HasSubstr("isn't there"));
    EXPECT_THAT(refused(QString()), HasSubstr("isn't there"));
}

TEST_F(RefusalTest, WhatIsNoBudgetIsRefused)
{
    writeBytes(at("empty"), "");
    writeBytes(at("letter"), "Dear Sir or Madam, this is longer than the mark by which a database begins.");
    SQLite::Database(at("other").toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec("CREATE TABLE a (b)");

    EXPECT_THAT(refused(at("empty")), HasSubstr("nothing in it"));
    EXPECT_THAT(refused(at("letter")), HasSubstr("no budget file"));
    EXPECT_THAT(refused(at("other")), HasSubstr("no budget file"));
}

TEST_F(RefusalTest, ANewerBudgetIsRefusedAndSaysToUpdate)
{
    EXPECT_THAT(refusedAfter("PRAGMA user_version = 4"), HasSubstr("Update Tallymere"));
}

TEST_F(RefusalTest, ADamagedBudgetTellsWhereItsLastSavesAre)
{
    EXPECT_THAT(refusedAfter("PRAGMA user_version = 0"), HasSubstr(places.backups.toStdString()));
}

TEST_F(RefusalTest, ABudgetThatTheDatabaseWouldOnlyReadIsRefused)
{
    constexpr qsizetype writing = 18;
    save(at("home.budget"));
    for (auto const version : {'\0', '\3', '\xFF'}) {
        auto bytes = bytesOf(at("home.budget"));
        bytes[writing] = version;
        writeBytes(at("other.budget"), bytes);

        EXPECT_THAT(refused(at("other.budget")), HasSubstr("it is damaged"));
    }
}

TEST_F(RefusalTest, ABudgetThatAnotherProgramIsWritingToIsRefused)
{
    save(at("home.budget"));
    writeBytes(at("home.budget-journal"), "half of a change");

    EXPECT_THAT(refused(at("home.budget")), HasSubstr("another program"));
}

TEST_F(RefusalTest, ABudgetThatAnotherProgramHasLeftInWriteAheadModeOpens)
{
    save(at("home.budget"));
    run(at("home.budget"), "PRAGMA journal_mode = WAL; UPDATE items SET amount = 70000 WHERE source = 'Rent'");

    auto const document = Document::open(places, at("home.budget"));

    EXPECT_EQ(document->content().items.begin()->second.amount.amount(), 70'000);
    document->save();
    EXPECT_EQ(contentOf(at("home.budget")), document->content());
}

TEST_F(RefusalTest, OddNamesWork)
{
    for (auto const& name : {QString("two\nlines.budget"), QString(249, 'n') + "budget", QString("file:x?mode=ro"),
                             QString(":memory:"), QString("çé 日本 %1 'quoted' \"twice\".budget"), QString("-")}) {
        save(at(name));

        EXPECT_EQ(Document::open(places, at(name))->content(), household()) << name.toStdString();
        QFile::remove(at(name));
    }
}

TEST_F(RefusalTest, NamesThatNoFileCanHaveAreRefused)
{
    auto const document = Document::create(places, household());

    EXPECT_NE(refusalOf([&] { document->saveAs(at(QString(256, 'n'))); }), QString());
    EXPECT_NE(refusalOf([&] { document->saveAs(at(QString("half") + QChar(0xD83D))); }), QString());
    EXPECT_NE(refusalOf([&] { document->saveAs(at(QString("nul") + QChar(0))); }), QString());
    EXPECT_NE(refusalOf([&] { document->saveAs(QString()); }), QString());
    EXPECT_NE(refusalOf([&] { document->saveAs(folder.path()); }), QString());
    EXPECT_NE(refusalOf([&] { document->saveAs(at("missing/home.budget")); }), QString());

    EXPECT_EQ(document->filePathName(), QString());
    document->saveAs(at("home.budget"));
    EXPECT_EQ(contentOf(at("home.budget")), household());
}

TEST_F(RefusalTest, ALineBreakInANameDoesNotBreakTheSentence)
{
    writeBytes(at("two\nlines"), "no budget");

    EXPECT_THAT(refused(at("two\nlines")), HasSubstr("'two lines'"));
}

TEST_F(RefusalTest, SymbolicLinksAreWrittenThrough)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("deep"));
    save(at("deep/real.budget"));
    ASSERT_TRUE(QFile::link("deep/real.budget", at("link.budget")));
    auto const document = Document::open(places, at("link.budget"));
    plan(*document, 1);

    document->save();

    EXPECT_TRUE(QFileInfo(at("link.budget")).isSymLink());
    EXPECT_EQ(contentOf(at("deep/real.budget")), document->content());
    EXPECT_EQ(document->filePathName(), at("link.budget"));
}

TEST_F(RefusalTest, SavingThroughALinkMakesWhatItNames)
{
    ASSERT_TRUE(QFile::link("later.budget", at("link.budget")));
    ASSERT_TRUE(QFile::link("circle.budget", at("circle.budget")));

    save(at("link.budget"));

    EXPECT_TRUE(QFileInfo(at("link.budget")).isSymLink());
    EXPECT_EQ(contentOf(at("later.budget")), household());
    EXPECT_THAT(refused(at("circle.budget")), HasSubstr("leads nowhere"));
}

TEST_F(RefusalTest, AReadOnlyFileOpensAndSaysWhyItIsNotSaved)
{
    save(at("home.budget"));
    OrdinaryUser const person(folder.path());
    ASSERT_EQ(::chmod(QFile::encodeName(at("home.budget")).constData(), 0444), 0);
    auto const before = bytesOf(at("home.budget"));
    auto const document = Document::open(places, at("home.budget"));
    plan(*document, 1);

    auto const sentence = refusalOf([&] { document->save(); });

    EXPECT_THAT(sentence.toStdString(), HasSubstr("Save As"));
    EXPECT_EQ(bytesOf(at("home.budget")), before);
    EXPECT_TRUE(document->isDirty());
    document->saveAs(at("other.budget"));
    EXPECT_EQ(contentOf(at("other.budget")), document->content());
}

TEST_F(RefusalTest, AFileInAReadOnlyFolderOpensOnceAndSaysWhyItIsNotSaved)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("shelf"));
    save(at("shelf/home.budget"));
    OrdinaryUser const person(folder.path());
    ASSERT_EQ(::chmod(QFile::encodeName(at("shelf")).constData(), 0555), 0);
    auto const document = Document::open(places, at("shelf/home.budget"));
    plan(*document, 1);

    EXPECT_THAT(refusalOf([&] { document->save(); }).toStdString(), HasSubstr("Save As"));
    EXPECT_THAT(refusalOf([&] { Document::open(places, at("shelf/home.budget")); }).toStdString(),
                HasSubstr("open here already"));

    EXPECT_EQ(contentOf(at("shelf/home.budget")), household());
    EXPECT_EQ(::chmod(QFile::encodeName(at("shelf")).constData(), 0755), 0);
}

TEST_F(RefusalTest, AFolderForUnsavedWorkThatCannotBeWrittenIsNamed)
{
    save(at("home.budget"));
    ASSERT_TRUE(QDir(folder.path()).mkdir("shelf"));
    Places const unwritable{at("shelf/working-copies"), at("shelf/backups")};
    OrdinaryUser const person(folder.path());
    ASSERT_EQ(::chmod(QFile::encodeName(at("shelf")).constData(), 0555), 0);

    auto const opening = refusalOf([&] { Document::open(unwritable, at("home.budget")); }).toStdString();
    auto const beginning = refusalOf([&] { Document::create(unwritable, household()); }).toStdString();

    for (auto const& sentence : {opening, beginning}) {
        EXPECT_THAT(sentence, HasSubstr(unwritable.workingCopies.toStdString()));
        EXPECT_THAT(sentence, HasSubstr("aren't allowed to write"));
    }
    EXPECT_EQ(::chmod(QFile::encodeName(at("shelf")).constData(), 0755), 0);
}

TEST_F(RefusalTest, AFolderForUnsavedWorkBelowALinkThatLeadsNowhereIsNamed)
{
    save(at("home.budget"));
    ASSERT_TRUE(QFile::link("unplugged", at("disk")));
    Places const gone{at("disk/data/working-copies"), at("disk/data/backups")};

    EXPECT_THAT(refusalOf([&] { Document::open(gone, at("home.budget")); }).toStdString(),
                HasSubstr(gone.workingCopies.toStdString()));
    EXPECT_THAT(refusalOf([&] { Document::create(gone, household()); }).toStdString(),
                HasSubstr(gone.workingCopies.toStdString()));
}

TEST_F(RefusalTest, AFileThatMayNotBeReadIsRefused)
{
    save(at("home.budget"));
    OrdinaryUser const person(folder.path());
    ASSERT_EQ(::chmod(QFile::encodeName(at("home.budget")).constData(), 0), 0);

    EXPECT_THAT(refusalOf([&] { Document::open(places, at("home.budget")); }).toStdString(),
                HasSubstr("aren't allowed"));
}
}
