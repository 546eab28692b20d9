#include "StorageTest.h"

#include <SQLiteCpp/Database.h>
#include <sys/stat.h>

namespace tallymere::storage {

using namespace testing;
using fiscora::Currency;
using fiscora::Money;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;

namespace {

BudgetItemIdentifier const rent{BudgetItemTypes::Bill, BudgetSource("Rent")};

/// \return a bill that household() has an account for, but doesn't plan
engine::PlannedItem unplanned()
{
    auto bill = numberedBill(9);
    bill.account = current;
    return bill;
}

void add(Document& document, engine::PlannedItem const& item)
{
    document.transact([&] { document.add(item); });
}

mode_t modeOf(QString const& path)
{
    struct stat found
    {};
    EXPECT_EQ(::lstat(QFile::encodeName(path).constData(), &found), 0);
    return found.st_mode & ACCESSPERMS;
}
}

class DocumentTest : public StorageTest
{};

TEST_F(DocumentTest, ANewBudgetHoldsItsContentAndHasNoFile)
{
    auto const document = Document::create(places, household());

    EXPECT_EQ(document->content(), household());
    EXPECT_EQ(document->filePathName(), QString());
    EXPECT_FALSE(document->isDirty());
}

TEST_F(DocumentTest, WhatWasSavedIsReadBack)
{
    save(at("home.budget"));

    auto const document = Document::open(places, at("home.budget"));

    EXPECT_EQ(document->content(), household());
    EXPECT_EQ(document->filePathName(), at("home.budget"));
    EXPECT_FALSE(document->isDirty());
}

TEST_F(DocumentTest, AFileWithoutANameIsNotSaved)
{
    auto const document = Document::create(places, household());

    EXPECT_THAT(refusalOf([&] { document->save(); }).toStdString(), ::testing::HasSubstr("Save As"));
}

TEST_F(DocumentTest, EveryKindOfChangeReachesTheFile)
{
    save(at("home.budget"));
    auto expected = household();
    {
        auto const document = Document::open(places, at("home.budget"));
        document->transact([&] {
            expected.settings.usable.insert(Currency::USD);
            expected.settings.preferred = Currency::USD;
            document->write(expected.settings);
            expected.rates.updateConversion(Currency::USD, Currency::EUR, fiscora::FloatingPoint(0.9), {});
            document->write(expected.rates);
            auto moved = expected.items.extract(rent);
            moved.key().source = moved.mapped().identifier.source = BudgetSource("House");
            moved.mapped().amount = Money(Currency::USD, 1000, 0, 0);
            document->change(rent, moved.mapped());
            expected.items.insert(std::move(moved));
            document->remove({BudgetItemTypes::Debt, BudgetSource("Car")});
            expected.items.erase({BudgetItemTypes::Debt, BudgetSource("Car")});
            auto bill = numberedBill(7);
            bill.account = current;
            document->add(bill);
            expected.items.emplace(bill.identifier, bill);
        });
        EXPECT_EQ(document->content(), expected);

        document->save();
    }

    EXPECT_EQ(contentOf(at("home.budget")), expected);
}

TEST_F(DocumentTest, AChangeThatThrowsTakesTheWholeTransactionBack)
{
    auto const document = Document::create(places, household());

    EXPECT_THROW(document->transact([&] {
        document->remove(rent);
        document->post(postings().front());
        document->remove(tlm::banking::BankName("Gone"));
        throw std::runtime_error("no");
    }),
                 std::runtime_error);

    EXPECT_EQ(document->content(), household());
    EXPECT_FALSE(document->isDirty());
    plan(*document, 1);
    EXPECT_EQ(document->content().items.size(), household().items.size() + 1);
}

TEST_F(DocumentTest, ChangesNeedATransactionAndTransactionsDoNotNest)
{
    auto const document = Document::create(places, household());

    EXPECT_THROW(document->add(numberedBill(1)), std::logic_error);
    EXPECT_THROW(document->transact([&] { document->transact([] {}); }), std::logic_error);
    EXPECT_EQ(document->content(), household());
}

TEST_F(DocumentTest, ANameIsTakenOnceInAKindWhateverItsCase)
{
    auto const document = Document::create(places, household());
    auto twin = unplanned();
    twin.identifier = {BudgetItemTypes::Wage, BudgetSource(" CAFÉ «ZUR STRAßE»")};

    auto const refusal = refusalOf([&] { add(*document, twin); });

    EXPECT_THAT(refusal.toStdString(), ::testing::HasSubstr("planned already"));
    EXPECT_EQ(document->content(), household());
    twin.identifier.type = BudgetItemTypes::Bill;
    EXPECT_NO_THROW(add(*document, twin));
}

TEST_F(DocumentTest, ChangingOrRemovingWhatIsNotPlannedIsRefused)
{
    auto const document = Document::create(places, household());
    auto const unknown = unplanned();

    EXPECT_NE(refusalOf([&] { document->transact([&] { document->remove(unknown.identifier); }); }), QString());
    EXPECT_NE(refusalOf([&] { document->transact([&] { document->change(unknown.identifier, unknown); }); }),
              QString());

    EXPECT_EQ(document->content(), household());
}

TEST_F(DocumentTest, ValuesThatBreakARuleOfTheFileAreRefused)
{
    auto const document = Document::create(places, household());
    auto free = unplanned();
    free.amount = Money(Currency::EUR);
    auto unspeakable = unplanned();
    unspeakable.identifier.source = BudgetSource(QString(QChar(0xD800)));
    auto dateless = unplanned();
    dateless.nextOccurOn = QDate();

    EXPECT_NE(refusalOf([&] { add(*document, free); }), QString());
    EXPECT_NE(refusalOf([&] { add(*document, unspeakable); }), QString());
    EXPECT_NE(refusalOf([&] { add(*document, dateless); }), QString());

    EXPECT_EQ(document->content(), household());
}

TEST_F(DocumentTest, IsDirtyWhileItDiffersFromItsFile)
{
    save(at("home.budget"));
    auto const document = Document::open(places, at("home.budget"));

    plan(*document, 1);
    EXPECT_TRUE(document->isDirty());
    drop(*document, 1);
    EXPECT_FALSE(document->isDirty());
    plan(*document, 1);
    document->save();
    EXPECT_FALSE(document->isDirty());
}

TEST_F(DocumentTest, ANewBudgetIsDirtyOnceItDiffersFromHowItBegan)
{
    auto const document = Document::create(places, household());

    plan(*document, 1);

    EXPECT_TRUE(document->isDirty());
}

TEST_F(DocumentTest, IsDirtyWhenItsFileHasGoneOrChanged)
{
    save(at("home.budget"));
    save(at("other.budget"), billsOnly(3), payments(3));
    auto const document = Document::open(places, at("home.budget"));
    auto const original = bytesOf(at("home.budget"));

    writeBytes(at("home.budget"), bytesOf(at("other.budget")));
    EXPECT_TRUE(document->isDirty());
    writeBytes(at("home.budget"), "rubbish");
    EXPECT_TRUE(document->isDirty());
    writeBytes(at("home.budget"), original);
    EXPECT_FALSE(document->isDirty());
    QFile::remove(at("home.budget"));
    EXPECT_TRUE(document->isDirty());
}

TEST_F(DocumentTest, IsDirtyWhenNobodyCanTellOfItsFile)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("shelf"));
    save(at("shelf/home.budget"));
    save(at("home.budget"));
    auto const shelved = Document::open(places, at("shelf/home.budget"));
    auto const document = Document::open(places, at("home.budget"));

    ASSERT_TRUE(QDir(at("shelf")).removeRecursively());
    writeBytes(at("shelf"), "no folder any more");
    ASSERT_TRUE(QFile::remove(at("home.budget")));
    ASSERT_TRUE(QFile::link("home.budget", at("home.budget")));

    EXPECT_TRUE(shelved->isDirty());
    EXPECT_TRUE(document->isDirty());
}

TEST_F(DocumentTest, ADeletedFileIsSavedAgain)
{
    save(at("home.budget"));
    auto const document = Document::open(places, at("home.budget"));
    QFile::remove(at("home.budget"));

    document->save();

    EXPECT_EQ(contentOf(at("home.budget")), household());
    EXPECT_FALSE(document->isDirty());
}

TEST_F(DocumentTest, SaveAsMovesTheDocumentToItsNewNameAndLeavesTheOldFile)
{
    save(at("home.budget"));
    auto const document = Document::open(places, at("home.budget"));
    plan(*document, 1);

    document->saveAs(at("new.budget"));

    EXPECT_EQ(document->filePathName(), at("new.budget"));
    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(contentOf(at("home.budget")), household());
    EXPECT_EQ(contentOf(at("new.budget")), document->content());
    EXPECT_NO_THROW(Document::open(places, at("home.budget")));
}

TEST_F(DocumentTest, SaveAsItsOwnNameSaves)
{
    save(at("home.budget"));
    auto const document = Document::open(places, at("home.budget"));
    plan(*document, 1);

    document->saveAs(at("./home.budget"));

    EXPECT_EQ(contentOf(at("home.budget")), document->content());
}

TEST_F(DocumentTest, ReloadingGivesUpChangesAndReadsTheFileAnew)
{
    save(at("home.budget"));
    save(at("other.budget"), billsOnly(3), payments(3));
    auto const document = Document::open(places, at("home.budget"));
    plan(*document, 1);
    writeBytes(at("home.budget"), bytesOf(at("other.budget")));

    engine::BudgetContent examined;
    document->reload([&](engine::BudgetContent const& content) { examined = content; });

    EXPECT_EQ(examined, billsOnly(3));
    EXPECT_EQ(document->content(), billsOnly(3));
    EXPECT_FALSE(document->isDirty());
}

TEST_F(DocumentTest, AFileThatIsRefusedOnReloadLeavesTheContent)
{
    save(at("home.budget"));
    auto const document = Document::open(places, at("home.budget"));
    plan(*document, 1);
    auto const content = document->content();

    EXPECT_THROW(document->reload([](engine::BudgetContent const&) { throw std::range_error("too odd"); }),
                 std::range_error);

    EXPECT_EQ(document->content(), content);
    EXPECT_TRUE(document->isDirty());
}

TEST_F(DocumentTest, AFileThatCannotBeReloadedLeavesTheContent)
{
    save(at("home.budget"));
    auto const document = Document::open(places, at("home.budget"));
    plan(*document, 1);
    auto const content = document->content();
    writeBytes(at("home.budget"), "rubbish");

    EXPECT_NE(refusalOf([&] { document->reload([](engine::BudgetContent const&) {}); }), QString());

    EXPECT_EQ(document->content(), content);
    EXPECT_TRUE(document->isDirty());
}

TEST_F(DocumentTest, NewFilesArePrivateAndOldOnesKeepTheirPermissions)
{
    save(at("home.budget"));
    EXPECT_EQ(modeOf(at("home.budget")), 0600U);
    auto const document = Document::open(places, at("home.budget"));
    ASSERT_EQ(::chmod(QFile::encodeName(at("home.budget")).constData(), 0664), 0);
    for (auto const& name : workingFiles().filter(".budget")) {
        EXPECT_EQ(modeOf(places.workingCopies + '/' + name), 0600U) << name.toStdString();
    }

    document->save();

    EXPECT_EQ(modeOf(at("home.budget")), 0664U);
}

TEST_F(DocumentTest, AClosedDocumentLeavesNothingButItsFile)
{
    save(at("home.budget"));
    auto document = Document::open(places, at("home.budget"));
    plan(*document, 1);
    document.reset();

    EXPECT_EQ(workingFiles(), QStringList());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"home.budget"});
}

TEST_F(DocumentTest, AFileThatLacksACurrencyGetsIt)
{
    save(at("home.budget"));
    SQLite::Database(at("home.budget").toStdString(), SQLite::OPEN_READWRITE)
        .exec("DELETE FROM currencies WHERE code IN ('USD', 'ZWL')");
    auto const document = Document::open(places, at("home.budget"));
    EXPECT_FALSE(document->isDirty());
    auto settings = household().settings;
    settings.usable.insert(Currency::USD);

    document->transact([&] { document->write(settings); });

    EXPECT_EQ(document->content().settings, settings);
}

TEST_F(DocumentTest, TheFileTellsWhatItIs)
{
    save(at("home.budget"));
    SQLite::Database const file(at("home.budget").toStdString());

    auto const number = [&file](char const* pragma) {
        SQLite::Statement query(file, pragma);
        query.executeStep();
        return query.getColumn(0).getInt();
    };

    EXPECT_EQ(number("PRAGMA application_id"), 0x544C4D42);
    EXPECT_EQ(number("PRAGMA user_version"), 3);
    EXPECT_EQ(number("SELECT sum(amount) FROM items JOIN currencies ON code = currency WHERE source = 'Rent'"),
              10'000'000);
    EXPECT_EQ(number("SELECT unit FROM currencies WHERE code = 'KWD'"), 100'000);
}

}
