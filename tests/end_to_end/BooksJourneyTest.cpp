#include "BooksJourney.h"

#include <QRadioButton>

namespace tallymere {
namespace {

using tlm::accounting::AccountNumber;
using tlm::foundation::presentationText;

class BooksJourneyTest : public BooksJourney
{
protected:
    void startAccounting() { start({path, false, true}); }
    void startPlanning() { start({path, false, false}); }

    void addAccount(QString const& number, QString const& name, QString const& type)
    {
        open(Qt::Key_U, "AccountsWidget");
        pressOn("Add");
        enter(shown<QLineEdit>("numberLndt"), number);
        enter(shown<QLineEdit>("nameLndt"), name);
        choose(shown<QComboBox>("ledgerTypeCmbbx"), type);
        enterDollars("balanceMnyntrywdgt", "0");
        pressOn("Save");
        ASSERT_TRUE(comes("DashboardWidget"));
    }

    void openLedger(QString const& name)
    {
        open(Qt::Key_L, "LedgersWidget");
        chooseRow(find<QTreeWidget>("ledgersTrwdgt"), name);
    }

    void payFromEveryday(QString const& what, QString const& amount)
    {
        pressOn("Add");
        enter(shown<QLineEdit>("descriptionLndt"), what);
        reach(shown<QRadioButton>("debitRdbttn"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down); // Tab leads to one of the group only
        pressOn(shown<QRadioButton>("creditRdbttn"));
        chooseByEnd(shown<QComboBox>("accountCmbbx"), "Everyday");
        enterDollars("amountMnyntry", amount);
    }

    void saveView()
    {
        pressOn("Save");
        ASSERT_TRUE(comes("DashboardWidget"));
    }
};

TEST_F(BooksJourneyTest, AnAccountIsAddedPostedToClearedRecodedAndFoundAgain)
{
    startAccounting();
    addAccount("4100", "Paper", "Expense");
    ASSERT_EQ(account("Paper").code.number(), AccountNumber(4100));

    openLedger("Paper");
    payFromEveryday("Notebook", "12.50");
    saveView();
    ASSERT_EQ(balance("Paper"), dollars(12, 50));
    ASSERT_EQ(balance("Everyday"), dollars(487, 50));

    openLedger("Paper");
    pressOn(shown<QCheckBox>("reconciledChckbx"));
    ASSERT_EQ(shown<QCheckBox>("reconciledChckbx").checkState(), Qt::PartiallyChecked);
    saveView();

    open(Qt::Key_U, "AccountsWidget");
    chooseRow(find<QListWidget>("accountCodesLstwdgt"), "Paper");
    enter(shown<QLineEdit>("nameLndt"), "Office");
    saveView();
    auto const left = program->session().household().content();
    saveAndQuit();

    startAccounting();

    EXPECT_EQ(program->session().household().content(), left);
    EXPECT_EQ(account("Office").code.number(), AccountNumber(4100));
    EXPECT_EQ(balance("Office"), dollars(12, 50));
    openLedger("Office");
    EXPECT_EQ(shown<QLineEdit>("descriptionLndt").text(), "Notebook");
    EXPECT_EQ(shown<QCheckBox>("reconciledChckbx").checkState(), Qt::PartiallyChecked);
    EXPECT_TRUE(shown<QRadioButton>("creditRdbttn").isChecked());
    EXPECT_TRUE(shown<QComboBox>("accountCmbbx").currentText().endsWith("Everyday"));
}

TEST_F(BooksJourneyTest, ABankIsMadeWithTwoAccountsAndMoneyGoesFromOneToTheOther)
{
    startPlanning();
    open(Qt::Key_K, "BanksWidget");
    auto& tree = find<QTreeWidget>("bankAndAccountsTrwdgt");
    auto const addAccountHere = [&](QString const& name, QString const& type, QString const& balance) {
        pressOn("Add Account");
        choose(shown<QComboBox>("bankTypeCmbbx"), type);
        enter(shown<QLineEdit>("nameLndt"), name);
        enterDollars("balanceMnyntrywdgt", balance);
    };
    pressOn("Add Bank");
    enter(shown<QLineEdit>("nameLndt"), "Birch Bank");
    addAccountHere("Household", "Checking", "300");
    chooseRow(tree, "Birch Bank");
    addAccountHere("Reserve", "Savings", "40");
    saveView();
    ASSERT_EQ(balance("Household"), dollars(300));

    open(Qt::Key_R, "AccountTransferWidget");
    auto const place = [&](QString const& side, char const* box) -> QComboBox& {
        return tlm::testing::child<QComboBox>(find<QWidget>(side), box);
    };
    choose(place("fromBnkaccntwdgt", "bankCmbbx"), "Birch");
    chooseByEnd(place("fromBnkaccntwdgt", "accountCmbbx"), "Household");
    choose(place("toBnkaccntwdgt", "bankCmbbx"), "Birch");
    chooseByEnd(place("toBnkaccntwdgt", "accountCmbbx"), "Reserve");
    enter(amountOf("amountMnyntrydgt"), "120");
    enter(find<QLineEdit>("reasonLndt"), "For a rainy day");
    saveView();
    auto const left = program->session().household().content();
    saveAndQuit();

    startPlanning();

    EXPECT_EQ(program->session().household().content(), left);
    open(Qt::Key_K, "BanksWidget");
    chooseRow(find<QTreeWidget>("bankAndAccountsTrwdgt"), "Household");
    EXPECT_EQ(amountOf("balanceMnyntrywdgt").text(), presentationText(dollars(180)));
    chooseRow(find<QTreeWidget>("bankAndAccountsTrwdgt"), "Reserve");
    EXPECT_EQ(amountOf("balanceMnyntrywdgt").text(), presentationText(dollars(160)));
}

TEST_F(BooksJourneyTest, EachViewIsReachedFromTheMenuOfItsWording)
{
    using Stops = std::vector<std::pair<Qt::Key, QByteArray>>;
    auto const walk = [this](Qt::Key menu, Stops const& stops) {
        for (auto const& [key, viewsClass] : stops) {
            press(menu, Qt::AltModifier);
            ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));

            QTest::keyClick(QApplication::activePopupWidget(), key);

            EXPECT_TRUE(comes(viewsClass)) << viewsClass.toStdString();
            pressOn("Discard");
            ASSERT_TRUE(comes("DashboardWidget"));
        }
    };
    startPlanning();
    walk(Qt::Key_J, {{Qt::Key_B, "BanksWidget"}, {Qt::Key_A, "AccountTransferWidget"}});
    program.reset();
    startAccounting();
    walk(Qt::Key_A, {{Qt::Key_A, "AccountsWidget"}, {Qt::Key_B, "BanksWidget"}, {Qt::Key_L, "LedgersWidget"}});
}
}
}
