#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/AllowSubAccounts.h>
#include <tlm/navigation/ConfigurationOptions.h>

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
#include <support/Typing.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using accounting::AccountCode;
using accounting::AccountNumber;
using accounting::TransactionNumber;
using banking::BankName;
using budgeting::BudgetItemAmountDue;
using budgeting::BudgetItemDueIdentifier;
using budgeting::BudgetItemTypes;
using budgeting::BudgetSource;
using fiscora::Currency;
using fiscora::Money;
using ::testing::Contains;
using tlm::testing::child;
using tlm::testing::MessageLog;

namespace {

AccountCode const everyday(AccountNumber(1000), "Everyday", std::nullopt);
BankName const aspen("Aspen Bank");
BudgetItemAmountDue const rent{
    BudgetItemDueIdentifier{{BudgetItemTypes::Bill, BudgetSource("Rent")}, QDate(2031, 2, 3)},
    Money(Currency::EUR, 700, 0, 0)};
}

class MainWindowProcessingTest : public ::testing::Test
{
protected:
    void show()
    {
        window.onShowProcessBudgetItems(std::chrono::days(14), {rent}, {aspen}, Currency::EUR, {Currency::EUR},
                                        navigation::CurrencyDisplayOptions::Code, {everyday});
    }

    void click(QString const& action) const { child<QRadioButton>(view(), action).click(); }

    void press(QDialogButtonBox::StandardButton button) const { buttons().button(button)->click(); }

    void add() const
    {
        for (auto* const button : buttons().findChildren<QPushButton*>()) {
            if (buttons().buttonRole(button) == QDialogButtonBox::ActionRole) {
                button->click();
            }
        }
    }

    QDialogButtonBox& buttons() const { return child<QDialogButtonBox>(view(), "saveDiscardBttnbx"); }
    QWidget& view() const { return *window.centralWidget(); }

    navigation::ConfigurationOptions options{false, false};
    MainWindow window{options};
    QSignalSpy accounts{&window, &MainWindow::lookUpBankAccounts};
    QSignalSpy sources{&window, &MainWindow::lookUpBudgetItemSources};
    QSignalSpy posted{&window, &MainWindow::processBudgetItemPosted};
    QSignalSpy unexpected{&window, &MainWindow::processBudgetItemPostedUnexpected};
    QSignalSpy skipped{&window, &MainWindow::processBudgetItemSkipped};
    QSignalSpy dashboards{&window, &MainWindow::prepareShowDashboard};
};

TEST_F(MainWindowProcessingTest, TheCentralViewPostsWhatFallsDue)
{
    show();

    EXPECT_EQ(view().objectName(), "ProcessBudgetItemsWdgt");
    EXPECT_EQ(view().windowTitle(), "Post Budget Items");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Showing Post Budget Items Widget.")));
}

TEST_F(MainWindowProcessingTest, ABankAsksForItsAccountsAndThoseBelowThem)
{
    show();

    child<QComboBox>(view(), "bankCmbbx").setCurrentText(aspen.institution());
    ASSERT_EQ(accounts.count(), 1);
    EXPECT_EQ(accounts.front().at(0).value<BankName>(), aspen);
    EXPECT_EQ(accounts.front().at(1).value<navigation::AllowSubAccounts>(), navigation::AllowSubAccounts::Yes);

    emit window.lookedUpBankAccounts(aspen, {{everyday.number(), banking::BankAccountTypes::Checking}});
    EXPECT_EQ(child<QComboBox>(view(), "accountCmbbx").count(), 2);
}

TEST_F(MainWindowProcessingTest, WhatIsProcessedLeavesTheWindowAndItsAnswerReachesTheView)
{
    show();
    click("actionProcessRdbttn");

    press(QDialogButtonBox::Save);
    ASSERT_EQ(posted.count(), 1);
    EXPECT_EQ(posted.front().at(0).value<BudgetItemAmountDue>(), rent);
    EXPECT_EQ(posted.front().at(1).value<AccountCode>(), AccountCode());
    EXPECT_EQ(posted.front().at(2).toDate(), QDate::currentDate());

    emit window.processBudgetItemSaveSucceeded(rent, TransactionNumber(31));
    EXPECT_EQ(dashboards.count(), 1);
}

TEST_F(MainWindowProcessingTest, ARefusalReachesTheView)
{
    show();
    click("actionProcessRdbttn");
    press(QDialogButtonBox::Save);

    emit window.processBudgetItemSaveFailed(rent, "No account is chosen.");

    EXPECT_EQ(child<QLabel>(view(), "messageLbl").text(), "No account is chosen.");
    EXPECT_EQ(dashboards.count(), 0);
}

TEST_F(MainWindowProcessingTest, WhatIsSkippedLeavesTheWindow)
{
    show();
    click("actionSkipRdbttn");

    press(QDialogButtonBox::Save);

    ASSERT_EQ(skipped.count(), 1);
    EXPECT_EQ(skipped.front().front().value<BudgetItemDueIdentifier>(), rent);
}

TEST_F(MainWindowProcessingTest, AnUnexpectedItemAsksForItsSourcesAndLeavesTheWindow)
{
    show();
    add();
    auto& entry = *view().findChildren<QWidget*>("ProcessBudgetItemEntryWdgt").last();
    child<QComboBox>(entry, "typeCmbbx").setCurrentText(presentationText(BudgetItemTypes::Bill));
    BudgetItemDueIdentifier const bill{{BudgetItemTypes::Bill, BudgetSource()}, QDate()};
    ASSERT_EQ(sources.count(), 1);
    EXPECT_EQ(sources.front().front().value<BudgetItemDueIdentifier>(), bill);

    emit window.lookedUpBudgetItemSources(bill, {BudgetSource("Phone")});
    child<QComboBox>(child<QWidget>(entry, "itemDueCmbbx"), "sourceCmbbx").setCurrentText("Phone");
    tlm::testing::typeOver(child<QLineEdit>(entry, "amountLndt"), "5");
    press(QDialogButtonBox::Save);

    ASSERT_EQ(unexpected.count(), 1);
    BudgetItemDueIdentifier const phone{{BudgetItemTypes::Bill, BudgetSource("Phone")}, QDate()};
    EXPECT_EQ(unexpected.front().at(0).value<BudgetItemDueIdentifier>(), phone);
    EXPECT_EQ(unexpected.front().at(1).value<Money>(), Money(Currency::EUR, 5, 0, 0));
}

TEST_F(MainWindowProcessingTest, AccountsThatAnotherViewAskedForAreLeftToIt)
{
    show();

    emit window.lookedUpBankAccounts(aspen, {{everyday.number(), banking::BankAccountTypes::Checking}});

    EXPECT_EQ(child<QComboBox>(view(), "accountCmbbx").count(), 1);
}

TEST_F(MainWindowProcessingTest, AnswersAfterTheViewHasGoneAreDropped)
{
    show();
    QPointer<QWidget> const gone = &view();
    window.setCentralWidget(new QWidget);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    MessageLog::clear();

    emit window.processBudgetItemSaveSucceeded(rent, TransactionNumber(31));
    emit window.processBudgetItemSaveFailed(rent, "Too late.");
    emit window.lookedUpBankAccounts(aspen, {});
    emit window.lookedUpBudgetItemSources(rent, {});

    EXPECT_TRUE(gone.isNull());
    EXPECT_THAT(MessageLog::lines(), ::testing::IsEmpty());
}

TEST_F(MainWindowProcessingTest, DiscardAsksForTheDashboard)
{
    show();

    press(QDialogButtonBox::Discard);

    EXPECT_EQ(dashboards.count(), 1);
}
}
