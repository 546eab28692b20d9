#include "Fixture.h"

#include <presenter/DashboardPresenter.h>
#include <tlm/foundation/PresentationText.h>

#include <QLabel>
#include <QTableWidget>
#include <QTextEdit>

namespace tallymere::presenter {
namespace {

using tlm::testing::child;
using tlm::testing::expectMessage;

class DashboardPresenterTest : public PresenterTest
{
protected:
    QString total(int row) { return child<QTableWidget>(window, "monthlyTotalsTblwdgt").item(row, 0)->text(); }

    DashboardPresenter presenter{window, session};
};

TEST_F(DashboardPresenterTest, AnEmptyBudgetHasNothingDueAndZeroTotals)
{
    emit window.prepareShowDashboard();

    EXPECT_EQ(child<QTableWidget>(window, "budgetItemsDueTblwdgt").rowCount(), 0);
    auto const zero =
        tlm::foundation::presentationText(fiscora::Money(session.household().content().settings.preferred));
    for (int row = 0; row < 5; ++row) {
        EXPECT_EQ(total(row), zero) << row;
    }
}

TEST_F(DashboardPresenterTest, ShowsTheFiguresThatTheHouseholdComputes)
{
    session.open(writeSample("sample.budget"));

    emit window.prepareShowDashboard();

    auto const totals = session.household().monthlyTotals();
    using tlm::foundation::presentationText;
    EXPECT_EQ(total(0), presentationText(totals.wages));
    EXPECT_EQ(total(1), presentationText(totals.nontracks));
    EXPECT_EQ(total(2), presentationText(totals.goals));
    EXPECT_EQ(total(3), presentationText(totals.bills));
    EXPECT_EQ(total(4), presentationText(totals.debts));
}

TEST_F(DashboardPresenterTest, ListsEveryItemDueInOrder)
{
    session.open(writeSample("sample.budget"));

    emit window.prepareShowDashboard();

    auto const due = session.household().due(QDate::currentDate());
    auto const& table = child<QTableWidget>(window, "budgetItemsDueTblwdgt");
    ASSERT_FALSE(due.empty());
    ASSERT_EQ(table.rowCount(), static_cast<int>(due.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
        EXPECT_EQ(table.item(row, 0)->text(), due.at(static_cast<std::size_t>(row)).source.name());
    }
}

TEST_F(DashboardPresenterTest, ShowsTheBudgetThatIsOpenNow)
{
    session.open(writeSample("sample.budget"));
    emit window.prepareShowDashboard();
    session.beginEmpty();

    emit window.prepareShowDashboard();

    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(child<QTableWidget>(window, "budgetItemsDueTblwdgt").rowCount(), 0);
}

TEST_F(DashboardPresenterTest, ABudgetTooLargeToCountSaysSoWhereTheAdviceStands)
{
    expectMessage(QtWarningMsg, "Failed to count the budget");
    session.change([](engine::Household& household) {
        fiscora::Money const huge(household.content().settings.preferred, 600'000'000'000'000, 0, 0);
        for (auto const* const name : {"Castle", "Moon"}) {
            engine::PlannedItem item;
            item.identifier = {tlm::budgeting::BudgetItemTypes::Bill, tlm::budgeting::BudgetSource(name)};
            item.amount = huge;
            item.period = tlm::budgeting::EventFrequency::Monthly;
            item.nextOccurOn = QDate::currentDate();
            household.add(item, {}, QDate::currentDate());
        }
    });

    emit window.prepareShowDashboard();

    EXPECT_EQ(child<QTextEdit>(window, "infoTxtdt").toPlainText(),
              "The budget's amounts add up to more than can be counted. Plan smaller ones, or correct the exchange "
              "rates.");
    EXPECT_EQ(child<QTableWidget>(window, "budgetItemsDueTblwdgt").rowCount(), 2);
}

TEST_F(DashboardPresenterTest, ABudgetOfWhichADayIsTooLargeToCountIsShownToo)
{
    expectMessage(QtWarningMsg, "Failed to count the budget");
    expectMessage(QtWarningMsg, "Failed to count what is due");
    session.change([](engine::Household& household) {
        engine::PlannedItem item;
        item.identifier = {tlm::budgeting::BudgetItemTypes::Wage, tlm::budgeting::BudgetSource("Moon")};
        item.amount = {household.content().settings.preferred, 100'000'000'000'000, 0, 0};
        item.period = tlm::budgeting::EventFrequency::Hourly;
        item.nextOccurOn = QDate::currentDate();
        auto settings = household.content().settings;
        settings.workingWeek = {std::chrono::hours(1), std::chrono::days(1)};
        household.configure(settings);
        household.add(item, {}, QDate::currentDate());
        settings.workingWeek = {std::chrono::hours(168), std::chrono::days(1)};
        household.configure(settings);
    });

    emit window.prepareShowDashboard();

    EXPECT_EQ(child<QTableWidget>(window, "budgetItemsDueTblwdgt").rowCount(), 0);
    EXPECT_TRUE(child<QTextEdit>(window, "infoTxtdt").toPlainText().startsWith("The budget's amounts add up to more"));
}
}
}
