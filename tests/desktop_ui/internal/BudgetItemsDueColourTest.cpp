#include "BudgetItemsDueFixture.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>

using tlm::budgeting::BudgetItemAmountDue;
using tlm::testing::BudgetItemsDueFixture;
using tlm::testing::dueIn;

namespace {

double luminance(QColor const& colour)
{
    auto const linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// \return from 1 for none to 21, as accessibility guides count it; 4.5 reads well
double contrast(QColor const& one, QColor const& other)
{
    auto const [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x32, 0x32, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::Text, Qt::white);
    return palette;
}

struct ColourBands
{
    int dueWithin;
    int lastYellow; // 0: nothing shows yellow
    int lastGreen;  // not above lastYellow: nothing shows green
};

class BudgetItemsDueColourTest : public BudgetItemsDueFixture, public ::testing::WithParamInterface<ColourBands>
{
protected:
    static std::optional<QColor> expected(int left)
    {
        if (left < 0) {
            return Qt::darkRed;
        }
        if (left == 0) {
            return Qt::red;
        }
        if (left <= GetParam().lastYellow) {
            return Qt::yellow;
        }
        if (left <= GetParam().lastGreen) {
            return Qt::green;
        }
        return std::nullopt;
    }
};

class BudgetItemsDuePaletteTest : public BudgetItemsDueFixture
{};
}

INSTANTIATE_TEST_SUITE_P(Limits, BudgetItemsDueColourTest,
                         ::testing::Values(ColourBands{0, 0, 0}, ColourBands{1, 0, 0}, ColourBands{2, 0, 1},
                                           ColourBands{3, 0, 1}, ColourBands{4, 1, 2}, ColourBands{5, 1, 2},
                                           ColourBands{7, 1, 3}, ColourBands{8, 2, 4}, ColourBands{14, 3, 7},
                                           ColourBands{30, 7, 15}, ColourBands{365, 91, 182}),
                         [](auto const& bands) { return "Within" + std::to_string(bands.param.dueWithin); });

TEST_P(BudgetItemsDueColourTest, TellsHowPressingEachItemIs)
{
    std::vector<BudgetItemAmountDue> items;
    for (auto left = -3; left <= GetParam().dueWithin; ++left) {
        items.push_back(dueIn(left));
    }

    update(items, GetParam().dueWithin);

    for (auto row = 0; row < table.rowCount(); ++row) {
        auto const colour = expected(row - 3);
        for (auto const column : {0, 1}) {
            auto const* const item = table.item(row, column);
            EXPECT_EQ(item->background().color(), colour.value_or(table.palette().color(QPalette::Base))) << row - 3;
            EXPECT_EQ(item->data(Qt::ForegroundRole).isValid(), colour.has_value()) << row - 3;
            EXPECT_TRUE(!colour || item->foreground().color() == QColor(Qt::black)) << row - 3;
        }
    }
}

TEST_P(BudgetItemsDueColourTest, LeavesItemsBeyondTheLimitBlankInTheirRows)
{
    auto const limit = GetParam().dueWithin;

    update({dueIn(limit + 1), dueIn(limit), dueIn(limit + 400), dueIn(-1)}, limit);

    ASSERT_EQ(table.rowCount(), 4);
    EXPECT_TRUE(isBlank(0));
    EXPECT_EQ(table.item(1, 0)->text(), QString::number(limit));
    EXPECT_TRUE(isBlank(2));
    EXPECT_EQ(table.item(3, 0)->text(), "-1");
}

TEST_F(BudgetItemsDuePaletteTest, KeepsCalmRowsReadableWhenThePaletteTurnsDark)
{
    update({dueIn(14)}, 14);

    widget.setPalette(darkPalette());

    EXPECT_EQ(background(0), darkPalette().color(QPalette::Base));
    EXPECT_GE(contrast(table.palette().color(QPalette::Text), background(0)), 4.5);
    EXPECT_FALSE(table.item(0, 0)->data(Qt::ForegroundRole).isValid());
}

TEST_F(BudgetItemsDuePaletteTest, KeepsPressingRowsAlikeInADarkPalette)
{
    widget.setPalette(darkPalette());

    update({dueIn(0), dueIn(1), dueIn(5)}, 14);

    for (auto row = 0; row < table.rowCount(); ++row) {
        EXPECT_GE(contrast(table.item(row, 0)->foreground().color(), background(row)), 4.5) << row;
    }
}
