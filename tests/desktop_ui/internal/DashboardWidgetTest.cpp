#include "internal/DashboardWidget.h"

#include "ShowActive.h"
#include "support/MessageLog.h"
#include "support/Widgets.h"

#include <tlm/foundation/PresentationText.h>

#include <QAccessible>
#include <QDial>
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
using tlm::budgeting::BudgetItemAmountDue;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetTotals;
using tlm::desktop_ui::internal::DashboardWidget;
using tlm::navigation::CurrencyDisplayOptions;
using tlm::testing::child;
using tlm::testing::MessageLog;
using tlm::testing::showActive;

namespace {

BudgetHealth const healthy(HealthStatuses::Healthy, 73.9, {"Bills take 43% of wages.", "Two goals are served."});

BudgetTotals totals()
{
    auto const units = [](long long major) { return Money(Currency::USD, major, 0, 0); };
    return {units(1), units(2), units(3), units(4), units(5)};
}

std::vector<BudgetItemAmountDue> rent()
{
    return {
        {{{BudgetItemTypes::Bill, tlm::budgeting::BudgetSource("Rent")}, QDate::currentDate()}, Money(Currency::USD)}};
}

class DashboardWidgetTest : public ::testing::Test
{
protected:
    std::unique_ptr<DashboardWidget> dashboard(std::vector<BudgetItemAmountDue> const& due = rent(),
                                               BudgetHealth const& health = healthy)
    {
        return std::make_unique<DashboardWidget>(totals(), due, health, std::chrono::days(14), Currency::USD,
                                                 CurrencyDisplayOptions::Code, nullptr);
    }
};

struct TypeCase
{
    int row;
    BudgetItemTypes type;
};

class DashboardTypeTest : public DashboardWidgetTest, public ::testing::WithParamInterface<TypeCase>
{};
}

TEST_F(DashboardWidgetTest, ShowsTotalsThenItemsThenHealth)
{
    auto const view = dashboard();

    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Updating to the calculated budget totals", "Updating monthly budget totals",
                            "Updating the budget items due", "The budget item Rent is due within 0 days.",
                            "Updating budget health information"));
}

TEST_F(DashboardWidgetTest, ShowsWhatItWasGiven)
{
    auto const view = dashboard();

    EXPECT_EQ(child<QTableWidget>(*view, "budgetItemsDueTblwdgt").item(0, 0)->text(), "Rent");
    EXPECT_EQ(child<QTableWidget>(*view, "monthlyTotalsTblwdgt").item(3, 0)->text(),
              tlm::foundation::presentationText(totals().bills));
    EXPECT_EQ(child<QTableWidget>(*view, "monthlyTotalsTblwdgt").horizontalHeaderItem(0)->text(),
              "Monthly Total (USD)");
    EXPECT_EQ(child<QDial>(*view, "budgetHealthDl").value(), 73);
    EXPECT_EQ(child<QTextEdit>(*view, "infoTxtdt").toPlainText(), "Bills take 43% of wages.\n\nTwo goals are served.");
    EXPECT_EQ(view->windowTitle(), "Main Dashboard");
}

TEST_F(DashboardWidgetTest, RefusesAnUnknownHealthStatus)
{
    BudgetHealth const unknown(static_cast<HealthStatuses>(7), 50, {});

    EXPECT_THROW(dashboard(rent(), unknown), std::logic_error);
}

INSTANTIATE_TEST_SUITE_P(Types, DashboardTypeTest,
                         ::testing::Values(TypeCase{0, BudgetItemTypes::Wage}, TypeCase{1, BudgetItemTypes::Nontrack},
                                           TypeCase{2, BudgetItemTypes::Goal}, TypeCase{3, BudgetItemTypes::Bill},
                                           TypeCase{4, BudgetItemTypes::Debt}));

TEST_P(DashboardTypeTest, AsksForThePlanningViewOfADoubleClickedTotal)
{
    auto const view = dashboard();
    showActive(*view);
    auto& table = child<QTableWidget>(*view, "monthlyTotalsTblwdgt");
    auto const at = table.visualItemRect(table.item(GetParam().row, 0)).center();
    QSignalSpy displayed(view.get(), &DashboardWidget::displayBudgetInterface);

    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, at);

    ASSERT_EQ(displayed.count(), 1);
    EXPECT_EQ(displayed.at(0).at(0).value<BudgetItemTypes>(), GetParam().type);
}

TEST_F(DashboardWidgetTest, WalksByTabFromWhatIsDueToTheAdvice)
{
    auto const view = dashboard();
    showActive(*view);

    auto const order = tlm::testing::tabOrder(child<QTableWidget>(*view, "budgetItemsDueTblwdgt"));

    EXPECT_EQ(order, QStringList({"budgetItemsDueTblwdgt", "monthlyTotalsTblwdgt", "infoTxtdt"}));
}

TEST_F(DashboardWidgetTest, GivesItsViewsAtLeastTheirLeastSizes)
{
    auto const view = dashboard();
    view->resize(1366, 640);
    showActive(*view);
    auto const& due = child<QWidget>(*view, "itemsDue");
    auto const& health = child<QWidget>(*view, "budgetHealth");

    EXPECT_GE(due.height(), 300);
    EXPECT_GE(due.width(), 500);
    EXPECT_GE(health.height(), 260);
    EXPECT_FALSE(due.geometry().intersects(health.geometry()));
    EXPECT_TRUE(view->rect().contains(health.geometry()));
}

TEST_F(DashboardWidgetTest, AnswersAScreenReader)
{
    QAccessible::setActive(true);
    auto const view = dashboard();
    showActive(*view);

    for (auto const* const name : {"budgetItemsDueTblwdgt", "monthlyTotalsTblwdgt"}) {
        auto* const table = QAccessible::queryAccessibleInterface(&child<QTableWidget>(*view, name));
        ASSERT_NE(table->focusChild(), nullptr) << name;
        EXPECT_FALSE(table->focusChild()->text(QAccessible::Name).isEmpty()) << name;
        EXPECT_FALSE(table->text(QAccessible::Name).isEmpty()) << name;
    }
    QAccessible::setActive(false);
}

TEST_F(DashboardWidgetTest, EndsWhenClosed)
{
    QPointer<DashboardWidget> const view = dashboard().release();
    showActive(*view);

    view->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_TRUE(view.isNull());
}
