#include "BankAccountsFixture.h"
#include "ShowActive.h"
#include "support/MessageLog.h"

#include <QAccessible>
#include <QLabel>
#include <QPointer>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccount;
using tlm::banking::BankName;
using tlm::desktop_ui::internal::BankAccountsWidget;
using tlm::testing::child;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;
using tlm::testing::showActive;
using tlm::testing::tabOrder;

using BankAccountsWidgetTest = tlm::testing::BankAccountsFixture;

namespace {

QStringList typesOf(std::set<tlm::banking::BankAccountTypes> const& types)
{
    BankAccountsWidget const widget({}, types, {}, nullptr);
    return itemTexts(child<QComboBox>(widget, "typeCmbbx"));
}
}

TEST_F(BankAccountsWidgetTest, OffersOnlyTypesUntilItIsFilled)
{
    BankAccountsWidget const bare(nullptr);

    EXPECT_THAT(itemTexts(child<QComboBox>(bare, "bankCmbbx")), ElementsAre(""));
    EXPECT_THAT(itemTexts(child<QComboBox>(bare, "accountCmbbx")), ElementsAre(""));
    EXPECT_THAT(itemTexts(child<QComboBox>(bare, "typeCmbbx")),
                ElementsAre("", "Checking", "Credit Card", "Loan", "Savings", "Goal"));
    EXPECT_THAT(bare.banks(), IsEmpty());
    EXPECT_THAT(bare.codes(), IsEmpty());
}

TEST_F(BankAccountsWidgetTest, StartsWithTypesInTheOrderOfTheirValuesButUnspecified)
{
    EXPECT_THAT(typesOf({Types::Goal, Types::Unspecified, Types::Checking, Types::Loan}),
                ElementsAre("", "Checking", "Loan", "Goal"));
    EXPECT_THAT(typesOf({Types::Unspecified}), ElementsAre(""));
    EXPECT_THAT(typesOf({}), ElementsAre(""));
}

TEST_F(BankAccountsWidgetTest, OffersBanksInOrderAndChoosesNone)
{
    EXPECT_THAT(itemTexts(bank), ElementsAre("", "Aspen Bank", "Birch Bank"));
    EXPECT_THAT(widget.banks(), ElementsAre(aspen, birch));
    EXPECT_EQ(widget.bank(), std::nullopt);
    EXPECT_EQ(widget.accountCode(), std::nullopt);
    EXPECT_EQ(widget.type(), std::nullopt);
}

TEST_F(BankAccountsWidgetTest, OffersBanksAnewAndEmptiesTheChoice)
{
    chooseBirch();

    widget.setBanks({BankName("Cedar Bank")});

    EXPECT_THAT(itemTexts(bank), ElementsAre("", "Cedar Bank"));
    EXPECT_EQ(widget.bank(), std::nullopt);
    EXPECT_THAT(itemTexts(account), ElementsAre(""));
    EXPECT_THAT(heard, ::testing::Contains("no bank"));
    EXPECT_FALSE(heard.contains("look up Cedar Bank"));
}

TEST_F(BankAccountsWidgetTest, OffersTypesAnewInSilence)
{
    QTest::keyClick(&type, Qt::Key_Down);
    heard.clear();

    widget.setTypes({Types::Loan, Types::Unspecified, Types::Savings});

    EXPECT_THAT(itemTexts(type), ElementsAre("", "Unspecified", "Loan", "Savings"));
    EXPECT_EQ(widget.type(), std::nullopt);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(BankAccountsWidgetTest, TellsOfTypesOfferedAnew)
{
    widget.setTypes({Types::Unspecified, Types::Savings});

    QTest::keyClick(&type, Qt::Key_Down);
    EXPECT_EQ(widget.type(), Types::Unspecified);
    QTest::keyClick(&type, Qt::Key_Down);
    EXPECT_EQ(widget.type(), Types::Savings);

    EXPECT_THAT(heard, ElementsAre("type Unspecified", "type Savings"));
}

TEST_F(BankAccountsWidgetTest, ShowsADescriptionWhenThereIsOne)
{
    auto const& description = child<QLabel>(widget, "descriptionLbl");
    EXPECT_TRUE(description.isHidden());

    widget.setDescription("Store Under");
    EXPECT_FALSE(description.isHidden());
    EXPECT_EQ(description.text(), "Store Under");

    widget.setDescription(QString());
    EXPECT_TRUE(description.isHidden());

    widget.setDescription("Paid From");
    widget.setDescription(std::nullopt);
    EXPECT_TRUE(description.isHidden());
}

TEST_F(BankAccountsWidgetTest, LeadsTheTypeByTheAccount)
{
    chooseBirch();

    QTest::keyClick(&account, Qt::Key_Down);
    EXPECT_EQ(widget.accountCode(), everyday);
    EXPECT_EQ(widget.type(), Types::Checking);
    QTest::keyClick(&account, Qt::Key_Down);
    EXPECT_EQ(widget.accountCode(), rainyDays);
    EXPECT_EQ(widget.type(), Types::Savings);

    EXPECT_THAT(heard, ElementsAre("account 100", "type Checking", "account 200", "type Unspecified", "type Savings"));
}

TEST_F(BankAccountsWidgetTest, BlanksTheTypeWithTheAccount)
{
    chooseBirch();
    QTest::keyClick(&account, Qt::Key_Down);
    heard.clear();

    QTest::keyClick(&account, Qt::Key_Up);

    EXPECT_EQ(widget.type(), std::nullopt);
    EXPECT_THAT(heard, ElementsAre("no account", "type Unspecified"));
}

TEST_F(BankAccountsWidgetTest, LeavesATypeBlankThatIsNotOnOffer)
{
    widget.setTypes({Types::Savings});
    chooseBirch();

    QTest::keyClick(&account, Qt::Key_Down);
    EXPECT_EQ(widget.type(), std::nullopt);
    QTest::keyClick(&account, Qt::Key_Down);
    EXPECT_EQ(widget.type(), Types::Savings);
}

TEST_F(BankAccountsWidgetTest, TellsOfATypePicked)
{
    QTest::keyClick(&type, Qt::Key_Down);
    QTest::keyClick(&type, Qt::Key_Up);

    EXPECT_THAT(heard, ElementsAre("type Checking", "type Unspecified"));
}

TEST_F(BankAccountsWidgetTest, GivesNoBankAccountWithoutABank)
{
    MessageLog::clear();

    EXPECT_EQ(widget.bankAccount(), std::nullopt);

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Bank name not present for widget entry."));
}

TEST_F(BankAccountsWidgetTest, GivesABankAccountWhoseRestIsMissing)
{
    chooseBirch();
    MessageLog::clear();

    EXPECT_EQ(widget.bankAccount(), (BankAccount{birch, AccountNumber(), Types::Unspecified}));

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Account code not present for widget entry.",
                                                          "Bank account type not present for widget entry."));
}

TEST_F(BankAccountsWidgetTest, GivesTheBankAccountChosen)
{
    chooseBirch();
    QTest::keyClick(&account, Qt::Key_End);
    MessageLog::clear();

    EXPECT_EQ(widget.bankAccount(), (BankAccount{birch, card.number(), Types::CreditCard}));

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), IsEmpty());
}

TEST_F(BankAccountsWidgetTest, IsReadOnlyAsAWhole)
{
    for (auto const isReadOnly : {true, false}) {
        widget.setReadOnly(isReadOnly);

        for (auto const* const box : {&bank, &account, &type}) {
            EXPECT_EQ(box->isEnabled(), !isReadOnly) << box->objectName().toStdString();
        }
    }
}

TEST_F(BankAccountsWidgetTest, DisablesTheTypeAloneAndForGood)
{
    widget.disableType();

    EXPECT_TRUE(bank.isEnabled());
    EXPECT_TRUE(account.isEnabled());
    EXPECT_FALSE(type.isEnabled());
    widget.setReadOnly(true);
    widget.setReadOnly(false);
    EXPECT_TRUE(account.isEnabled());
    EXPECT_FALSE(type.isEnabled());
}

TEST_F(BankAccountsWidgetTest, HidesAndShowsTheAccountWithItsLabel)
{
    auto const& label = child<QLabel>(widget, "accountLbl");
    showActive(widget);

    widget.hideAccount();
    EXPECT_FALSE(account.isVisible());
    EXPECT_FALSE(label.isVisible());
    EXPECT_TRUE(type.isVisible());

    widget.showAccount();
    EXPECT_TRUE(account.isVisible());
    EXPECT_TRUE(label.isVisible());
}

TEST_F(BankAccountsWidgetTest, LeadsTabFromTheBankToTheAccountToTheType)
{
    showActive(widget);

    EXPECT_THAT(tabOrder(bank), ElementsAre("bankCmbbx", "accountCmbbx", "typeCmbbx"));
}

TEST_F(BankAccountsWidgetTest, TellsAssistiveToolsWhatEachBoxPicks)
{
    auto const name = [](QComboBox& box) {
        return QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Name);
    };

    EXPECT_EQ(name(bank), "Bank:");
    EXPECT_EQ(name(account), "Account:");
    EXPECT_EQ(name(type), "Type:");
}

TEST_F(BankAccountsWidgetTest, WidensWithItsContentsYetFitsANarrowWindow)
{
    widget.layout()->activate();
    auto const narrowest = widget.minimumSizeHint().width();
    auto const width = widget.sizeHint().width();

    widget.setBanks({BankName(QString(80, 'M'))});
    widget.layout()->activate();

    EXPECT_GT(widget.sizeHint().width(), width);
    EXPECT_EQ(widget.minimumSizeHint().width(), narrowest);
}

TEST_F(BankAccountsWidgetTest, EndsWhenClosed)
{
    QPointer<BankAccountsWidget> const view = new BankAccountsWidget(nullptr);
    showActive(*view);

    view->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_TRUE(view.isNull());
}
