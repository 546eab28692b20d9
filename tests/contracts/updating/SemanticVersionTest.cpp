#include <tlm/foundation/Error.h>
#include <tlm/updating/SemanticVersion.h>

#include <QDebug>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace tlm::updating {

namespace {

static_assert(std::is_same_v<decltype(SemanticVersion() <=> SemanticVersion()), std::strong_ordering>);

SemanticVersion version(char const* text)
{
    return toSemanticVersion(QString::fromLatin1(text));
}

TEST(SemanticVersionTest, TheDefaultIsOlderThanAnyRelease)
{
    EXPECT_EQ(SemanticVersion(), version("0.0.0"));
    EXPECT_LT(SemanticVersion(), version("0.0.1"));
}

TEST(SemanticVersionTest, ReadsWhatItWrites)
{
    for (auto const* const text :
         {"0.0.0", "1.2.3", "10.20.30", "1.0.0-alpha", "1.0.0-alpha.1", "1.0.0-0.3.7", "1.0.0-x.7.z.92",
          "1.0.0-x-y-z.--", "4294967295.0.4294967295", "1.0.0-0A.is.legal", "1.0.0-99999999999999999999999"}) {
        EXPECT_EQ(toString(version(text)), QString::fromLatin1(text));
    }
}

TEST(SemanticVersionTest, MadeOfNumbersEqualsReadFromText)
{
    EXPECT_EQ(SemanticVersion(1, 20, 300), version("1.20.300"));
    EXPECT_EQ(toString(SemanticVersion(1, 20, 300)), QStringLiteral("1.20.300"));
}

TEST(SemanticVersionTest, BuildMetadataIsReadPast)
{
    EXPECT_EQ(version("1.0.0+20130313144700"), version("1.0.0"));
    EXPECT_EQ(version("1.0.0-beta+exp.sha.5114f85"), version("1.0.0-beta+21AF26D3---117B344092BD"));
    EXPECT_EQ(toString(version("1.0.0-beta+001")), QStringLiteral("1.0.0-beta"));
}

TEST(SemanticVersionTest, EachVersionStandsAboveAllBeforeIt)
{
    std::vector<char const*> const ascending{"0.0.0",
                                             "0.0.1",
                                             "0.0.10",
                                             "0.1.0",
                                             "1.0.0-0",
                                             "1.0.0-2",
                                             "1.0.0-10",
                                             "1.0.0-99999999999999999999998",
                                             "1.0.0-99999999999999999999999",
                                             "1.0.0--",
                                             "1.0.0-ALPHA",
                                             "1.0.0-alpha",
                                             "1.0.0-alpha.1",
                                             "1.0.0-alpha.beta",
                                             "1.0.0-beta",
                                             "1.0.0-beta.2",
                                             "1.0.0-beta.11",
                                             "1.0.0-rc.1",
                                             "1.0.0",
                                             "1.0.1-alpha",
                                             "1.0.1",
                                             "1.9.0",
                                             "1.10.0",
                                             "2.0.0-alpha",
                                             "2.0.0",
                                             "4294967295.0.0"};

    for (std::size_t left = 0; left < ascending.size(); ++left) {
        for (std::size_t right = 0; right < ascending.size(); ++right) {
            EXPECT_EQ(version(ascending[left]) <=> version(ascending[right]), left <=> right)
                << ascending[left] << " and " << ascending[right];
            EXPECT_EQ(version(ascending[left]) == version(ascending[right]), left == right);
        }
    }
}

class RefusedVersionTest : public ::testing::TestWithParam<char const*>
{};

TEST_P(RefusedVersionTest, IsNamedInTheRefusal)
{
    auto const text = QString::fromUtf8(GetParam());

    try {
        toSemanticVersion(text);
        FAIL() << "took " << GetParam();
    } catch (foundation::Error const& refusal) {
        EXPECT_TRUE(refusal.message().contains(text));
    }
}

INSTANTIATE_TEST_SUITE_P(NoVersions, RefusedVersionTest,
                         ::testing::Values("", "1", "1.2", "1.2.3.4", "v1.2.3", " 1.2.3", "1.2.3 ", "1.2.3\n", "01.2.3",
                                           "1.02.3", "1.2.03", "-1.2.3", "1.2.3-", "1.2.3-01", "1.2.3-a..b", "1.2.3+",
                                           "1.2.3+a+b", "1.2.3-\xC3\xA4", "4294967296.0.0", "0.4294967296.0",
                                           "0.0.99999999999999999999", "\xD9\xA1.2.3", "a.b.c"));

TEST(SemanticVersionTest, IsLoggedAsAPersonReadsIt)
{
    QString logged;

    QDebug(&logged) << version("1.0.0-rc.1");

    EXPECT_EQ(logged.trimmed(), QStringLiteral("1.0.0-rc.1"));
}
}
}
