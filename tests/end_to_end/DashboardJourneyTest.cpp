#include "Journey.h"

#include <tlm/foundation/PresentationText.h>

#include <QDial>
#include <QLabel>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTextEdit>

namespace tallymere {
namespace {

using tlm::desktop_ui::MainWindow;

using DashboardJourneyTest = Journey;

TEST_F(DashboardJourneyTest, TheSampleHouseholdShowsWhatFallsDueItsHealthAndItsTotals)
{
    startSample();

    auto const due = program->session().household().due(QDate::currentDate());
    auto const health = program->session().household().health();
    auto const& table = find<QTableWidget>("budgetItemsDueTblwdgt");
    ASSERT_EQ(table.rowCount(), static_cast<int>(due.size()));
    EXPECT_EQ(table.item(0, 0)->background().color(), QColor(Qt::darkRed)) << "the sample has something overdue";
    EXPECT_EQ(table.item(0, 1)->text(), due.front().dueOn.toString(Qt::TextDate));
    EXPECT_EQ(find<QDial>("budgetHealthDl").value(), static_cast<int>(health.percent()));
    EXPECT_EQ(find<QLabel>("budgetHealthStatusLbl").text(),
              "Status: " + tlm::adviser::presentationText(health.status()));
    // Some locales keep a number and its percent sign together with a blank that a plain text gives up.
    auto const advice = health.information().join("\n\n").replace(QChar::Nbsp, ' ');
    EXPECT_EQ(find<QTextEdit>("infoTxtdt").toPlainText(), advice);
    auto const& totals = find<QTableWidget>("monthlyTotalsTblwdgt");
    for (int row = 0; row < 5; ++row) {
        EXPECT_GT(totals.item(row, 0)->text().size(), 3) << row;
    }
}

TEST_F(DashboardJourneyTest, ADoubleClickOnATotalAsksForItsKind)
{
    startSample();
    QSignalSpy const wages(&window(), &MainWindow::prepareShowWages);
    auto& totals = find<QTableWidget>("monthlyTotalsTblwdgt");
    auto const place = totals.visualItemRect(totals.item(0, 0)).center();

    QTest::mouseClick(totals.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(totals.viewport(), Qt::LeftButton, {}, place);

    EXPECT_EQ(wages.count(), 1);
}

TEST_F(DashboardJourneyTest, EveryPersonFindsTheDashboardOfTheLastFileAtTheNextStart)
{
    startSample();
    auto const items = find<QTableWidget>("budgetItemsDueTblwdgt").rowCount();
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    chooseFile("family.budget");
    program.reset();

    start({});

    EXPECT_EQ(find<QTableWidget>("budgetItemsDueTblwdgt").rowCount(), items);
}

TEST_F(DashboardJourneyTest, TheWordingChosenLastIsRemembered)
{
    start({{}, false, true});
    ASSERT_TRUE(find<QAction>("ledgersActn").isVisible());
    program.reset();

    start({});

    EXPECT_TRUE(find<QAction>("ledgersActn").isVisible());
}
}
}
