#include "StorageTest.h"

#include <SQLiteCpp/Database.h>
#include <random>

namespace tallymere::storage {

using namespace testing;

namespace {

bool isIntact(QString const& filePathName)
{
    try {
        SQLite::Database database(filePathName.toStdString());
        return database.execAndGet("PRAGMA integrity_check").getString() == "ok";
    } catch (SQLite::Exception const&) {
        return false;
    }
}
}

class DamageTest : public StorageTest
{
protected:
    void SetUp() override
    {
        save(at("whole.budget"), billsOnly(200), payments(200));
        whole = bytesOf(at("whole.budget"));
    }

    /// Opens \a bytes, which are either refused with a sentence or make a budget that passes every check.
    /// \return whether they were refused
    bool isRefused(QByteArray const& bytes)
    {
        auto const path = at("damaged.budget");
        writeBytes(path, bytes);
        auto const sentence = refusalOf([&] {
            auto const document = Document::open(places, path);
            document->content();
            EXPECT_TRUE(isIntact(path));
        });
        EXPECT_EQ(bytesOf(path), bytes);
        return !sentence.isEmpty();
    }

    QByteArray whole;
};

TEST_F(DamageTest, AFileCutOffAtAnyKilobyteIsRefused)
{
    for (qsizetype size = 0; size < whole.size(); size += 1024) {
        EXPECT_TRUE(isRefused(whole.left(size))) << size;
    }
    EXPECT_FALSE(isRefused(whole));
}

TEST_F(DamageTest, AFileWithAFlippedByteIsRefusedOrSound)
{
    auto const seed = std::random_device{}();
    std::mt19937 random(seed);
    auto refused = 0;
    for (auto round = 0; round < 2'000; ++round) {
        auto bytes = whole;
        auto const place = static_cast<qsizetype>(random() % static_cast<unsigned long>(bytes.size()));
        bytes[place] = static_cast<char>(bytes[place] ^ static_cast<char>(1 + random() % 255));
        refused += isRefused(bytes) ? 1 : 0;
        ASSERT_FALSE(HasFailure()) << "seed " << seed << ", round " << round << ", byte " << place;
    }
    EXPECT_GT(refused, 0);
}
}
