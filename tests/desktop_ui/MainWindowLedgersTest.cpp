#include <fiscora/Money.h>
#include <tlm/accounting/Account.h>
#include <tlm/accounting/LedgerAccount.h>
#include <tlm/accounting/Transaction.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTreeWidget>

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
using accounting::LedgerAccount;
using accounting::Transaction;
using accounting::TransactionNumber;
using accounting::TransactionStatuses;
using fiscora::Currency;
using fiscora::Money;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

namespace {

AccountCode const cash(AccountNumber(1000), "Cash", std::nullopt);
AccountCode const food(AccountNumber(4000), "Food", std::nullopt);
Money const five(Currency::EUR, 5, 0, 0);
Account const cashAccount(AccountTypes::Asset, cash, five, false);
Account const foodAccount(AccountTypes::Expense, food, five, false);

LedgerAccount ledger()
{
    LedgerAccount shown{cashAccount, {}};
    for (auto const number : {TransactionNumber(1), TransactionNumber(2), TransactionNumber(3)}) {
        shown.transactions.emplace(number,
                                   Transaction(QDate(2031, 2, 3), food, cash, five, "Meal " + presentationText(number),
                                               number, TransactionStatuses::NotCleared));
    }
    return shown;
}

/// Which terms a configuration chooses.
struct Wording
{
    char const* name;
    navigation::ConfigurationOptions options;
    char const* side;
};

Wording const wordings[] = {
    {"Accounting", {true, false}, "Debi&ted"},
    {"AccountingInEverydayTerms", {true, true}, "Payment For"},
    {"Planning", {false, false}, "Payment For"},
    {"PlanningInEverydayTerms", {false, true}, "Payment For"},
};
}

class MainWindowLedgersTest : public ::testing::Test
{
protected:
    MainWindowLedgersTest() { listen(); }

    void show() { window.onShowLedgers({cashAccount, foodAccount}, {Currency::EUR, Currency::USD}, displayAs); }

    /// Shows the ledger of the cash, which the presenter tells in time.
    void showCash()
    {
        show();
        chooseCash(view());
        emit window.showLedger(ledger());
        sent.clear();
    }

    static void chooseCash(QWidget const& view)
    {
        auto& tree = child<QTreeWidget>(view, "ledgersTrwdgt");
        tree.setCurrentItem(tree.findItems(presentationText(cash), Qt::MatchExactly | Qt::MatchRecursive).front());
    }

    QWidget& view() const { return *window.centralWidget(); }

    /// \return the parts named \a name of all entries, in order
    template <typename T>
    QList<T*> parts(QString const& name) const
    {
        return view().findChildren<T*>(name);
    }

    void describe(int entry, QString const& about) const
    {
        auto& field = *parts<QLineEdit>("descriptionLndt").at(entry);
        tlm::testing::typeOver(field, about);
        QTest::keyClick(&field, Qt::Key_Return);
    }

    void press(QDialogButtonBox::StandardButton button) const
    {
        child<QDialogButtonBox>(view(), "saveDiscardDlgbttnbx").button(button)->click();
    }

    static constexpr auto displayAs = navigation::CurrencyDisplayOptions::Code;
    navigation::ConfigurationOptions options{true, false};
    MainWindow window{options};
    QSignalSpy dashboards{&window, &MainWindow::prepareShowDashboard};
    QStringList sent;

private:
    void listen()
    {
        auto const tell = [this](QString const& change) {
            return [this, change](auto const& number) { sent.append(change + " " + presentationText(number)); };
        };
        QObject::connect(&window, &MainWindow::selectedLedger, &window, tell("ledger"));
        QObject::connect(&window, &MainWindow::removedTransaction, &window, tell("remove"));
        QObject::connect(&window, &MainWindow::markReconciled, &window, tell("reconcile"));
        QObject::connect(&window, &MainWindow::markCleared, &window,
                         [tell](std::set<TransactionNumber> const& numbers) { tell("clear")(*numbers.begin()); });
        QObject::connect(
            &window, &MainWindow::updatedTransaction, &window,
            [tell](TransactionNumber const& number, Transaction const& /*txn*/) { tell("update")(number); });
        QObject::connect(&window, &MainWindow::addedTransaction, &window,
                         [this](Transaction const& txn) { sent.append("add " + txn.description().value_or("none")); });
    }
};

class MainWindowLedgersWordingTest : public MainWindowLedgersTest, public ::testing::WithParamInterface<Wording>
{};

INSTANTIATE_TEST_SUITE_P(Wordings, MainWindowLedgersWordingTest, ::testing::ValuesIn(wordings),
                         [](auto const& wording) { return wording.param.name; });

TEST_P(MainWindowLedgersWordingTest, TheSidesAreNamedAsTheConfigurationSaysAtEachShowing)
{
    options = GetParam().options;

    showCash();

    EXPECT_EQ(parts<QRadioButton>("debitRdbttn").front()->text(), GetParam().side);
}

TEST_F(MainWindowLedgersTest, TheCentralViewShowsTheLedgers)
{
    show();

    EXPECT_EQ(view().objectName(), "LedgersWdgt");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Showing Ledgers Widget.")));
    EXPECT_EQ(child<QTreeWidget>(view(), "ledgersTrwdgt").topLevelItemCount(), 6);
}

TEST_F(MainWindowLedgersTest, AChosenAccountIsAskedForAndItsLedgerReachesTheView)
{
    show();

    chooseCash(view());
    EXPECT_THAT(sent, ElementsAre("ledger " + presentationText(cash)));

    emit window.showLedger(ledger());
    auto const descriptions = parts<QLineEdit>("descriptionLndt");
    ASSERT_EQ(descriptions.size(), 3);
    EXPECT_EQ(descriptions.front()->text(), "Meal 1");
    auto const currencies = parts<QComboBox>("codeCmbbx");
    EXPECT_NE(currencies.front()->findText("USD"), -1);
}

TEST_F(MainWindowLedgersTest, EachChangeLeavesTheWindow)
{
    showCash();
    describe(0, "Dinner");
    parts<QCheckBox>("reconciledChckbx").at(0)->setCheckState(Qt::PartiallyChecked);
    parts<QCheckBox>("reconciledChckbx").at(1)->setCheckState(Qt::Checked);
    parts<QCheckBox>("removeChckbx").at(2)->click();

    press(QDialogButtonBox::Save);

    EXPECT_THAT(sent, ElementsAre("update 1", "clear 1", "update 2", "reconcile 2", "remove 3"));
    EXPECT_EQ(dashboards.count(), 0);
}

TEST_F(MainWindowLedgersTest, ANewTransactionLeavesTheWindow)
{
    showCash();
    auto const& box = child<QDialogButtonBox>(view(), "saveDiscardDlgbttnbx");
    for (auto* const button : box.buttons()) {
        if (box.buttonRole(button) == QDialogButtonBox::ActionRole) {
            button->click();
        }
    }
    describe(3, "Eggs");
    parts<QRadioButton>("debitRdbttn").at(3)->click();
    parts<QComboBox>("accountCmbbx").at(3)->setCurrentText(presentationText(food));
    parts<QComboBox>("codeCmbbx").at(3)->setCurrentText("EUR");
    tlm::testing::typeOver(*parts<QLineEdit>("amountLndt").at(3), "5");

    press(QDialogButtonBox::Save);

    EXPECT_THAT(sent, ElementsAre("add Eggs"));
}

TEST_F(MainWindowLedgersTest, AnswersReachTheView)
{
    showCash();
    describe(0, "Dinner");
    describe(1, "Lunch");
    press(QDialogButtonBox::Save);
    expectMessage(QtWarningMsg, "^Failure saving");

    emit window.transactionSaveFailed(TransactionNumber(1), "The account is closed.");
    EXPECT_EQ(parts<QLabel>("messageLbl").front()->text(), "The account is closed.");
    emit window.transactionSaveSucceeded(TransactionNumber(2), TransactionNumber(2));
    EXPECT_EQ(dashboards.count(), 0);
    emit window.transactionSaveSucceeded(TransactionNumber(1), TransactionNumber(1));
    EXPECT_EQ(dashboards.count(), 1);
}

TEST_F(MainWindowLedgersTest, DiscardAsksForTheDashboard)
{
    showCash();
    describe(0, "Dinner");

    press(QDialogButtonBox::Discard);

    EXPECT_EQ(dashboards.count(), 1);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(MainWindowLedgersTest, ShowingTheViewAgainReplacesItWithoutAWord)
{
    showCash();
    describe(0, "Dinner");
    QPointer<QWidget> const before = &view();

    show();

    EXPECT_NE(&view(), before);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(before.isNull());
    EXPECT_EQ(dashboards.count(), 0);
}
}
