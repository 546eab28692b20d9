#include <tlm/desktop_ui/DataEntryError.h>
#include <tlm/desktop_ui/EventFrequencyEntryWidget.h>

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using budgeting::EventFrequency;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::MessageLog;

namespace {

QString messageOf(std::function<void()> const& act)
{
    try {
        act();
    } catch (DataEntryError const& error) {
        return error.message();
    }
    return QStringLiteral("nothing was thrown");
}
}

class EventFrequencyEntryWidgetTest : public ::testing::Test
{
protected:
    EventFrequencyEntryWidgetTest() { widget.show(); }

    EventFrequencyEntryWidget widget{nullptr};
    QComboBox& periods = child<QComboBox>(widget, "periodCmbbx");
    QSignalSpy changed{&widget, &EventFrequencyEntryWidget::selectionChanged};
};

TEST_F(EventFrequencyEntryWidgetTest, OffersEveryFrequencyAfterABlankItem)
{
    ASSERT_EQ(periods.count(), 22);
    for (auto row = 0; row < 22; ++row) {
        EXPECT_EQ(periods.itemText(row), presentationText(static_cast<EventFrequency>(row)));
    }
    EXPECT_EQ(periods.itemText(0), "");
    EXPECT_EQ(widget.period(), EventFrequency::None);
}

TEST_F(EventFrequencyEntryWidgetTest, SelectsEachFrequencyThatItOffers)
{
    for (auto row = 21; row >= 0; --row) {
        auto const frequency = static_cast<EventFrequency>(row);

        widget.select(frequency);

        EXPECT_EQ(periods.currentIndex(), row);
        EXPECT_EQ(widget.period(), frequency);
    }
}

TEST_F(EventFrequencyEntryWidgetTest, PickingAFrequencyTellsItOnce)
{
    QTest::keyClick(&periods, Qt::Key_Down);

    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.at(0).at(0).value<EventFrequency>(), EventFrequency::Hourly);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Frequency changed to: EventFrequency(Hourly)"));
}

TEST_F(EventFrequencyEntryWidgetTest, PickingTheBlankItemTellsThatThereIsNone)
{
    widget.select(EventFrequency::Hourly);
    changed.clear();

    QTest::keyClick(&periods, Qt::Key_Up);

    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.at(0).at(0).value<EventFrequency>(), EventFrequency::None);
    EXPECT_EQ(widget.period(), EventFrequency::None);
}

TEST_F(EventFrequencyEntryWidgetTest, SelectingFromCodeIsLoggedBeforeItIsTold)
{
    widget.select(EventFrequency::Monthly);

    EXPECT_EQ(changed.count(), 1);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Selecting period frequency: EventFrequency(Monthly)",
                                                          "Frequency changed to: EventFrequency(Monthly)"));
}

TEST_F(EventFrequencyEntryWidgetTest, OffersTheGivenFrequenciesInTheirOrder)
{
    EventFrequencyEntryWidget some({EventFrequency::Yearly, EventFrequency::None, EventFrequency::Weekly}, nullptr);
    auto const& offered = child<QComboBox>(some, "periodCmbbx");

    EXPECT_EQ(offered.count(), 3);
    EXPECT_EQ(offered.itemText(0), presentationText(EventFrequency::Yearly));
    EXPECT_EQ(offered.itemText(1), "");
    EXPECT_EQ(offered.itemText(2), presentationText(EventFrequency::Weekly));
    EXPECT_EQ(some.period(), EventFrequency::Yearly);
}

TEST_F(EventFrequencyEntryWidgetTest, BuildingItTellsNothing)
{
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), IsEmpty()); // what is told is logged before
}

TEST_F(EventFrequencyEntryWidgetTest, WithoutFrequenciesThereIsNone)
{
    EventFrequencyEntryWidget none(std::vector<EventFrequency>(), nullptr);

    EXPECT_EQ(child<QComboBox>(none, "periodCmbbx").count(), 0);
    EXPECT_EQ(none.period(), EventFrequency::None);
}

TEST_F(EventFrequencyEntryWidgetTest, RefusesAFrequencyThatIsNotOnOffer)
{
    EventFrequencyEntryWidget some({EventFrequency::Weekly, EventFrequency::Monthly}, nullptr);
    some.select(EventFrequency::Monthly);
    auto const yearly = presentationText(EventFrequency::Yearly);

    auto const told = messageOf([&] { some.select(EventFrequency::Yearly); });

    EXPECT_EQ(told, QStringLiteral("The value, %1, is not valid for the \"period\" entry. The frequency is not a valid "
                                   "selection.")
                        .arg(yearly));
    EXPECT_EQ(some.period(), EventFrequency::Monthly);
}

TEST_F(EventFrequencyEntryWidgetTest, RefusesNoFrequencyWhereThereIsNoBlankItem)
{
    EventFrequencyEntryWidget some({EventFrequency::Weekly}, nullptr);

    auto const told = messageOf([&] { some.select(EventFrequency::None); });

    EXPECT_EQ(told, "The value, , is not valid for the \"period\" entry. The frequency is not a valid selection.");
    EXPECT_EQ(some.period(), EventFrequency::Weekly);
}

TEST_F(EventFrequencyEntryWidgetTest, ItsDescriptionStandsUntrimmed)
{
    widget.setDescription(" How often: ");

    EXPECT_EQ(child<QLabel>(widget, "periodLbl").text(), " How often: ");
}

TEST_F(EventFrequencyEntryWidgetTest, RefusesABlankDescription)
{
    for (auto const& blank : {QString(), QString(" \t\u2003")}) {
        auto const told = messageOf([&] { widget.setDescription(blank); });

        EXPECT_EQ(told, QStringLiteral("The value, %1, is not valid for the \"period description\" entry. The period "
                                       "description cannot be empty.")
                            .arg(blank));
        EXPECT_EQ(child<QLabel>(widget, "periodLbl").text(), "Period:");
    }
}

TEST_F(EventFrequencyEntryWidgetTest, SpeaksItsLabel)
{
    EXPECT_EQ(child<QLabel>(widget, "periodLbl").buddy(), &periods);
}
}
