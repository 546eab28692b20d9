#include "internal/BudgetHealthWidget.h"

#include "ShowActive.h"
#include "support/MessageLog.h"
#include "support/Widgets.h"

#include <QDial>
#include <QLabel>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTextEdit>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

using fiscora::Currency;
using fiscora::Money;
using ::testing::ElementsAre;
using tlm::adviser::BudgetHealth;
using tlm::adviser::HealthStatuses;
using tlm::budgeting::BudgetItemTypes;
using tlm::desktop_ui::internal::BudgetHealthWidget;
using tlm::navigation::CurrencyDisplayOptions;
using tlm::testing::child;
using tlm::testing::MessageLog;
using tlm::testing::showActive;

namespace {

class BudgetHealthWidgetTest : public ::testing::Test
{
protected:
    BudgetHealthWidget widget{nullptr};
    QDial& dial = child<QDial>(widget, "budgetHealthDl");
    QLabel& status = child<QLabel>(widget, "budgetHealthStatusLbl");
    QTextEdit& information = child<QTextEdit>(widget, "infoTxtdt");
};

struct StatusCase
{
    HealthStatuses status;
    Qt::GlobalColor colour;
    char const* name;
};

class BudgetHealthStatusTest : public BudgetHealthWidgetTest, public ::testing::WithParamInterface<StatusCase>
{};

struct PercentCase
{
    double percent;
    int value;
};

class BudgetHealthPercentTest : public BudgetHealthWidgetTest, public ::testing::WithParamInterface<PercentCase>
{};
}

INSTANTIATE_TEST_SUITE_P(Statuses, BudgetHealthStatusTest,
                         ::testing::Values(StatusCase{HealthStatuses::Healthy, Qt::green, "Healthy"},
                                           StatusCase{HealthStatuses::Cautious, Qt::yellow, "Cautious"},
                                           StatusCase{HealthStatuses::Unhealthy, Qt::red, "Unhealthy"}),
                         [](auto const& status) { return status.param.name; });

TEST_P(BudgetHealthStatusTest, ColoursTheDialAndTellsTheStatus)
{
    widget.updateHealth({GetParam().status, 50, {}});

    EXPECT_EQ(dial.palette().color(QPalette::Active, QPalette::Button), QColor(GetParam().colour));
    EXPECT_EQ(dial.palette().color(QPalette::Disabled, QPalette::Button), QColor(GetParam().colour));
    EXPECT_EQ(status.text(), QStringLiteral("Status: ") + presentationText(GetParam().status));
}

INSTANTIATE_TEST_SUITE_P(Percents, BudgetHealthPercentTest,
                         ::testing::Values(PercentCase{0, 0}, PercentCase{0.99, 0}, PercentCase{1, 1},
                                           PercentCase{73.9, 73}, PercentCase{99.999, 99}, PercentCase{100, 100}));

TEST_P(BudgetHealthPercentTest, TruncatesThePercentOnTheDial)
{
    widget.updateHealth({HealthStatuses::Cautious, GetParam().percent, {}});

    EXPECT_EQ(dial.value(), GetParam().value);
}

TEST_F(BudgetHealthWidgetTest, KeepsTheDialAMeter)
{
    widget.updateHealth({HealthStatuses::Healthy, 60, {}});
    showActive(widget);

    QTest::mouseClick(&dial, Qt::LeftButton, {}, dial.rect().bottomLeft() + QPoint(5, -5));
    QTest::keyClick(&dial, Qt::Key_Up);

    EXPECT_FALSE(dial.isEnabled());
    EXPECT_EQ(dial.value(), 60);
    EXPECT_EQ(dial.minimum(), 0);
    EXPECT_EQ(dial.maximum(), 100);
    EXPECT_TRUE(dial.notchesVisible());
    EXPECT_FALSE(dial.wrapping());
}

TEST_F(BudgetHealthWidgetTest, PartsTheAdviceByBlankLines)
{
    widget.updateHealth({HealthStatuses::Healthy, 60, {"Bills take 43% of wages.", "Save more.", "Pay debts."}});

    EXPECT_EQ(information.toPlainText(), "Bills take 43% of wages.\n\nSave more.\n\nPay debts.");
    EXPECT_TRUE(information.isReadOnly());
}

TEST_F(BudgetHealthWidgetTest, ShowsAdviceToTheLetter)
{
    widget.updateHealth({HealthStatuses::Healthy, 60, {"<b>Rent</b> & <i>food</i> come first."}});

    EXPECT_EQ(information.toPlainText(), "<b>Rent</b> & <i>food</i> come first.");
}

TEST_F(BudgetHealthWidgetTest, ShowsNoAdviceWhenThereIsNone)
{
    widget.updateHealth({HealthStatuses::Healthy, 60, {"old"}});

    widget.updateHealth({HealthStatuses::Healthy, 60, {}});

    EXPECT_EQ(information.toPlainText(), QString());
}

TEST_F(BudgetHealthWidgetTest, RefusesAnUnknownStatusAndKeepsWhatItShows)
{
    widget.updateHealth({HealthStatuses::Healthy, 60, {"Well done."}});
    BudgetHealth const unknown(static_cast<HealthStatuses>(3), 10, {"Lost."});

    try {
        widget.updateHealth(unknown);
        FAIL() << "took an unknown status";
    } catch (std::logic_error const& refusal) {
        EXPECT_STREQ(refusal.what(), "The budget health widget did not handle the health status.");
    }

    EXPECT_EQ(dial.palette().color(QPalette::Button), QColor(Qt::green));
    EXPECT_EQ(dial.value(), 60);
    EXPECT_EQ(status.text(), QStringLiteral("Status: ") + presentationText(HealthStatuses::Healthy));
    EXPECT_EQ(information.toPlainText(), "Well done.");
}

TEST_F(BudgetHealthWidgetTest, LogsItsUpdatesInOrder)
{
    MessageLog::clear();

    widget.updateTotals({}, CurrencyDisplayOptions::Code, Currency::USD);
    widget.updateHealth({HealthStatuses::Healthy, 60, {}});

    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Updating to the calculated budget totals", "Updating monthly budget totals",
                            "Updating budget health information"));
}

TEST_F(BudgetHealthWidgetTest, PassesTheSelectedTypeOn)
{
    widget.updateTotals({}, CurrencyDisplayOptions::Code, Currency::USD);
    auto& table = child<QTableWidget>(widget, "monthlyTotalsTblwdgt");
    QSignalSpy displayed(&widget, &BudgetHealthWidget::displayBudgetInterface);

    emit table.itemDoubleClicked(table.item(3, 0));

    ASSERT_EQ(displayed.count(), 1);
    EXPECT_EQ(displayed.at(0).at(0).value<BudgetItemTypes>(), BudgetItemTypes::Bill);
}

TEST_F(BudgetHealthWidgetTest, TellsAssistiveToolsWhatTheDialMeasures)
{
    widget.updateHealth({HealthStatuses::Healthy, 60, {}});

    auto* const meter = QAccessible::queryAccessibleInterface(&dial);
    auto* const advice = QAccessible::queryAccessibleInterface(&information);

    ASSERT_NE(meter, nullptr);
    EXPECT_EQ(meter->text(QAccessible::Name), "Budget Health");
    EXPECT_EQ(meter->valueInterface()->currentValue().toInt(), 60);
    ASSERT_NE(advice, nullptr);
    EXPECT_EQ(advice->text(QAccessible::Name), "Advice on the budget's health");
}

TEST_F(BudgetHealthWidgetTest, EndsWhenClosed)
{
    QPointer<BudgetHealthWidget> const view = new BudgetHealthWidget(nullptr);
    showActive(*view);

    view->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_TRUE(view.isNull());
}
