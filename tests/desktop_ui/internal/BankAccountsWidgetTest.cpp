#include "BankAccountsFixture.h"
#include "ShowActive.h"
#include "support/MessageLog.h"
#include "support/Translation.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/banking/BankError.h>

#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QAccessible>
#include <QLabel>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccount;
using tlm::banking::BankError;
using tlm::banking::BankName;
using tlm::desktop_ui::internal::BankAccountsWidget;
using tlm::testing::BankAccountsFixture;
using tlm::testing::child;
using tlm::testing::MessageLog;
using tlm::testing::showActive;
using tlm::testing::tabOrder;
using tlm::testing::Translation;

namespace {

class BankAccountsWidgetTest : public BankAccountsFixture
{
protected:
    static QStringList typesOf(std::optional<std::set<Types>> const& types)
    {
        BankAccountsWidget const other({}, types, {}, nullptr);
        return rows(child<QComboBox>(other, "typeCmbbx"));
    }
};
}

TEST_F(BankAccountsWidgetTest, OffersOnlyTypesUntilItIsFilled)
{
    BankAccountsWidget const bare(nullptr);

    EXPECT_THAT(rows(child<QComboBox>(bare, "bankCmbbx")), ElementsAre(""));
    EXPECT_THAT(rows(child<QComboBox>(bare, "accountCmbbx")), ElementsAre(""));
    EXPECT_THAT(rows(child<QComboBox>(bare, "typeCmbbx")),
                ElementsAre("", "Checking", "Credit Card", "Loan", "Savings", "Goal"));
    EXPECT_THAT(bare.banks(), IsEmpty());
    EXPECT_THAT(bare.codes(), IsEmpty());
}

TEST_F(BankAccountsWidgetTest, StartsWithTypesInTheOrderOfTheirValuesButUnspecified)
{
    EXPECT_THAT(typesOf(std::set{Types::Goal, Types::Unspecified, Types::Checking, Types::Loan}),
                ElementsAre("", "Checking", "Loan", "Goal"));
    EXPECT_THAT(typesOf(std::set{Types::Unspecified}), ElementsAre(""));
    EXPECT_THAT(typesOf(std::set<Types>()), ElementsAre(""));
}

TEST_F(BankAccountsWidgetTest, OffersBanksInOrderAndChoosesNone)
{
    EXPECT_THAT(rows(bank), ElementsAre("", "Aspen Bank", "Birch Bank"));
    EXPECT_THAT(widget.banks(), ElementsAre(aspen, birch));
    EXPECT_EQ(widget.bank(), std::nullopt);
    EXPECT_EQ(widget.accountCode(), std::nullopt);
    EXPECT_EQ(widget.type(), std::nullopt);
}

TEST_F(BankAccountsWidgetTest, OffersBanksAnewAndEmptiesTheChoice)
{
    chooseBirch();

    widget.setBanks({BankName("Cedar Bank")});

    EXPECT_THAT(rows(bank), ElementsAre("", "Cedar Bank"));
    EXPECT_EQ(widget.bank(), std::nullopt);
    EXPECT_THAT(rows(account), ElementsAre(""));
    EXPECT_THAT(heard, ::testing::Contains("no bank"));
    EXPECT_FALSE(heard.contains("look up Cedar Bank"));
}

TEST_F(BankAccountsWidgetTest, OffersTypesAnewInSilence)
{
    QTest::keyClick(&type, Qt::Key_Down);
    heard.clear();

    widget.setTypes({Types::Loan, Types::Unspecified, Types::Savings});

    EXPECT_THAT(rows(type), ElementsAre("", "Unspecified", "Loan", "Savings"));
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

TEST_F(BankAccountsWidgetTest, TellsOfABankAndThenAsksForItsAccounts)
{
    QTest::keyClick(&bank, Qt::Key_Down);

    EXPECT_EQ(widget.bank(), aspen);
    EXPECT_THAT(heard, ElementsAre("bank Aspen Bank", "look up Aspen Bank"));
}

TEST_F(BankAccountsWidgetTest, TakesAnAnswerInsideItsQuestion)
{
    QObject::connect(&widget, &BankAccountsWidget::lookUpBankAccounts, &widget, [this] {
        widget.lookedUpBankAccounts({{everyday.number(), Types::Checking}});
    });

    QTest::keyClick(&bank, Qt::Key_Down);

    EXPECT_THAT(rows(account), ElementsAre("", presentationText(everyday)));
}

TEST_F(BankAccountsWidgetTest, EmptiesTheAccountsWithTheBank)
{
    chooseBirch();
    QTest::keyClick(&account, Qt::Key_Down);
    heard.clear();

    QTest::keyClick(&bank, Qt::Key_Home);

    EXPECT_THAT(rows(account), ElementsAre(""));
    EXPECT_EQ(widget.bankAccount(), std::nullopt);
    EXPECT_EQ(widget.type(), std::nullopt);
    ASSERT_GE(heard.size(), 2);
    EXPECT_THAT(heard.mid(0, 3), ElementsAre("no bank", "no account", "type Unspecified"));
    EXPECT_THAT(heard.mid(3), Each("no account"));
}

TEST_F(BankAccountsWidgetTest, AcceptsABankNameOfBlanks)
{
    BankName const blanks("  ");
    widget.setBanks({blanks});
    heard.clear();

    QTest::keyClick(&bank, Qt::Key_Down);

    EXPECT_EQ(widget.bank(), blanks);
    EXPECT_THAT(widget.banks(), ElementsAre(blanks));
    EXPECT_THAT(heard, ElementsAre("bank   ", "look up   "));
}

TEST_F(BankAccountsWidgetTest, OffersTheAccountsLookedUpInTheirOrder)
{
    widget.setBank(birch);
    auto const typesBefore = rows(type);

    widget.lookedUpBankAccounts(birchAccounts);

    EXPECT_THAT(rows(account),
                ElementsAre("", presentationText(everyday), presentationText(rainyDays), presentationText(card)));
    EXPECT_EQ(widget.accountCode(), std::nullopt);
    EXPECT_EQ(rows(type), typesBefore);
}

TEST_F(BankAccountsWidgetTest, ForgetsTheAccountWithANewAnswer)
{
    chooseBirch();
    QTest::keyClick(&account, Qt::Key_Down);
    heard.clear();

    widget.lookedUpBankAccounts({{card.number(), Types::CreditCard}});

    EXPECT_THAT(rows(account), ElementsAre("", presentationText(card)));
    EXPECT_EQ(widget.type(), std::nullopt);
    EXPECT_THAT(heard.mid(0, 2), ElementsAre("no account", "type Unspecified"));
    EXPECT_THAT(heard.mid(2), Each("no account"));
}

TEST_F(BankAccountsWidgetTest, RaisesAnUnknownNumberAndKeepsTheAccountsAheadOfIt)
{
    widget.setBank(birch);

    try {
        widget.lookedUpBankAccounts({{everyday.number(), Types::Checking},
                                     {AccountNumber(150), Types::Savings},
                                     {rainyDays.number(), Types::Savings}});
        FAIL() << "took an unknown number";
    } catch (BankError const& error) {
        EXPECT_EQ(error.message(), "The account number 150 is not known.");
        EXPECT_EQ(error.bank(), birch);
    }

    EXPECT_THAT(rows(account), ElementsAre("", presentationText(everyday)));
}

TEST_F(BankAccountsWidgetTest, RaisesAnUnknownNumberWithoutABankInThePersonsLanguage)
{
    Translation const german({{"The account number %1 is not known.", "Das Konto %1 ist unbekannt."}});

    try {
        widget.lookedUpBankAccounts({{AccountNumber(150), Types::Savings}});
        FAIL() << "took an unknown number";
    } catch (BankError const& error) {
        EXPECT_EQ(error.message(), "Das Konto 150 ist unbekannt.");
        EXPECT_EQ(error.bank(), BankName());
    }
}

TEST_F(BankAccountsWidgetTest, ResolvesNumbersAgainstTheCodesSetLast)
{
    chooseBirch();
    auto const renamed = tlm::testing::code(100, "Daily");

    widget.setCodes({renamed});

    EXPECT_THAT(widget.codes(), ElementsAre(renamed));
    EXPECT_EQ(account.count(), 4);
    widget.lookedUpBankAccounts({{renamed.number(), Types::Checking}});
    EXPECT_THAT(rows(account), ElementsAre("", presentationText(renamed)));
}

TEST_F(BankAccountsWidgetTest, SharesEqualCodesAmongAllRows)
{
    BankAccountsWidget const other({}, std::nullopt, {everyday, rainyDays, card}, nullptr);

    EXPECT_EQ(&other.codes(), &widget.codes());
}

TEST_F(BankAccountsWidgetTest, SharesTheTextsOfEqualAnswersAmongAllRows)
{
    BankAccountsWidget other({}, std::nullopt, {everyday, rainyDays, card}, nullptr);

    widget.lookedUpBankAccounts(birchAccounts);
    other.lookedUpBankAccounts(birchAccounts);

    EXPECT_EQ(child<QComboBox>(other, "accountCmbbx").itemText(1).constData(), account.itemText(1).constData());
}

/// A view with thousands of rows would search thousands of timers.
TEST_F(BankAccountsWidgetTest, LeavesNoTimerRunningBeforeItIsShown)
{
    chooseBirch();
    widget.setBanks({aspen, birch});
    widget.select({birch, card.number(), Types::CreditCard});

    for (auto const* const box : {&bank, &account}) {
        auto* const items = box->view();
        EXPECT_EQ(box->sizeAdjustPolicy(), QComboBox::AdjustToContents);
        for (QObject* const part : {static_cast<QObject*>(items), items->parent()}) {
            EXPECT_TRUE(QAbstractEventDispatcher::instance()->registeredTimers(part).isEmpty());
        }
    }
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
