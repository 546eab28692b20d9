#include "MigrationTest.h"

#include <engine/OpenBooks.h>

namespace tallymere::storage {

using namespace testing;
using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;

class MigrationTest : public ReleaseTest
{
protected:
    MigrationTest()
        : ReleaseTest("released-1.budget", "9a3e39244e635a7a4a56d66893a6c41e20030e277d24afe97712c09978117120")
    {}

    static engine::BudgetContent migrated()
    {
        auto content = planOnly();
        engine::openBooks(content);
        return content;
    }
};

TEST_F(MigrationTest, AFileOfTheFirstReleaseOpensWithBooks)
{
    auto const before = bytesOf(file);

    auto const document = Document::open(places, file);

    EXPECT_EQ(document->content(), migrated());
    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(bytesOf(file), before);
    EXPECT_EQ(versionOf(file), 1);
}

TEST_F(MigrationTest, EachItemOwnsAnAccountAndDebtsOpenWithWhatWasBorrowed)
{
    auto const document = Document::open(places, file);

    auto const content = document->content();
    auto const debt = content.items.at({BudgetItemTypes::Debt, BudgetSource("Car")}).account;
    EXPECT_EQ(content.books.accounts.size(), content.items.size() + 1);
    EXPECT_EQ(content.books.accounts.at(debt).type, AccountTypes::Liability);
    EXPECT_EQ(content.books.accounts.at(debt).code.name(), "Car");
    EXPECT_EQ(content.books.turnovers.at(debt), (engine::Turnover{Money(Currency::EUR, -12'000, 0, 0), 1}));
    auto const postings = document->postingsOf(debt);
    ASSERT_EQ(postings.size(), 1U);
    EXPECT_EQ(postings.begin()->second.crediting, debt);
    EXPECT_EQ(postings.begin()->second.occurredOn, QDate(2026, 1, 31));
    EXPECT_EQ(postings.begin()->second.amount, Money(Currency::EUR, 12'000, 0, 0));
}

TEST_F(MigrationTest, SavesAsThePresentVersionAndKeepsTheOldFileAmongTheBackups)
{
    auto const before = bytesOf(file);
    {
        auto const document = Document::open(places, file);
        plan(*document, 3);
        document->save();
        EXPECT_FALSE(document->isDirty());
    }

    EXPECT_EQ(versionOf(file), 3);
    EXPECT_EQ(firstBackup(), before);
    auto const again = Document::open(places, file);
    EXPECT_EQ(again->content().items.size(), planOnly().items.size() + 1);
    EXPECT_FALSE(again->isDirty());
}

TEST_F(MigrationTest, AnUnchangedFileIsSavedAsThePresentVersionToo)
{
    Document::open(places, file)->save();

    EXPECT_EQ(versionOf(file), 3);
    EXPECT_EQ(contentOf(file), migrated());
}

TEST_F(MigrationTest, StaysCleanWhenTheFileIsWrittenAgainWithTheSameContent)
{
    auto const document = Document::open(places, file);

    writeBytes(file, bytesOf(file));

    EXPECT_FALSE(document->isDirty());
}

TEST_F(MigrationTest, ReloadingMigratesToo)
{
    save(at("other.budget"));
    auto const document = Document::open(places, at("other.budget"));
    writeBytes(at("other.budget"), bytesOf(file));

    document->reload([](engine::BudgetContent const&) {});

    EXPECT_EQ(document->content(), migrated());
    EXPECT_FALSE(document->isDirty());
}

TEST_F(MigrationTest, AFileWithOddNamesOpens)
{
    SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE)
        .exec("UPDATE items SET source = char(0x2002) || char(7) || 'x' || char(0x2028) || 'y', "
              "source_key = char(7) || 'x' || char(0x2028) || 'y' "
              "WHERE kind = 'bill'");

    auto const document = Document::open(places, file);

    auto const content = document->content();
    auto const& item = content.items.begin()->second;
    EXPECT_EQ(item.identifier.type, BudgetItemTypes::Bill);
    EXPECT_EQ(item.identifier.source.name(), QString(QChar(0x2002)) + QChar(7) + 'x' + QChar(0x2028) + 'y');
    EXPECT_EQ(content.books.accounts.at(item.account).code.name(), "x y");
    EXPECT_NO_THROW(document->save());
}

TEST_F(MigrationTest, UnsavedWorkOfTheFirstReleaseIsRecovered)
{
    leaveBehind(file, file);
    SQLite::Database(workingCopy.toStdString(), SQLite::OPEN_READWRITE).exec("DELETE FROM items WHERE kind <> 'debt'");

    auto const orphans = Document::orphans(places);

    ASSERT_EQ(orphans.size(), 1U);
    EXPECT_EQ(orphans[0].filePathName, file);
    auto const document = Document::recover(places, orphans[0]);
    EXPECT_EQ(document->content().items.size(), 1U);
    EXPECT_EQ(document->content().books.accounts.size(), 2U);
    EXPECT_TRUE(document->isDirty());
    document->save();
    EXPECT_EQ(contentOf(file), document->content());
    EXPECT_EQ(versionOf(file), 3);
}

TEST_F(MigrationTest, AWorkingCopyOfTheFirstReleaseThatHoldsNothingNewIsTidiedAway)
{
    leaveBehind(file, file);
    EXPECT_TRUE(Document::orphans(places).empty());
    EXPECT_EQ(workingFiles(), QStringList());

    leaveBehind(file, QString()); // it never had a file, and nothing was changed since it was begun
    EXPECT_TRUE(Document::orphans(places).empty());
    EXPECT_EQ(workingFiles(), QStringList());
}

TEST_F(MigrationTest, ANewBudgetOfTheFirstReleaseThatWasChangedIsRecoveredWithoutAName)
{
    leaveBehind(file, QString());
    SQLite::Database(workingCopy.toStdString(), SQLite::OPEN_READWRITE).exec("DELETE FROM items");
    ASSERT_EQ(Document::orphans(places).size(), 1U); // which migrates it

    auto const orphans = Document::orphans(places);

    ASSERT_EQ(orphans.size(), 1U);
    auto const document = Document::recover(places, orphans[0]);
    EXPECT_EQ(document->filePathName(), QString());
    EXPECT_TRUE(document->content().items.empty());
    EXPECT_TRUE(document->isDirty());
}
}
