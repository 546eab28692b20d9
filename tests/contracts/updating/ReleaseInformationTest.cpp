#include <tlm/updating/ReleaseInformation.h>

#include <QTimeZone>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace tlm::updating {

namespace {

static_assert(std::is_same_v<decltype(ReleaseInformation() <=> ReleaseInformation()), std::strong_ordering>);

QDateTime const noon(QDate(2026, 5, 1), QTime(12, 0), Qt::UTC);

TEST(ReleaseInformationTest, TheNewestVersionIsTheLastOfASet)
{
    std::set<ReleaseInformation> releases;

    releases.insert({SemanticVersion(1, 10, 0), noon.addDays(-9), QStringLiteral("a")});
    releases.insert({SemanticVersion(1, 9, 0), noon, QStringLiteral("b")});
    releases.insert({toSemanticVersion(QStringLiteral("1.10.0-rc.1")), noon, QStringLiteral("c")});

    ASSERT_EQ(releases.size(), 3U);
    EXPECT_EQ(releases.rbegin()->version, SemanticVersion(1, 10, 0));
    EXPECT_EQ(releases.begin()->version, SemanticVersion(1, 9, 0));
}

TEST(ReleaseInformationTest, LikeVersionsAreOrderedByMomentThenNotes)
{
    ReleaseInformation const release{SemanticVersion(1, 0, 0), noon, QStringLiteral("b")};

    EXPECT_LT((ReleaseInformation{release.version, noon.addMSecs(-1), QStringLiteral("c")}), release);
    EXPECT_LT((ReleaseInformation{release.version, noon, QStringLiteral("a")}), release);
    EXPECT_LT((ReleaseInformation{release.version, {}, QStringLiteral("z")}), release);
    EXPECT_EQ(release, (ReleaseInformation{release.version, noon, QStringLiteral("b")}));
    EXPECT_NE(release, (ReleaseInformation{release.version, noon, QStringLiteral("B")}));
}

TEST(ReleaseInformationTest, OneMomentToldInTwoZonesIsOneMoment)
{
    ReleaseInformation const release{SemanticVersion(1, 0, 0), noon, {}};

    EXPECT_EQ(release, (ReleaseInformation{release.version, noon.toOffsetFromUtc(3 * 3600), {}}));
}

TEST(ReleaseInformationTest, AnUnknownMomentIsNotTheEpoch)
{
    ReleaseInformation const unknown{SemanticVersion(), {}, {}};

    EXPECT_EQ(unknown, ReleaseInformation());
    EXPECT_LT(unknown, (ReleaseInformation{SemanticVersion(), QDateTime::fromMSecsSinceEpoch(0), {}}));
    EXPECT_LT(unknown, (ReleaseInformation{SemanticVersion(), QDateTime::fromMSecsSinceEpoch(-1), {}}));
}
}
}
