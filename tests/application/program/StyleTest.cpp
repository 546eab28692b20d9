#include <program/Style.h>

#include <gtest/gtest.h>

namespace tallymere::program {
namespace {

class StyleArrowTest : public ::testing::TestWithParam<QStyle::StandardPixmap>
{};

TEST_P(StyleArrowTest, IsDrawnAtAnySize)
{
    Style const style;

    auto const large = style.standardIcon(GetParam()).pixmap(QSize(64, 64), 1.0).toImage();

    ASSERT_EQ(large.size(), QSize(64, 64));
    QImage nothing(large.size(), large.format());
    nothing.fill(Qt::transparent);
    EXPECT_NE(large, nothing);
}

TEST_P(StyleArrowTest, LetsTheBarShowThroughAroundIt)
{
    Style const style;

    auto const image = style.standardIcon(GetParam()).pixmap(QSize(64, 64), 1.0).toImage();

    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(63, 63).alpha(), 0);
}

INSTANTIATE_TEST_SUITE_P(BothDirections, StyleArrowTest,
                         ::testing::Values(QStyle::SP_ToolBarHorizontalExtensionButton,
                                           QStyle::SP_ToolBarVerticalExtensionButton));

TEST(StyleTest, LeavesOtherPicturesToThePlatform)
{
    Style const style;

    EXPECT_FALSE(style.standardIcon(QStyle::SP_MessageBoxWarning).isNull());
}
}
}
