#include "StorageTest.h"

#include <engine/SampleHousehold.h>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <vector>

namespace tallymere::storage {

using namespace testing;

namespace {

/// \return the queries that the guide to the file's format gives, in their order
std::vector<std::string> queriesOfTheGuide()
{
    QString const begin = "```sql\n";
    auto const guide = QString::fromUtf8(bytesOf(GUIDE));
    std::vector<std::string> queries;
    for (auto place = guide.indexOf(begin); place >= 0; place = guide.indexOf(begin, place)) {
        place += begin.size();
        queries.push_back(guide.mid(place, guide.indexOf("```", place) - place).toStdString());
    }
    return queries;
}

int rowsOf(SQLite::Database const& database, std::string const& query)
{
    SQLite::Statement row(database, query);
    auto rows = 0;
    while (row.executeStep()) {
        ++rows;
    }
    return rows;
}
}

/// What docs/budget-file.md tells people to ask a file.
class GuideTest : public StorageTest
{};

TEST_F(GuideTest, EachQueryFindsWhatTheSampleHolds)
{
    auto const sample = engine::sampleHousehold(QDate::currentDate());
    save(at("sample.budget"), sample.content, sample.postings);
    SQLite::Database const database(at("sample.budget").toStdString());
    auto const queries = queriesOfTheGuide();
    ASSERT_GT(queries.size(), 5U);

    for (auto const& query : queries) {
        auto const looksForFaults = query.find("<>") != std::string::npos;
        EXPECT_EQ(rowsOf(database, query) > 0, !looksForFaults) << query;
    }
}
}
