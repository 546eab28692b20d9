#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"
#include "tlm/desktop_ui/MainWindow.h"

#include <tlm/accounting/Account.h>
#include <tlm/accounting/TransactionNumber.h>
#include <tlm/banking/BankMap.h>
#include <tlm/foundation/Error.h>
#include <tlm/navigation/BankAccountCode.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using fiscora::Currency;
using fiscora::Money;
using ::testing::Contains;
using ::testing::ElementsAre;
using tlm::accounting::Account;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::accounting::TransactionNumber;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankMap;
using tlm::banking::BankName;
using tlm::desktop_ui::MainWindow;
using tlm::navigation::BankAccountCode;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

namespace {

constexpr auto displayAs = tlm::navigation::CurrencyDisplayOptions::Code;

AccountCode const everyday(AccountNumber(100), "Everyday", std::nullopt);
std::set<Account> const chart{Account(AccountTypes::Asset, everyday, Money(Currency::EUR, 40, 0, 0), false)};
BankName const aspen("Aspen Bank");

BankMap oneBank()
{
    BankMap banks;
    banks[aspen] = Bank(aspen, {{everyday.number(), BankAccountTypes::Checking}}, false);
    return banks;
}
}

class MainWindowBanksTest : public ::testing::Test
{
protected:
    MainWindowBanksTest()
    {
        auto const hear = [this](QString const& change) {
            return [this, change](BankName const& name) { sent.append(change + name.institution()); };
        };
        auto const hearBank = [this](QString const& change) {
            return [this, change](Bank const& bank) { sent.append(change + bank.name.institution()); };
        };
        QObject::connect(&window, &MainWindow::bankClosed, &window, hear("closed "));
        QObject::connect(&window, &MainWindow::bankOpened, &window, hear("opened "));
        QObject::connect(&window, &MainWindow::bankRemoved, &window, hear("removed "));
        QObject::connect(&window, &MainWindow::bankAdded, &window, hearBank("added "));
        QObject::connect(&window, &MainWindow::bankUpdated, &window, hearBank("updated "));
        QObject::connect(&window, &MainWindow::bankRenamed, &window, [this](auto const& from, auto const& to) {
            sent.append("renamed " + from.institution() + " to " + to.institution());
        });
        QObject::connect(&window, &MainWindow::addedBankAccount, &window,
                         [this](auto const& name, auto, auto const&) { sent.append("added account " + name); });
        QObject::connect(&window, &MainWindow::renamedBankAccount, &window, [this](auto const& from, auto const& to) {
            sent.append("renamed account " + from.name() + " to " + to.name());
        });
        QObject::connect(&window, &MainWindow::removedBankAccount, &window,
                         [this](auto const& code) { sent.append("removed account " + code.name()); });
        QObject::connect(&window, &MainWindow::transferRequested, &window,
                         [this](auto const& from, auto const& to, auto const& amount, auto const& reason) {
                             sent.append(presentationText(from) + " to " + presentationText(to) + " " +
                                         QString::fromStdString(toStdString(amount)) + " " + reason);
                         });
    }

    QWidget& view() const { return *window.centralWidget(); }
    QTreeWidget& tree() const { return child<QTreeWidget>(view(), "bankAndAccountsTrwdgt"); }
    void click(QString const& box, QDialogButtonBox::StandardButton button) const
    {
        child<QDialogButtonBox>(view(), box).button(button)->click();
    }
    void saveBanks() const
    {
        click("saveDiscardBttnbx", QDialogButtonBox::Save);
        QMetaObject::invokeMethod(&view(), "saveBanks", Qt::DirectConnection); // which comes by itself after a while
    }
    /// Types into the form on view.
    void typeName(QString const& name) const
    {
        for (auto* const field : view().findChildren<QLineEdit*>("nameLndt")) {
            if (field->isVisibleTo(&view())) {
                tlm::testing::typeOver(*field, name);
                QTest::keyClick(field, Qt::Key_Return);
            }
        }
    }
    void check(QString const& box) const
    {
        for (auto* const each : view().findChildren<QAbstractButton*>(box)) {
            if (each->isVisibleTo(&view())) {
                each->click();
            }
        }
    }
    void pick(QString const& text) const
    {
        for (auto* const button : view().findChildren<QPushButton*>()) {
            if (button->text() == text) {
                button->click();
            }
        }
    }
    void showOneBank() { window.onShowBanks(oneBank(), chart, {Currency::EUR}, displayAs); }
    void showTransfer()
    {
        std::set const accounts{BankAccountCode(aspen, everyday, BankAccountTypes::Checking, Currency::EUR)};
        window.onShowMoneyTransfer(accounts, accounts, {Currency::EUR}, displayAs);
    }

    tlm::navigation::ConfigurationOptions const options{true, false};
    MainWindow window{options};
    QSignalSpy dashboards{&window, &MainWindow::prepareShowDashboard};
    QStringList sent;
};

TEST_F(MainWindowBanksTest, TheCentralViewShowsTheBanks)
{
    showOneBank();

    EXPECT_EQ(view().objectName(), "BanksWdgt");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Showing Bank Entry Widget."));
    EXPECT_EQ(tree().topLevelItem(0)->text(0), "Aspen Bank");
}

TEST_F(MainWindowBanksTest, ChangesOfBanksLeaveTheWindow)
{
    showOneBank();
    typeName("Cedar Bank");
    pick("&Add Bank");
    typeName("Dune Bank");

    saveBanks();

    EXPECT_THAT(sent, ElementsAre("renamed Aspen Bank to Cedar Bank", "updated Cedar Bank", "added Dune Bank"));
}

TEST_F(MainWindowBanksTest, ClosingReopeningAndRemovingLeaveTheWindow)
{
    BankMap banks;
    banks[aspen] = Bank(aspen, {}, true);
    banks[BankName("Birch Bank")] = Bank(BankName("Birch Bank"), {}, false);
    banks[BankName("Cedar Bank")] = Bank(BankName("Cedar Bank"), {}, false);
    window.onShowBanks(banks, {}, {Currency::EUR}, displayAs);
    check("closedChckbx");
    tree().setCurrentItem(tree().topLevelItem(1));
    check("closedChckbx");
    tree().setCurrentItem(tree().topLevelItem(2));
    check("removeChckbx");

    saveBanks();

    EXPECT_THAT(sent,
                ElementsAre("opened Aspen Bank", "updated Aspen Bank", "closed Birch Bank", "removed Cedar Bank"));
}

TEST_F(MainWindowBanksTest, ChangesOfBankAccountsLeaveTheWindow)
{
    showOneBank();
    pick("Add A&ccount");
    typeName("Spare");
    tree().setCurrentItem(tree().topLevelItem(0)->child(0));
    typeName("Daily");
    click("saveDiscardBttnbx", QDialogButtonBox::Save);
    tree().setCurrentItem(tree().topLevelItem(0)->child(0));
    check("removeChckbx");
    click("saveDiscardBttnbx", QDialogButtonBox::Save);

    EXPECT_THAT(sent, ElementsAre("renamed account Everyday to Daily", "added account Spare",
                                  "removed account Everyday", "added account Spare"));
}

TEST_F(MainWindowBanksTest, AnswersReachTheBanks)
{
    showOneBank();
    typeName("Cedar Bank");
    tree().setCurrentItem(tree().topLevelItem(0)->child(0));
    typeName("Daily");
    saveBanks();
    expectMessage(QtWarningMsg, "^Account entry failed to save,");
    expectMessage(QtCriticalMsg, "^Bank entry save error for");

    emit window.bankAccountSaveFailed(everyday, "It is taken.", everyday);
    EXPECT_EQ(tree().currentItem()->background(0), QBrush(Qt::red));
    emit window.bankAccountSaveSucceeded(AccountCode(everyday.number(), "Daily", std::nullopt));
    EXPECT_EQ(tree().currentItem()->background(0), QBrush(Qt::green));
    emit window.bankSaveFailed(aspen, "It is taken.", BankName("Cedar Bank"));
    EXPECT_EQ(tree().topLevelItem(0)->background(0), QBrush(Qt::red));
    EXPECT_EQ(dashboards.count(), 0);
    emit window.bankSaveSucceeded(BankName("Cedar Bank"));

    EXPECT_EQ(dashboards.count(), 1);
}

TEST_F(MainWindowBanksTest, BanksThatCannotBeShownLeaveTheViewBeforeAlone)
{
    showOneBank();
    QPointer<QWidget> const before = &view();

    EXPECT_THROW(window.onShowBanks(oneBank(), {}, {Currency::EUR}, displayAs), tlm::foundation::Error);

    EXPECT_EQ(window.centralWidget(), before);
}

TEST_F(MainWindowBanksTest, TheCentralViewTransfersMoney)
{
    showTransfer();
    for (auto* const box : view().findChildren<QComboBox*>("bankCmbbx")) {
        box->setCurrentIndex(1);
    }
    for (auto* const box : view().findChildren<QComboBox*>("accountCmbbx")) {
        box->setCurrentIndex(1);
    }
    child<QLineEdit>(view(), "reasonLndt").setText("June");

    click("saveDiscardDlgbttnbx", QDialogButtonBox::Save);

    EXPECT_EQ(view().objectName(), "AccountTransferWdgt");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Showing account money transfer."));
    EXPECT_THAT(sent, ElementsAre("100 to 100 0.00 EUR June"));
}

TEST_F(MainWindowBanksTest, AnswersReachTheTransfer)
{
    showTransfer();

    emit window.transactionSaveFailed(std::nullopt, "There is no such account.");
    EXPECT_EQ(child<QLabel>(view(), "messageLbl").text(), "There is no such account.");
    EXPECT_EQ(dashboards.count(), 0);
    emit window.transactionSaveSucceeded(std::nullopt, TransactionNumber(3));

    EXPECT_EQ(dashboards.count(), 1);
}

TEST_F(MainWindowBanksTest, DiscardAsksForTheDashboard)
{
    showOneBank();
    click("saveDiscardBttnbx", QDialogButtonBox::Discard);
    EXPECT_EQ(dashboards.count(), 1);

    showTransfer();
    click("saveDiscardDlgbttnbx", QDialogButtonBox::Discard);
    EXPECT_EQ(dashboards.count(), 2);
}
