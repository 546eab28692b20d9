#include <tlm/desktop_ui/VerticalLabel.h>

#include <QImage>
#include <QLabel>

#include <algorithm>
#include <gtest/gtest.h>

namespace tlm::desktop_ui {

namespace {

/// \return the places on \a widget that aren't background
std::vector<QPoint> inkedPlaces(QWidget& widget)
{
    auto const picture = widget.grab().toImage();
    auto const paper = widget.palette().color(QPalette::Window).rgb();
    std::vector<QPoint> places;
    for (auto y = 0; y < picture.height(); ++y) {
        for (auto x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != paper) {
                places.emplace_back(x, y);
            }
        }
    }
    return places;
}

QRect inkOf(QWidget& widget)
{
    QRect ink;
    for (auto const& place : inkedPlaces(widget)) {
        ink |= QRect(place, QSize(1, 1));
    }
    return ink;
}

long inkAmount(QWidget& widget, QRect const& area)
{
    return std::ranges::count_if(inkedPlaces(widget), [&](QPoint const& place) { return area.contains(place); });
}
}

class VerticalLabelTest : public ::testing::Test
{
protected:
    VerticalLabelTest()
    {
        for (auto* const each : {static_cast<QLabel*>(&label), &flat}) {
            each->setText("Available to spread");
            each->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
            each->resize(each->sizeHint());
        }
    }

    VerticalLabel label{nullptr};
    QLabel flat;
};

TEST_F(VerticalLabelTest, IsEmptyAtFirst)
{
    VerticalLabel const fresh(nullptr);

    EXPECT_EQ(fresh.text(), "");
    EXPECT_EQ(fresh.windowFlags(), QLabel().windowFlags());
}

TEST_F(VerticalLabelTest, AsksForTheRoomOfAFlatLabelOnItsSide)
{
    EXPECT_EQ(label.sizeHint(), flat.sizeHint().transposed());
    EXPECT_EQ(label.minimumSizeHint(), flat.minimumSizeHint().transposed());
    EXPECT_GT(label.sizeHint().height(), label.sizeHint().width());
}

TEST_F(VerticalLabelTest, ItsTextRunsDown)
{
    // Aligned to where the text begins, a short text leaves the far end free.
    label.resize(label.width(), 3 * label.height());

    auto const ink = inkOf(label);

    EXPECT_GT(ink.height(), ink.width());
    EXPECT_LT(ink.top(), label.height() / 4);
    EXPECT_LT(ink.bottom(), label.height() / 2);
}

TEST_F(VerticalLabelTest, ItsTextRunsUpWherePeopleWriteFromRightToLeft)
{
    // The beginning of this text takes the most ink.
    label.setText("MMMM            l");
    label.resize(label.sizeHint());
    QRect const above(0, 0, label.width(), label.height() / 2);
    QRect const below = above.translated(0, label.height() / 2);

    EXPECT_GT(inkAmount(label, above), inkAmount(label, below));
    label.setLayoutDirection(Qt::RightToLeft);

    EXPECT_LT(inkAmount(label, above), inkAmount(label, below));
}

TEST_F(VerticalLabelTest, ItsAlignmentCountsAlongTheText)
{
    label.setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label.resize(label.width(), 3 * label.height());

    auto const ink = inkOf(label);

    EXPECT_NEAR(ink.center().y(), label.height() / 2, 4);
}

TEST_F(VerticalLabelTest, AllOfItsTextLiesWithinIt)
{
    for (auto const direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        label.setLayoutDirection(direction);
        auto const fitting = inkOf(label).size();

        EXPECT_NEAR(fitting.height(), inkOf(flat).width(), 4) << direction;
        EXPECT_NEAR(fitting.width(), inkOf(flat).height(), 4) << direction;
    }
}

TEST_F(VerticalLabelTest, AStretchedLabelKeepsItsTextAtTheHintsEdge)
{
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto const before = inkOf(label);

    label.resize(label.width() * 5, label.height());

    EXPECT_EQ(inkOf(label).right(), before.right());
}

TEST_F(VerticalLabelTest, ShowsMarkupToTheLetter)
{
    flat.setTextFormat(Qt::PlainText);
    for (auto* const each : {static_cast<QLabel*>(&label), &flat}) {
        each->setText("<i>x</i>");
        each->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        each->resize(300, 300);
    }

    EXPECT_NEAR(inkOf(label).height(), inkOf(flat).width(), 4);
}

TEST_F(VerticalLabelTest, ADirectionLeftToTheTextMeansTheFormsOne)
{
    label.setLayoutDirection(Qt::RightToLeft);

    label.setLayoutDirection(Qt::LayoutDirectionAuto);

    EXPECT_EQ(label.layoutDirection(), Qt::LeftToRight);
    EXPECT_FALSE(inkOf(label).isEmpty());
}
}
