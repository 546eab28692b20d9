#include <fiscora/Money.h>
#include <tlm/accounting/Account.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/adviser/BudgetHealth.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetTotals.h>
#include <tlm/budgeting/BudgetedMoneyMap.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/foundation/Error.h>
#include <tlm/navigation/ConfigurationOptions.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTableWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using budgeting::BudgetItemTypes;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

namespace {

struct TotalRow
{
    int row;
    BudgetItemTypes type;
    void (MainWindow::*request)();
};

constexpr TotalRow totalRows[] = {
    {0, BudgetItemTypes::Wage, &MainWindow::prepareShowWages},
    {1, BudgetItemTypes::Nontrack, &MainWindow::prepareShowNontracks},
    {2, BudgetItemTypes::Goal, &MainWindow::prepareShowGoals},
    {3, BudgetItemTypes::Bill, &MainWindow::prepareShowBills},
    {4, BudgetItemTypes::Debt, &MainWindow::prepareShowDebts},
};
}

class MainWindowDashboardTest : public ::testing::Test
{
protected:
    void showDashboard()
    {
        auto const dollar = fiscora::Currency::USD;
        fiscora::Money const nothing(dollar);
        window.onShowDashboard({nothing, nothing, nothing, nothing, nothing}, {}, {}, std::chrono::days(14), dollar,
                               navigation::CurrencyDisplayOptions::Code);
    }

    /// \return how many signals asked for a planning view
    qsizetype requests() const
    {
        return bills.count() + debts.count() + goals.count() + nontracks.count() + wages.count();
    }

    navigation::ConfigurationOptions const options{true, false};
    MainWindow window{options};
    QSignalSpy bills{&window, &MainWindow::prepareShowBills};
    QSignalSpy debts{&window, &MainWindow::prepareShowDebts};
    QSignalSpy goals{&window, &MainWindow::prepareShowGoals};
    QSignalSpy nontracks{&window, &MainWindow::prepareShowNontracks};
    QSignalSpy wages{&window, &MainWindow::prepareShowWages};
};

class MainWindowTotalRowTest : public MainWindowDashboardTest, public ::testing::WithParamInterface<TotalRow>
{};

TEST_F(MainWindowDashboardTest, ADashboardBecomesTheCentralView)
{
    showDashboard();

    EXPECT_EQ(window.centralWidget()->objectName(), "DashboardWdgt");
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).constFirst(), "Showing dashboard.");
}

TEST_F(MainWindowDashboardTest, AFreshDashboardReplacesTheOneBefore)
{
    showDashboard();
    QPointer<QWidget> const before = window.centralWidget();

    showDashboard();

    EXPECT_NE(window.centralWidget(), before);
    EXPECT_FALSE(before.isNull());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(before.isNull());
}

TEST_F(MainWindowDashboardTest, LoadingABudgetReplacesItsDashboard)
{
    QObject::connect(&window, &MainWindow::prepareShowDashboard, &window, [this] { showDashboard(); });
    window.show();
    QPointer<QWidget> const before = window.centralWidget();

    window.onLoadedBudgetFile("/home/a/home.budget", false);

    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(before.isNull());
    ASSERT_NE(window.centralWidget(), nullptr);
    EXPECT_EQ(window.centralWidget()->objectName(), "DashboardWdgt");
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.centralWidget()->isVisible(); }, 1000));
}

TEST_F(MainWindowDashboardTest, AnAnswerReachesTheViewBeforeUntilTheNextTurnOfTheEventLoop)
{
    navigation::GuiElementIdentifier const unknown;
    auto const answer = [&] { emit window.saveFailed(unknown, std::nullopt, "Rent is planned already.", {}); };
    window.onShowBills({}, fiscora::Currency::USD, {fiscora::Currency::USD}, navigation::CurrencyDisplayOptions::Code);
    expectMessage(QtWarningMsg, "^Failed to save");

    showDashboard();
    EXPECT_THROW(answer(), foundation::Error) << "no entry of the bills has this identifier";
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_NO_THROW(answer());
    EXPECT_EQ(window.centralWidget()->objectName(), "DashboardWdgt");
}

TEST_F(MainWindowDashboardTest, AnAnswerToAnotherFamilyReachesNobody)
{
    window.onShowAccounts({}, {fiscora::Currency::USD}, navigation::CurrencyDisplayOptions::Code);
    MessageLog::clear();

    emit window.saveFailed({}, std::nullopt, "Rent is planned already.", {});
    emit window.saveSucceeded({}, budgeting::BudgetSource("Rent"));
    emit window.transactionSaveSucceeded(std::nullopt, std::nullopt);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::IsEmpty()) << "a view that hears an answer says so";
    EXPECT_EQ(window.centralWidget()->objectName(), "AccountsWdgt");
}

TEST_P(MainWindowTotalRowTest, ADoubleClickOpensThePlanOfItsType)
{
    QSignalSpy const request(&window, GetParam().request);
    showDashboard();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    auto& totals = child<QTableWidget>(window, "monthlyTotalsTblwdgt");
    auto const cell = totals.visualItemRect(totals.item(GetParam().row, 0)).center();

    QTest::mouseClick(totals.viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(totals.viewport(), Qt::LeftButton, {}, cell);

    EXPECT_EQ(request.count(), 1);
    EXPECT_EQ(requests(), 1);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ::testing::Contains(::testing::ResultOf(
                                                  [](QString const& line) {
                                                      return line.startsWith("Displaying selected budget type") &&
                                                             line.contains(presentationText(GetParam().type));
                                                  },
                                                  true)));
}

TEST_P(MainWindowTotalRowTest, ATypeAsksForItsPlan)
{
    QSignalSpy const request(&window, GetParam().request);

    QMetaObject::invokeMethod(&window, "onDisplayBudgetInterface",
                              Q_ARG(tlm::budgeting::BudgetItemTypes, GetParam().type));

    EXPECT_EQ(request.count(), 1);
    EXPECT_EQ(requests(), 1);
}

INSTANTIATE_TEST_SUITE_P(EveryType, MainWindowTotalRowTest, ::testing::ValuesIn(totalRows),
                         [](auto const& row) { return "Row" + std::to_string(row.param.row); });

TEST_F(MainWindowDashboardTest, AnUnknownTypeIsLoggedAndAsksForNothing)
{
    for (auto const type :
         {BudgetItemTypes::None, static_cast<BudgetItemTypes>(6), static_cast<BudgetItemTypes>(255)}) {
        EXPECT_TRUE(QMetaObject::invokeMethod(&window, "onDisplayBudgetInterface",
                                              Q_ARG(tlm::budgeting::BudgetItemTypes, type)));
    }

    EXPECT_EQ(requests(), 0);
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).filter("Displaying selected budget type").size(), 3);
}
}
