#include <fiscora/Money.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/budgeting/BudgetItemDueIdentifier.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using accounting::AccountCode;
using accounting::AccountNumber;
using accounting::Transaction;
using accounting::TransactionNumber;
using budgeting::BudgetItemDueIdentifier;
using budgeting::BudgetItemIdentifier;
using budgeting::BudgetItemTypes;
using budgeting::BudgetSource;
using fiscora::Currency;
using fiscora::Money;
using ::testing::Contains;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

namespace {

AccountCode const bank(AccountNumber(1000), "Bank", std::nullopt);
AccountCode const rent(AccountNumber(5100), "Rent", std::nullopt);
Money const nine(Currency::EUR, 9, 0, 0);
Transaction const paid(QDate(2031, 2, 3), rent, bank, nine, "February", TransactionNumber(7),
                       accounting::TransactionStatuses::NotCleared);
BudgetItemDueIdentifier const anyBill{{BudgetItemTypes::Bill, BudgetSource()}, QDate()};
BudgetItemIdentifier const rentBill{BudgetItemTypes::Bill, BudgetSource("Rent")};
}

class MainWindowRefundTest : public ::testing::Test
{
protected:
    void show() { window.onShowBudgetItemRefund({Currency::EUR}, navigation::CurrencyDisplayOptions::Code); }

    void chooseType() const
    {
        child<QComboBox>(view(), "typeCmbbx").setCurrentText(presentationText(BudgetItemTypes::Bill));
    }

    /// Picks the rent and its only payment, as the presenter tells them.
    void choosePayment()
    {
        show();
        chooseType();
        emit window.lookedUpBudgetItemSources(anyBill, {rentBill.source});
        child<QComboBox>(view(), "sourceCmbbx").setCurrentText("Rent");
        emit window.lookedUpRefundableTransactions(rentBill, rent, {paid});
        child<QCheckBox>(view(), "selectedChckbx").click();
    }

    void press(QDialogButtonBox::StandardButton button) const
    {
        child<QDialogButtonBox>(view(), "saveDiscardDlgbttnbx").button(button)->click();
    }

    QWidget& view() const { return *window.centralWidget(); }

    navigation::ConfigurationOptions options{false, false};
    MainWindow window{options};
    QSignalSpy sources{&window, &MainWindow::lookUpBudgetItemSources};
    QSignalSpy transactions{&window, &MainWindow::lookUpRefundableTransactions};
    QSignalSpy refunds{&window, &MainWindow::postRefund};
    QSignalSpy dashboards{&window, &MainWindow::prepareShowDashboard};
};

TEST_F(MainWindowRefundTest, TheCentralViewRefunds)
{
    show();

    EXPECT_EQ(view().objectName(), "budgetItemRefundWdgt");
    EXPECT_EQ(view().windowTitle(), "Budet Item Refund");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Showing budget item refund.")));
}

TEST_F(MainWindowRefundTest, ATypeLeavesTheWindowAsAnOccurrenceWithoutSourceAndDay)
{
    show();

    chooseType();

    ASSERT_EQ(sources.count(), 1);
    auto const asked = sources.front().front().value<BudgetItemDueIdentifier>();
    EXPECT_EQ(asked, anyBill);
    EXPECT_TRUE(asked.dueOn.isNull());
}

TEST_F(MainWindowRefundTest, SourcesReachTheView)
{
    show();
    chooseType();

    emit window.lookedUpBudgetItemSources(anyBill, {BudgetSource("Rent"), BudgetSource("Phone")});

    EXPECT_EQ(child<QComboBox>(view(), "sourceCmbbx").count(), 3);
}

TEST_F(MainWindowRefundTest, APaymentIsAskedForAndItsRefundLeavesTheWindow)
{
    choosePayment();
    ASSERT_EQ(transactions.count(), 1);
    EXPECT_EQ(transactions.front().front().value<BudgetItemIdentifier>(), rentBill);

    press(QDialogButtonBox::Save);

    ASSERT_EQ(refunds.count(), 1);
    EXPECT_EQ(refunds.front().at(0).value<TransactionNumber>(), TransactionNumber(7));
    EXPECT_EQ(refunds.front().at(1).value<Money>(), nine);
}

TEST_F(MainWindowRefundTest, AnAnswerReachesTheView)
{
    choosePayment();
    press(QDialogButtonBox::Save);

    emit window.transactionSaveSucceeded(TransactionNumber(7), TransactionNumber(8));

    auto const& status = child<QLabel>(view(), "postStatusLbl");
    EXPECT_TRUE(status.text().contains(presentationText(TransactionNumber(8))));
    EXPECT_EQ(dashboards.count(), 0);
    ASSERT_TRUE(dashboards.wait(10'000));
}

TEST_F(MainWindowRefundTest, ARefusalReachesTheView)
{
    choosePayment();
    press(QDialogButtonBox::Save);

    expectMessage(QtWarningMsg, "^Failed to post the budget item refund for:");
    emit window.transactionSaveFailed(TransactionNumber(7), "More than was paid.");

    bool isTold = false;
    for (auto const* const label : view().findChildren<QLabel*>("messageLbl")) {
        isTold = isTold || label->text() == "More than was paid.";
    }
    EXPECT_TRUE(isTold);
    EXPECT_EQ(dashboards.count(), 0);
}

TEST_F(MainWindowRefundTest, AnswersAfterTheViewHasGoneAreDropped)
{
    show();
    QPointer<QWidget> const gone = &view();
    window.setCentralWidget(new QWidget);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    MessageLog::clear();

    emit window.lookedUpBudgetItemSources(anyBill, {});
    emit window.lookedUpRefundableTransactions(rentBill, rent, {paid});
    emit window.transactionSaveSucceeded(TransactionNumber(7), TransactionNumber(8));
    emit window.transactionSaveFailed(TransactionNumber(7), "Too late.");

    EXPECT_TRUE(gone.isNull());
    EXPECT_THAT(MessageLog::lines(), ::testing::IsEmpty());
}

TEST_F(MainWindowRefundTest, SidesAreNamedInEverydayTermsForPlanning)
{
    choosePayment();

    EXPECT_EQ(child<QRadioButton>(view(), "debitRdbttn").text(), "Payment For");
}

TEST_F(MainWindowRefundTest, DiscardAsksForTheDashboard)
{
    show();

    press(QDialogButtonBox::Discard);

    EXPECT_EQ(dashboards.count(), 1);
}
}
