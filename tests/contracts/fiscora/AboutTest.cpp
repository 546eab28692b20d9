#include <fiscora/About.h>

#include <gmock/gmock.h>

using namespace ::testing;

TEST(AboutTest, TheLibrarySaysWhatItIsAndUnderWhichLicence)
{
    EXPECT_EQ(fiscora::licence(), "Apache-2.0");
    EXPECT_THAT(fiscora::version(), MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+"));
    EXPECT_THAT(fiscora::url(), StartsWith("https://"));
    EXPECT_THAT(fiscora::copyright(), HasSubstr("Tallymere"));
    EXPECT_THAT(fiscora::description(), HasSubstr("money"));
}
