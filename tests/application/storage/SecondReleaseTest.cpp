#include "MigrationTest.h"

namespace tallymere::storage {

using namespace testing;
using engine::PostingId;
using tlm::accounting::AccountNumber;

/// Opens budgets that the second release saved: they had books already, but no exchange accounts.
class SecondReleaseTest : public ReleaseTest
{
protected:
    SecondReleaseTest()
        : ReleaseTest("released-2.budget", "48b28a2e57d03f1e6e720db7c102919f9ac5f953b8104d2cd0a7430a22647b88")
    {}

    static void expectWhole(Document const& document)
    {
        EXPECT_EQ(document.content(), bookkeeping());
        for (auto number = 1; number <= 4; ++number) {
            EXPECT_EQ(document.posting(PostingId{number}), postings()[static_cast<std::size_t>(number - 1)]) << number;
        }
        EXPECT_EQ(document.posting(PostingId{5}), std::nullopt);
    }

    static bool isIntact(QString const& filePathName)
    {
        SQLite::Database database(filePathName.toStdString());
        return database.execAndGet("PRAGMA integrity_check").getString() == "ok";
    }
};

TEST_F(SecondReleaseTest, AFileOpensWhole)
{
    auto const before = bytesOf(file);
    ASSERT_EQ(versionOf(file), 2);

    auto const document = Document::open(places, file);

    expectWhole(*document);
    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(bytesOf(file), before);
}

TEST_F(SecondReleaseTest, LedgersAreReadFromTheirEnd)
{
    auto const document = Document::open(places, file);

    EXPECT_EQ(document->latestPostingsOf(current, 1), (std::map{std::pair(PostingId{3}, postings()[2])}));
    EXPECT_EQ(document->postingsOf(AccountNumber(3001)).size(), 2U);
}

TEST_F(SecondReleaseTest, AMigratedBudgetTakesWhatTheReleaseDidNotKnow)
{
    auto exchange = account(3100, "Exchange (EUR)", tlm::accounting::AccountTypes::Equity);
    exchange.purpose = engine::AccountPurposes::Exchange;
    auto const document = Document::open(places, file);

    document->transact([&] {
        document->add(exchange);
        EXPECT_EQ(document->post(postings()[0]), PostingId{5});
    });

    EXPECT_EQ(document->content().books.accounts.at(AccountNumber(3100)), exchange);
    EXPECT_TRUE(document->isDirty());
}

TEST_F(SecondReleaseTest, AMigratedBudgetStillSeesToItsReferences)
{
    auto const document = Document::open(places, file);

    for (auto const number : {3001U, 1000U, 2002U}) {
        EXPECT_NE(refusalOf([&] { document->transact([&] { document->remove(AccountNumber(number)); }); }), QString());
    }

    EXPECT_FALSE(document->isDirty());
}

TEST_F(SecondReleaseTest, SavesAsThePresentVersionAndKeepsTheOldFileAmongTheBackups)
{
    auto const before = bytesOf(file);

    Document::open(places, file)->save();

    EXPECT_EQ(versionOf(file), 3);
    EXPECT_TRUE(isIntact(file));
    EXPECT_EQ(firstBackup(), before);
    auto const again = Document::open(places, file);
    expectWhole(*again);
    EXPECT_FALSE(again->isDirty());
}

TEST_F(SecondReleaseTest, UnsavedWorkIsRecovered)
{
    leaveBehind(file, file);
    SQLite::Database(workingCopy.toStdString(), SQLite::OPEN_READWRITE).exec("DELETE FROM postings WHERE id = 4");

    auto const orphans = Document::orphans(places);

    ASSERT_EQ(orphans.size(), 1U);
    auto const document = Document::recover(places, orphans[0]);
    EXPECT_EQ(document->posting(PostingId{4}), std::nullopt);
    EXPECT_TRUE(document->isDirty());
    document->save();
    EXPECT_EQ(contentOf(file), document->content());
}

TEST_F(SecondReleaseTest, AWorkingCopyThatHoldsNothingNewIsTidiedAway)
{
    for (auto const& origin : {file, QString()}) {
        leaveBehind(file, origin);
        EXPECT_TRUE(Document::orphans(places).empty());
        EXPECT_EQ(workingFiles(), QStringList());
    }
}

TEST_F(SecondReleaseTest, AFileWithAPurposeThatTheReleaseDidNotKnowIsRefused)
{
    SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE)
        .exec("PRAGMA ignore_check_constraints = ON; UPDATE accounts SET purpose = 'exchange' WHERE number = 3001");

    EXPECT_THAT(refusalOf([&] { Document::open(places, file); }).toStdString(), ::testing::HasSubstr("it is damaged"));
}

TEST_F(SecondReleaseTest, AFileWhoseIndexLacksAPostingIsRefused)
{
    SQLite::Database(file.toStdString(), SQLite::OPEN_READWRITE)
        .exec("PRAGMA writable_schema = ON; CREATE TEMP TABLE kept AS SELECT * FROM sqlite_schema "
              "WHERE name = 'postings_debiting'; DELETE FROM sqlite_schema WHERE name = 'postings_debiting'; "
              "PRAGMA writable_schema = RESET; UPDATE postings SET amount = 2 WHERE id = 4; "
              "PRAGMA writable_schema = ON; INSERT INTO sqlite_schema SELECT * FROM kept");

    EXPECT_THAT(refusalOf([&] { Document::open(places, file); }).toStdString(), ::testing::HasSubstr("it is damaged"));
}
}
