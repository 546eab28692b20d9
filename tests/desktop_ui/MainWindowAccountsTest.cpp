#include <fiscora/Money.h>
#include <tlm/accounting/Account.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <support/MessageLog.h>
#include <support/Typing.h>
#include <support/Widgets.h>

namespace tlm::desktop_ui {

using accounting::Account;
using accounting::AccountCode;
using accounting::AccountNumber;
using accounting::AccountTypes;
using fiscora::Currency;
using fiscora::Money;
using ::testing::ElementsAre;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

class MainWindowAccountsTest : public ::testing::Test
{
protected:
    static AccountCode code(QString const& name) { return {AccountNumber(1), name, std::nullopt}; }

    void showAccounts(bool closed = false)
    {
        window.onShowAccounts({Account(AccountTypes::Asset, code("Cash"), Money(Currency::EUR, 20, 0, 0), closed)},
                              {Currency::EUR}, navigation::CurrencyDisplayOptions::Code);
    }
    QWidget& view() const { return *window.centralWidget(); }
    QDialogButtonBox& buttons() const { return child<QDialogButtonBox>(view(), "saveDiscardBttnbx"); }
    void save() const { buttons().button(QDialogButtonBox::Save)->click(); }
    void check(char const* box) const { child<QCheckBox>(view(), QLatin1String(box)).click(); }
    void rename(QString const& name) const
    {
        auto& field = child<QLineEdit>(view(), "nameLndt");
        tlm::testing::typeOver(field, name);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    navigation::ConfigurationOptions const options{true, false};
    MainWindow window{options};
};

TEST_F(MainWindowAccountsTest, TheAccountsBecomeTheCentralView)
{
    showAccounts();

    EXPECT_EQ(view().objectName(), "AccountsWdgt");
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).constFirst(), "Showing Accounts Widget.");
    EXPECT_EQ(child<QListWidget>(view(), "accountCodesLstwdgt").count(), 1);
}

TEST_F(MainWindowAccountsTest, ANewAccountIsTold)
{
    QSignalSpy const added(&window, &MainWindow::addedAct);
    window.onShowAccounts({}, {Currency::EUR}, navigation::CurrencyDisplayOptions::Code);
    rename("Cash");

    save();

    ASSERT_EQ(added.count(), 1);
    EXPECT_EQ(added.at(0).at(0).value<Account>().code(), AccountCode("Cash", std::nullopt));
}

TEST_F(MainWindowAccountsTest, ChangesOfAnAccountAreTold)
{
    QSignalSpy const recoded(&window, &MainWindow::recoded);
    QSignalSpy const closed(&window, &MainWindow::closed);
    QSignalSpy const removed(&window, &MainWindow::removedAct);
    showAccounts();
    rename("Purse");
    check("closedChckbx");

    save();
    check("removeChckbx");
    save();

    ASSERT_EQ(recoded.count(), 1);
    EXPECT_EQ(recoded.at(0).at(0).value<AccountCode>(), code("Cash"));
    EXPECT_EQ(recoded.at(0).at(1).value<AccountCode>(), code("Purse"));
    ASSERT_EQ(closed.count(), 2);
    EXPECT_EQ(closed.at(0).at(0).value<AccountCode>(), code("Purse"));
    ASSERT_EQ(removed.count(), 1);
    EXPECT_EQ(removed.at(0).at(0).value<AccountCode>(), code("Purse"));
}

TEST_F(MainWindowAccountsTest, AnAccountThatIsOpenedIsTold)
{
    QSignalSpy const opened(&window, &MainWindow::opened);
    showAccounts(true);
    check("closedChckbx");

    save();

    ASSERT_EQ(opened.count(), 1);
    EXPECT_EQ(opened.at(0).at(0).value<AccountCode>(), code("Cash"));
}

TEST_F(MainWindowAccountsTest, AnAcceptedChangeLeadsToTheDashboard)
{
    QSignalSpy const dashboard(&window, &MainWindow::prepareShowDashboard);
    QObject::connect(&window, &MainWindow::recoded, &window, [this](auto const& /*current*/, auto const& changed) {
        emit window.accountSaveSucceeded(changed);
    });
    showAccounts();
    rename("Purse");

    save();

    EXPECT_GE(dashboard.count(), 1);
}

TEST_F(MainWindowAccountsTest, ARefusedChangeStaysOnView)
{
    QSignalSpy const dashboard(&window, &MainWindow::prepareShowDashboard);
    QObject::connect(&window, &MainWindow::recoded, &window, [this](auto const& current, auto const& changed) {
        emit window.accountSaveFailed(current, "There is a Purse.", changed);
    });
    showAccounts();
    rename("Purse");
    expectMessage(QtWarningMsg, "^Failed to save an account entry");

    save();

    EXPECT_EQ(dashboard.count(), 0);
    EXPECT_EQ(child<QLabel>(view(), "messageLbl").text(), "There is a Purse.");
}

TEST_F(MainWindowAccountsTest, TheViewMayBeReplacedInsideAnEmission)
{
    QObject::connect(&window, &MainWindow::prepareShowDashboard, &window,
                     [this] { delete window.takeCentralWidget(); });
    showAccounts();
    rename("Purse");
    QObject::connect(&window, &MainWindow::recoded, &window, [this](auto const& /*current*/, auto const& changed) {
        emit window.accountSaveSucceeded(changed);
    });
    QPointer<QWidget> const before = &view();

    save();

    EXPECT_TRUE(before.isNull());
    EXPECT_EQ(window.centralWidget(), nullptr);
}

TEST_F(MainWindowAccountsTest, AnAnswerAfterTheViewHasGoneReachesNobody)
{
    showAccounts();
    delete window.takeCentralWidget();

    emit window.accountSaveSucceeded(code("Cash"));
    emit window.accountSaveFailed(code("Cash"), "No.", code("Cash"));

    EXPECT_EQ(MessageLog::texts(QtWarningMsg).size(), 0);
}
}
