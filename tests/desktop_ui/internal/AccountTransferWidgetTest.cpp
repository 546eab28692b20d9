#include "internal/AccountTransferWidget.h"

#include "ShowActive.h"
#include "internal/BankAccountsWidget.h"
#include "support/ComboBoxes.h"
#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"
#include "tlm/desktop_ui/MoneyEntryWidget.h"

#include <tlm/foundation/PresentationText.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using fiscora::Currency;
using fiscora::Money;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::TransactionNumber;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::desktop_ui::MoneyEntryWidget;
using tlm::desktop_ui::internal::AccountTransferWidget;
using tlm::desktop_ui::internal::BankAccountsWidget;
using tlm::navigation::BankAccountCode;
using tlm::testing::child;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;

namespace {

BankAccountCode account(QString const& bank, unsigned int number, QString const& name, BankAccountTypes type,
                        Currency currency)
{
    return {BankName(bank), AccountCode(AccountNumber(number), name, std::nullopt), type, currency};
}

BankAccountCode const everyday = account("Aspen Bank", 100, "Everyday", BankAccountTypes::Checking, Currency::EUR);
BankAccountCode const rainyDays = account("Aspen Bank", 200, "Rainy days", BankAccountTypes::Savings, Currency::EUR);
BankAccountCode const travel = account("Birch Bank", 300, "Travel", BankAccountTypes::Checking, Currency::USD);
BankAccountCode const abroad = account("Birch Bank", 400, "Abroad", BankAccountTypes::Savings, Currency::JPY);
BankAccountCode const card = account("Birch Bank", 500, "Card", BankAccountTypes::CreditCard, Currency::EUR);
}

/// A view that moves money out of four accounts into three, in euros or dollars, and all that it tells.
class AccountTransferWidgetTest : public ::testing::Test
{
protected:
    AccountTransferWidgetTest()
    {
        using View = AccountTransferWidget;
        QObject::connect(view, &View::transferRequested, view,
                         [this](auto const& source, auto const& destination, auto const& money, auto const& why) {
                             sent.append(presentationText(source) + " to " + presentationText(destination) + ": " +
                                         QString::fromStdString(toStdString(money)) + " '" + why + "'");
                             if (answer) {
                                 answer();
                             }
                         });
        QObject::connect(view, &View::closing, view, [this] { sent.append("closing"); });
        MessageLog::clear();
    }
    ~AccountTransferWidgetTest() override { delete view.data(); }

    static QComboBox& bankOf(BankAccountsWidget const& row) { return child<QComboBox>(row, "bankCmbbx"); }
    static QComboBox& accountOf(BankAccountsWidget const& row) { return child<QComboBox>(row, "accountCmbbx"); }

    static void choose(BankAccountsWidget const& row, BankAccountCode const& account)
    {
        bankOf(row).setCurrentText(account.bank().institution());
        accountOf(row).setCurrentText(presentationText(account.account()));
    }

    QString error() const
    {
        auto const& line = child<QWidget>(*view, "errorWdgt");
        return line.isHidden() ? "none" : child<QLabel>(line, "messageLbl").text();
    }

    void typeAmount(QString const& text) const { tlm::testing::typeOver(amountField, text); }
    void save() const { buttons.button(QDialogButtonBox::Save)->click(); }
    void discard() const { buttons.button(QDialogButtonBox::Discard)->click(); }

    QPointer<AccountTransferWidget> view = new AccountTransferWidget(
        {everyday, rainyDays, travel, abroad}, {rainyDays, travel, card}, {Currency::EUR, Currency::USD},
        tlm::navigation::CurrencyDisplayOptions::Code, nullptr);
    BankAccountsWidget& from = child<BankAccountsWidget>(*view, "fromBnkaccntwdgt");
    BankAccountsWidget& to = child<BankAccountsWidget>(*view, "toBnkaccntwdgt");
    MoneyEntryWidget& amount = child<MoneyEntryWidget>(*view, "amountMnyntrydgt");
    QLineEdit& amountField = child<QLineEdit>(amount, "amountLndt");
    QLineEdit& reason = child<QLineEdit>(*view, "reasonLndt");
    QDialogButtonBox& buttons = child<QDialogButtonBox>(*view, "saveDiscardDlgbttnbx");
    QStringList sent;
    std::function<void()> answer; // runs inside the emission of a transfer
};

TEST_F(AccountTransferWidgetTest, OffersTheBanksThatMoneyCanLeaveAndEnter)
{
    EXPECT_THAT(itemTexts(bankOf(from)), ElementsAre("", "Aspen Bank", "Birch Bank"));
    EXPECT_THAT(itemTexts(bankOf(to)), ElementsAre("", "Aspen Bank", "Birch Bank"));
    EXPECT_EQ(from.bank(), std::nullopt);
    EXPECT_EQ(amount.amount(), Money());
    EXPECT_THAT(amount.currencies(), ElementsAre(Currency::USD, Currency::EUR));
    EXPECT_FALSE(child<QComboBox>(amount, "codeCmbbx").isEnabled());
    EXPECT_FALSE(view->testAttribute(Qt::WA_DeleteOnClose));
    EXPECT_EQ(error(), "none");
}

TEST_F(AccountTransferWidgetTest, AnswersEachRowFromItsOwnAccounts)
{
    bankOf(from).setCurrentText("Birch Bank");
    bankOf(to).setCurrentText("Birch Bank");

    EXPECT_THAT(itemTexts(accountOf(from)),
                ElementsAre("", presentationText(travel.account()), presentationText(abroad.account())));
    EXPECT_THAT(itemTexts(accountOf(to)),
                ElementsAre("", presentationText(travel.account()), presentationText(card.account())));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Handling account entry widget looking up /from/ bank accounts BankName(\"Birch Bank\")",
                            "Handling account entry widget changed from account number AccountNumber(0)",
                            "Handling account entry widget changed from account number AccountNumber(0)",
                            "Handling account entry widget looking up /to/ bank accounts BankName(\"Birch Bank\")"));
}

TEST_F(AccountTransferWidgetTest, ShowsTheTypeThatTheBankKeepsAnAccountAs)
{
    choose(to, card);

    EXPECT_EQ(to.bankAccount(),
              (tlm::banking::BankAccount{BankName("Birch Bank"), AccountNumber(500), BankAccountTypes::CreditCard}));
}

TEST_F(AccountTransferWidgetTest, ASourceSetsTheAmountToZeroInItsCurrency)
{
    choose(from, everyday);
    EXPECT_EQ(amount.amount(), Money(Currency::EUR, 0, 0, 0));

    typeAmount("12.50");
    choose(from, travel);
    EXPECT_EQ(amount.amount(), Money(Currency::USD, 0, 0, 0));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains("Handling account entry widget changed from account number AccountNumber(300)"));
}

TEST_F(AccountTransferWidgetTest, NoSourceLeavesNoAmount)
{
    choose(from, everyday);
    typeAmount("12.50");

    accountOf(from).setCurrentIndex(0);

    EXPECT_EQ(amount.amount(), Money());
    EXPECT_EQ(amountField.text(), "");
}

TEST_F(AccountTransferWidgetTest, ACurrencyThatIsNotUsableIsStillThatOfTheAmount)
{
    choose(from, everyday);

    choose(from, abroad);
    typeAmount("1200");

    EXPECT_EQ(amount.amount(), Money(Currency::JPY, 1200, 0, 0));
    EXPECT_FALSE(child<QComboBox>(amount, "codeCmbbx").isEnabled());
    choose(from, travel);
    EXPECT_EQ(amount.amount(), Money(Currency::USD, 0, 0, 0));
}

TEST_F(AccountTransferWidgetTest, TheDestinationLeavesTheAmountAlone)
{
    choose(from, everyday);
    typeAmount("12.50");

    choose(to, travel);
    bankOf(to).setCurrentIndex(0);

    EXPECT_EQ(amount.amount(), Money(Currency::EUR, 12, 50, 0));
}

TEST_F(AccountTransferWidgetTest, ATransferLeavesAsItWasTyped)
{
    choose(from, everyday);
    choose(to, card);
    typeAmount("12.50");
    tlm::testing::typeOver(reason, "  for June ");

    save();

    EXPECT_THAT(sent, ElementsAre("100 to 500: 12.50 EUR '  for June '"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Saving the account money transfer."));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Handling account entry widget clicked button \"" +
                                                       buttons.button(QDialogButtonBox::Save)->text() + "\""));
}

TEST_F(AccountTransferWidgetTest, ThePlaceholderIsNoReason)
{
    choose(from, everyday);
    choose(to, card);

    save();

    EXPECT_EQ(reason.placeholderText(), "Money account transfer");
    EXPECT_THAT(sent, ElementsAre("100 to 500: 0.00 EUR ''"));
}

TEST_F(AccountTransferWidgetTest, SavingAnUntouchedFormAsksForTheSource)
{
    save();

    EXPECT_EQ(error(), "The bank account to transfer from is not specified.");
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(AccountTransferWidgetTest, ASourceAloneAsksForTheDestination)
{
    choose(from, everyday);
    typeAmount("twelve");

    save();

    EXPECT_EQ(error(), "The bank account to transfer to is not specified.");
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(AccountTransferWidgetTest, WhatIsNoAmountIsToldLast)
{
    choose(from, everyday);
    choose(to, card);
    amountField.clear();

    save();

    EXPECT_EQ(error(), amount.amountErrorMessage());
    EXPECT_THAT(error().toStdString(), HasSubstr("The amount or issued code is not valid."));
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(AccountTransferWidgetTest, BanksWithoutAccountsGoOutWithoutNumbers)
{
    bankOf(from).setCurrentText("Aspen Bank");
    bankOf(to).setCurrentText("Birch Bank");

    save();

    EXPECT_THAT(sent, ElementsAre("0 to 0: 0.00 XXX ''"));
}

TEST_F(AccountTransferWidgetTest, ATransferFromAnAccountToItselfGoesOut)
{
    choose(from, travel);
    choose(to, travel);
    typeAmount("5");

    save();

    EXPECT_THAT(sent, ElementsAre("300 to 300: 5.00 USD ''"));
}

TEST_F(AccountTransferWidgetTest, ARefusalIsShownAndASecondTryGoesOut)
{
    choose(from, everyday);
    choose(to, card);
    typeAmount("12.50");
    answer = [this] { view->onSaveFailed(std::nullopt, "The card is closed."); };
    save();
    EXPECT_EQ(error(), "The card is closed.");
    EXPECT_EQ(amount.amount(), Money(Currency::EUR, 12, 50, 0));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains("Handling account entry widget save failed \"The card is closed.\""));

    answer = [this] { view->onSaveSucceeded(std::nullopt, TransactionNumber(7)); };
    save();

    EXPECT_THAT(sent, ElementsAre("100 to 500: 12.50 EUR ''", "100 to 500: 12.50 EUR ''", "closing"));
}

TEST_F(AccountTransferWidgetTest, ThePostedTransferClosesTheView)
{
    tlm::testing::showActive(*view);

    view->onSaveSucceeded(std::nullopt, TransactionNumber(7));

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_FALSE(view->isVisible());
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).mid(MessageLog::texts(QtInfoMsg).size() - 2),
              QStringList({"Handling account entry widget save succeeded in Txn # TransactionNumber(7)",
                           "The account money transfer widget is about to close."}));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(view.isNull());
}

TEST_F(AccountTransferWidgetTest, DiscardClosesAtOnce)
{
    choose(from, everyday);

    discard();

    EXPECT_THAT(sent, ElementsAre("closing"));
}

TEST_F(AccountTransferWidgetTest, MayEndWhileItTells)
{
    choose(from, everyday);
    choose(to, card);
    answer = [this] { delete view.data(); };

    save();

    EXPECT_TRUE(view.isNull());
}

TEST_F(AccountTransferWidgetTest, MayEndWhileItCloses)
{
    QObject::connect(view, &AccountTransferWidget::closing, view, [this] { delete view.data(); });

    view->onSaveSucceeded(std::nullopt, std::nullopt);

    EXPECT_TRUE(view.isNull());
}

TEST_F(AccountTransferWidgetTest, TabGoesFromTheSourceToTheButtons)
{
    tlm::testing::showActive(*view);

    auto const stops = tlm::testing::tabOrder(bankOf(from));

    EXPECT_THAT(stops.mid(0, 8), ElementsAre("bankCmbbx", "accountCmbbx", "typeCmbbx", "bankCmbbx", "accountCmbbx",
                                             "typeCmbbx", "amountLndt", "reasonLndt"));
    EXPECT_EQ(stops.size(), 10);
}
