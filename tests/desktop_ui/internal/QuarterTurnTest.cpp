#include "internal/QuarterTurn.h"

#include <QLine>

#include <gtest/gtest.h>
#include <stdexcept>

using tlm::desktop_ui::internal::quarterTurn;

namespace {

QSize const hint(12, 80); // a text 80 long and 12 high, turned
QLine const baseline(0, 10, 80, 10);
}

TEST(QuarterTurnTest, TextFromLeftToRightRunsDown)
{
    auto const turn = quarterTurn(hint, Qt::LeftToRight);

    EXPECT_EQ(turn.map(baseline), QLine(2, 0, 2, 80));
}

TEST(QuarterTurnTest, TextFromRightToLeftRunsUp)
{
    auto const turn = quarterTurn(hint, Qt::RightToLeft);

    EXPECT_EQ(turn.map(baseline), QLine(10, 80, 10, 0));
}

TEST(QuarterTurnTest, ADirectionLeftToTheTextIsRefused)
{
    try {
        quarterTurn(hint, Qt::LayoutDirectionAuto);
        FAIL() << "took a direction that it can't know";
    } catch (std::logic_error const& refusal) {
        EXPECT_STREQ(refusal.what(), "The Qt::LayoutDirectionAuto text content detection is not implemented.");
    }
}
