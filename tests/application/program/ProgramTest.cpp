#include <program/Program.h>

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QTableWidget>

#include <gtest/gtest.h>
#include <support/Home.h>
#include <support/Widgets.h>
#include <utility>

namespace tallymere::program {
namespace {

using tlm::desktop_ui::MainWindow;

using View = std::pair<void (MainWindow::*)(), char const*>;

/// The program with the sample household; the parameter is a wish, and the object name of the view that answers it.
class ProgramTest : public ::testing::TestWithParam<View>
{
protected:
    QString shown() { return program.window().centralWidget()->objectName(); }

    tlm::testing::Home home;
    Program program{{.filePathName = {}, .isSample = true, .isAccounting = {}}};
};

TEST_P(ProgramTest, ShowsTheViewThatIsWishedForAndTheDashboardOnceItIsLeft)
{
    program.start();
    ASSERT_EQ(shown(), "DashboardWdgt");

    emit(program.window().*GetParam().first)();
    EXPECT_EQ(shown(), GetParam().second);
    program.window().centralWidget()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Discard)->click();

    EXPECT_EQ(shown(), "DashboardWdgt");
    EXPECT_FALSE(program.session().isDirty());
}

/// The sample household in the smallest window.
class SmallProgramTest : public ::testing::TestWithParam<bool>
{
protected:
    SmallProgramTest()
    {
        program.start();
        program.window().resize(program.window().minimumSize());
    }

    tlm::testing::Home home;
    Program program{{.filePathName = {}, .isSample = true, .isAccounting = GetParam()}};
};

TEST_P(SmallProgramTest, ShowsEachMonthlyTotalWhole)
{
    auto const& totals = tlm::testing::child<QTableWidget>(program.window(), "monthlyTotalsTblwdgt");

    ASSERT_TRUE(QTest::qWaitForWindowExposed(&program.window()));

    auto const shown = totals.viewport()->visibleRegion().boundingRect();
    for (auto row = 0; row < totals.rowCount(); ++row) {
        auto const gridLine = 1;
        EXPECT_TRUE(shown.contains(totals.visualItemRect(totals.item(row, 0)).adjusted(0, 0, 0, gridLine))) << row;
    }
}

INSTANTIATE_TEST_SUITE_P(BothWordings, SmallProgramTest, ::testing::Bool());

INSTANTIATE_TEST_SUITE_P(OfTheBooks, ProgramTest,
                         ::testing::Values(View(&MainWindow::prepareShowAccounts, "AccountsWdgt"),
                                           View(&MainWindow::prepareShowLedgers, "LedgersWdgt"),
                                           View(&MainWindow::prepareShowMoneyTransfer, "AccountTransferWdgt"),
                                           View(&MainWindow::prepareShowBanks, "BanksWdgt")));
}
}
