#include <engine/Household.h>
#include <engine/SampleHousehold.h>
#include <program/SampleFile.h>
#include <storage/Document.h>

#include <gtest/gtest.h>
#include <map>
#include <support/Home.h>
#include <vector>

namespace tallymere::program {
namespace {

class SampleFileTest : public ::testing::Test
{
protected:
    tlm::testing::Home home;
    storage::Places places{home.path("working"), home.path("backups")};
    QDate today{2026, 3, 31};

    static std::vector<engine::Posting> postingsIn(storage::Document const& document)
    {
        std::map<engine::PostingId, engine::Posting> found;
        for (auto const& turnover : document.content().books.turnovers) {
            found.merge(document.postingsOf(turnover.first));
        }
        std::vector<engine::Posting> postings;
        for (auto const& posted : found) {
            postings.push_back(posted.second);
        }
        return postings;
    }
};

TEST_F(SampleFileTest, HoldsTheSampleHouseholdOfTheDay)
{
    auto const path = sampleFile(places, home.path("samples"), today);

    auto const document = storage::Document::open(places, path);
    auto const sample = engine::sampleHousehold(today);
    EXPECT_EQ(document->content(), sample.content);
    EXPECT_EQ(postingsIn(*document), sample.postings);
}

TEST_F(SampleFileTest, WhatWasSavedInTheSampleOfTheDayStays)
{
    auto const path = sampleFile(places, home.path("samples"), today);
    {
        auto const document = storage::Document::open(places, path);
        engine::Household household(document->content(), *document);
        household.remove({tlm::budgeting::BudgetItemTypes::Bill, tlm::budgeting::BudgetSource("Passports")});
        document->save();
    }

    auto const again = sampleFile(places, home.path("samples"), today);

    EXPECT_EQ(again, path);
    EXPECT_EQ(storage::Document::open(places, again)->content().items.size(),
              engine::sampleHousehold(today).content.items.size() - 1);
}

TEST_F(SampleFileTest, AnotherDayHasASampleOfItsOwn)
{
    EXPECT_NE(sampleFile(places, home.path("samples"), today),
              sampleFile(places, home.path("samples"), today.addDays(1)));
}
}
}
