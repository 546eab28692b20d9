#include "Fixture.h"

#include <storage/DocumentError.h>
#include <tlm/budgeting/WorkingWeek.h>
#include <tlm/foundation/Error.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>

namespace tallymere::presenter {
namespace {

class SessionTest : public PresenterTest
{
protected:
    /// Adds what a file can hold and the household refuses: a second account for the same purpose.
    static void addTwoForOpeningBalances(storage::Document& document)
    {
        using tlm::accounting::AccountNumber;
        document.transact([&] {
            for (auto const number : {AccountNumber(3001), AccountNumber(3002)}) {
                document.add({.code = {number, "Opening balances", std::nullopt},
                              .type = tlm::accounting::AccountTypes::Equity,
                              .currency = fiscora::Currency::USD,
                              .purpose = engine::AccountPurposes::OpeningBalances});
            }
        });
    }

    /// Copies what a crash would leave now to \a folder, where no program uses it.
    void copyWorkingCopies(QString const& folder) const
    {
        ASSERT_TRUE(QDir().mkpath(folder));
        QDir const working(session.places().workingCopies);
        for (auto const& origin : working.entryInfoList({"*.origin"}, QDir::Files)) {
            auto const database = origin.completeBaseName() + ".budget";
            ASSERT_TRUE(QFile::copy(origin.filePath(), folder + '/' + origin.fileName()));
            ASSERT_TRUE(QFile::copy(working.filePath(database), folder + '/' + database));
        }
    }
};

TEST_F(SessionTest, BeginsWithAnEmptyBudgetThatHasNothingToLose)
{
    EXPECT_TRUE(session.household().content().items.empty());
    EXPECT_TRUE(session.document().filePathName().isEmpty());
    EXPECT_FALSE(session.isDirty());
}

TEST_F(SessionTest, OpensWhatAFileHolds)
{
    auto const path = writeSample("sample.budget");
    QSignalSpy const replaced(&session, &Session::replaced);

    session.open(path);

    EXPECT_EQ(session.household().content(), engine::sampleHousehold(QDate::currentDate()).content);
    EXPECT_EQ(session.document().filePathName(), path);
    EXPECT_FALSE(session.isDirty());
    EXPECT_EQ(replaced.count(), 1);
}

TEST_F(SessionTest, KeepsTheOpenBudgetWhenAnotherCannotBeRead)
{
    changeSomething();
    auto const before = session.household().content();
    QSignalSpy const replaced(&session, &Session::replaced);

    EXPECT_THROW(session.open(home.path("missing.budget")), storage::DocumentError);

    EXPECT_EQ(session.household().content(), before);
    EXPECT_TRUE(session.isDirty());
    EXPECT_EQ(replaced.count(), 0);
}

TEST_F(SessionTest, OpeningTheOpenFileReadsItAgain)
{
    auto const path = writeSample("sample.budget");
    session.open(path);
    changeSomething();

    session.open(path);

    EXPECT_EQ(session.household().content(), engine::sampleHousehold(QDate::currentDate()).content);
    EXPECT_FALSE(session.isDirty());
}

TEST_F(SessionTest, KeepsItsChangesWhenTheOpenFileCannotBeReadAgain)
{
    auto const path = writeSample("sample.budget");
    session.open(path);
    changeSomething();
    auto const changed = session.household().content();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no budget any more");
    file.close();

    EXPECT_THROW(session.open(path), storage::DocumentError);

    EXPECT_EQ(session.household().content(), changed);
    EXPECT_TRUE(session.isDirty());
}

TEST_F(SessionTest, UnsavedWorkThatTheBooksRefuseStaysForAnotherTime)
{
    storage::Places const left{home.path("left"), home.path("backups")};
    {
        auto const document = storage::Document::create(session.places(), engine::emptyContent(QLocale::c()));
        addTwoForOpeningBalances(*document);
        copyWorkingCopies(left.workingCopies);
    }
    auto const orphans = storage::Document::orphans(left);
    ASSERT_EQ(orphans.size(), 1U);
    auto const before = session.household().content();

    EXPECT_THROW(session.recover(orphans.front()), tlm::foundation::Error);

    EXPECT_EQ(session.household().content(), before);
    EXPECT_EQ(storage::Document::orphans(left).size(), 1U);
}

TEST_F(SessionTest, ChangesAreInTheFileOnceSaved)
{
    auto const path = writeSample("sample.budget");
    session.open(path);
    changeSomething();
    auto const changed = session.household().content();
    QSignalSpy const saved(&session, &Session::saved);

    session.save();

    EXPECT_FALSE(session.isDirty());
    EXPECT_EQ(saved.count(), 1);
    session.beginEmpty();
    session.open(path);
    EXPECT_EQ(session.household().content(), changed);
}

TEST_F(SessionTest, TellsOfAnAcceptedChangeOnceItIsMade)
{
    auto const before = session.household().content();
    auto isMade = false;
    QObject::connect(&session, &Session::changed, &window, [&] { isMade = session.household().content() != before; });
    QSignalSpy const changed(&session, &Session::changed);

    changeSomething();

    EXPECT_TRUE(isMade);
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(SessionTest, TellsNothingOfAChangeThatIsRefused)
{
    QSignalSpy const changed(&session, &Session::changed);
    auto const refused = [](engine::Household& household) { household.configure({}); };

    EXPECT_THROW(session.change(refused), tlm::foundation::Error);

    EXPECT_EQ(changed.count(), 0);
}

TEST_F(SessionTest, TheWorkingWeekOfTheOpenBudgetIsTheProcessOne)
{
    auto content = engine::emptyContent(QLocale());
    content.settings.workingWeek = {std::chrono::hours(36), std::chrono::days(4)};
    auto const path = home.path("short-week.budget");
    storage::Document::create(session.places(), content)->saveAs(path);

    session.open(path);

    EXPECT_EQ(tlm::budgeting::workingWeek(), content.settings.workingWeek);
}
}
}
