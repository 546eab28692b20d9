#include "internal/BudgetItemRefundWidget.h"

#include "ShowActive.h"
#include "internal/TransactionWidget.h"
#include "support/MessageLog.h"
#include "support/Typing.h"
#include "support/Widgets.h"
#include "tlm/desktop_ui/MoneyEntryWidget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using fiscora::Currency;
using fiscora::Money;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::Transaction;
using tlm::accounting::TransactionNumber;
using tlm::accounting::TransactionStatuses;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::desktop_ui::MoneyEntryWidget;
using tlm::desktop_ui::internal::BudgetItemRefundWidget;
using tlm::desktop_ui::internal::TransactionWidget;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

namespace {

AccountCode const bank(AccountNumber(1000), "Bank", std::nullopt);
AccountCode const rent(AccountNumber(5100), "Rent", std::nullopt);
AccountCode const phone(AccountNumber(5200), "Phone", std::nullopt);
BudgetItemIdentifier const rentBill{BudgetItemTypes::Bill, BudgetSource("Rent")};
BudgetItemIdentifier const phoneBill{BudgetItemTypes::Bill, BudgetSource("Phone")};

/// \return a payment of as many euros as its number tells
Transaction payment(unsigned short number, AccountCode const& debiting, AccountCode const& crediting)
{
    return {QDate(2031, 2, 3).addDays(number),
            debiting,
            crediting,
            Money(Currency::EUR, number, 0, 0),
            "Payment " + QString::number(number),
            TransactionNumber(number),
            TransactionStatuses::NotCleared};
}

std::set<Transaction> const rents{payment(11, rent, bank), payment(12, rent, bank), payment(13, bank, rent)};
std::set<Transaction> const phones{payment(21, phone, bank)};
}

/// A view whose look-ups of sources and transactions are answered at once, and all that it tells.
class BudgetItemRefundWidgetTest : public ::testing::Test
{
protected:
    BudgetItemRefundWidgetTest()
    {
        using View = BudgetItemRefundWidget;
        QObject::connect(view, &View::lookUpBudgetItemSources, view, [this](auto const& wanted) {
            sent.append("sources of " + presentationText(wanted));
            view->lookedUpBudgetItemSources({BudgetSource("Rent"), BudgetSource("Phone")});
        });
        QObject::connect(view, &View::lookUpTransactions, view, [this](auto const& wanted) {
            sent.append("transactions of " + presentationText(wanted));
            auto const isRent = wanted == rentBill;
            view->lookedUpTransactions(wanted, isRent ? rent : phone, isRent ? rents : phones);
        });
        QObject::connect(view, &View::post, view, [this](auto const& number, auto const& refund) {
            sent.append(presentationText(number) + ": " + QString::fromStdString(toStdString(refund)));
            if (answer) {
                answer();
            }
        });
        QObject::connect(view, &View::closing, view, [this] { sent.append("closing"); });
        MessageLog::clear();
    }
    ~BudgetItemRefundWidgetTest() override { delete view.data(); }

    void choose(BudgetItemIdentifier const& item) const
    {
        type.setCurrentText(presentationText(item.type));
        source.setCurrentText(item.source.name());
    }

    /// \return the shown entries in order
    QList<TransactionWidget*> entries() const
    {
        auto found = view->findChildren<TransactionWidget*>();
        found.removeIf([this](auto const* each) { return !each->isVisibleTo(view); });
        return found;
    }

    QStringList shown() const
    {
        QStringList texts;
        for (auto const* const entry : entries()) {
            texts.append(entry->description());
        }
        return texts;
    }

    QCheckBox& selection(QString const& about) const
    {
        for (auto const* const entry : entries()) {
            if (entry->description() == about) {
                return child<QCheckBox>(*entry, "selectedChckbx");
            }
        }
        throw std::runtime_error("no entry about " + about.toStdString());
    }

    QString error() const
    {
        auto const& line = child<QWidget>(*child<QWidget>(*view, "saveDiscardDlgbttnbx").parentWidget(), "errorWdgt");
        return line.isHidden() ? "none" : child<QLabel>(line, "messageLbl").text();
    }

    QPushButton& button(QDialogButtonBox::StandardButton which) const
    {
        return *child<QDialogButtonBox>(*view, "saveDiscardDlgbttnbx").button(which);
    }
    void save() const { button(QDialogButtonBox::Save).click(); }

    /// \return what of \a euros the log and the signals tell
    static QString told(long long euros)
    {
        return QString::fromStdString(toStdString(Money(Currency::EUR, euros, 0, 0)));
    }

    QPointer<BudgetItemRefundWidget> view = new BudgetItemRefundWidget(
        {Currency::EUR, Currency::USD}, tlm::navigation::CurrencyDisplayOptions::Code, true, nullptr);
    QComboBox& type = child<QComboBox>(*view, "typeCmbbx");
    QComboBox& source = child<QComboBox>(*view, "sourceCmbbx");
    MoneyEntryWidget& amount = child<MoneyEntryWidget>(*view, "amountMnyntrydgt");
    QLabel& status = child<QLabel>(*view, "postStatusLbl");
    QStringList sent;
    std::function<void()> answer; // runs inside the emission of a post
};

TEST_F(BudgetItemRefundWidgetTest, StartsBlankAndReadyToPickFrom)
{
    EXPECT_TRUE(type.isEnabled());
    EXPECT_TRUE(source.isEnabled());
    EXPECT_EQ(type.currentText(), "");
    EXPECT_EQ(source.currentText(), "");
    EXPECT_EQ(amount.amount(), Money());
    EXPECT_EQ(child<QLabel>(amount, "amountLbl").text(), "Refund Amount:");
    EXPECT_FALSE(child<QComboBox>(amount, "codeCmbbx").isEnabled());
    EXPECT_TRUE(status.isHidden());
    EXPECT_EQ(error(), "none");
    EXPECT_FALSE(view->testAttribute(Qt::WA_DeleteOnClose));
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BudgetItemRefundWidgetTest, ATypeAsksForItsSources)
{
    type.setCurrentText(presentationText(BudgetItemTypes::Bill));

    EXPECT_THAT(sent, ElementsAre("sources of " + presentationText(BudgetItemTypes::Bill)));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Received budget sources: 2")));
    EXPECT_EQ(source.count(), 3);
}

TEST_F(BudgetItemRefundWidgetTest, ASourceAsksForItsTransactionsAndShowsThem)
{
    choose(rentBill);

    EXPECT_EQ(sent.last(), "transactions of " + presentationText(rentBill));
    EXPECT_THAT(shown(), ElementsAre("Payment 11", "Payment 12", "Payment 13"));
    auto const& others = child<QComboBox>(*entries().front(), "accountCmbbx");
    EXPECT_EQ(others.currentText(), presentationText(bank));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains(::testing::ResultOf([](auto const& line) { return line.toStdString(); },
                                             ::testing::StartsWith("Received a transaction count of 3 for"))));
}

TEST_F(BudgetItemRefundWidgetTest, TheOtherAccountIsShownWhicheverSideTheItemIsOn)
{
    choose(rentBill);

    for (auto const* const entry : entries()) {
        EXPECT_EQ(child<QComboBox>(*entry, "accountCmbbx").currentText(), presentationText(bank));
    }
}

TEST_F(BudgetItemRefundWidgetTest, TransactionsCanBeSelectedAndNothingElse)
{
    choose(rentBill);

    auto const& entry = *entries().front();
    EXPECT_TRUE(child<QLineEdit>(entry, "descriptionLndt").isReadOnly());
    EXPECT_FALSE(child<QComboBox>(entry, "accountCmbbx").isEnabled());
    EXPECT_TRUE(child<QCheckBox>(entry, "removeChckbx").isHidden());
    EXPECT_FALSE(child<QCheckBox>(entry, "selectedChckbx").isHidden());
}

TEST_F(BudgetItemRefundWidgetTest, SidesAreNamedInEverydayTerms)
{
    choose(rentBill);

    EXPECT_EQ(child<QRadioButton>(*entries().front(), "debitRdbttn").text(), "Payment For");
}

TEST_F(BudgetItemRefundWidgetTest, ABlankSourceOrTypeAsksForNoTransactions)
{
    choose(rentBill);
    sent.clear();

    source.setCurrentIndex(0);
    EXPECT_THAT(sent, IsEmpty());

    type.setCurrentIndex(0);
    EXPECT_THAT(sent, ElementsAre("sources of "));
    source.setCurrentText("Rent");
    EXPECT_THAT(sent, ElementsAre("sources of "));
}

TEST_F(BudgetItemRefundWidgetTest, AnotherTypeHidesTheTransactionsAndForgetsTheSelection)
{
    choose(rentBill);
    selection("Payment 12").click();

    type.setCurrentText(presentationText(BudgetItemTypes::Wage));

    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_EQ(amount.amount(), Money());
    EXPECT_EQ(source.currentText(), "");
    expectMessage(QtWarningMsg, "No transaction selected");
    save();
    EXPECT_EQ(error(), "No transaction selected.");
}

TEST_F(BudgetItemRefundWidgetTest, AnotherSourceShowsItsTransactionsInstead)
{
    choose(rentBill);

    source.setCurrentText("Phone");
    EXPECT_THAT(shown(), ElementsAre("Payment 21"));

    source.setCurrentText("Rent");
    EXPECT_THAT(shown(), ElementsAre("Payment 11", "Payment 12", "Payment 13"));
}

TEST_F(BudgetItemRefundWidgetTest, TheAmountFollowsTheSelectedTransaction)
{
    choose(rentBill);

    selection("Payment 11").click();
    EXPECT_EQ(amount.amount(), Money(Currency::EUR, 11, 0, 0));

    selection("Payment 12").click();
    EXPECT_EQ(amount.amount(), Money(Currency::EUR, 12, 0, 0));
    EXPECT_FALSE(selection("Payment 11").isChecked());

    selection("Payment 12").click();
    EXPECT_EQ(amount.amount(), Money());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains(QString("The deselected transaction to refund is: TransactionNumber(12)")));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains(QString("The selected transaction to refund is: TransactionNumber(12)")));
}

TEST_F(BudgetItemRefundWidgetTest, NothingIsPostedWithoutASelection)
{
    choose(rentBill);
    sent.clear();

    expectMessage(QtWarningMsg, "^Failed to prepare to post the budget item refund: No transaction selected\\.$");
    save();

    EXPECT_EQ(error(), "No transaction selected.");
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BudgetItemRefundWidgetTest, TheWholeAmountIsPostedUnlessItIsChanged)
{
    choose(rentBill);
    selection("Payment 12").click();
    sent.clear();

    save();

    EXPECT_THAT(sent, ElementsAre("12: " + told(12)));
}

TEST_F(BudgetItemRefundWidgetTest, AChangedAmountIsPostedForTheSelectedTransaction)
{
    choose(rentBill);
    selection("Payment 12").click();
    sent.clear();

    tlm::testing::typeOver(child<QLineEdit>(amount, "amountLndt"), "5");
    save();

    EXPECT_THAT(sent, ElementsAre("12: " + told(5)));
}

TEST_F(BudgetItemRefundWidgetTest, AnAmountThatCanNotBeReadIsToldAndNothingPosted)
{
    choose(rentBill);
    selection("Payment 12").click();
    sent.clear();
    auto& field = child<QLineEdit>(amount, "amountLndt");
    field.clear();
    auto const why = amount.amountErrorMessage();

    expectMessage(QtWarningMsg, "^Failed to prepare to post the budget item refund:");
    save();

    ASSERT_TRUE(why);
    EXPECT_EQ(error(), *why);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BudgetItemRefundWidgetTest, ANewAttemptForgetsTheErrorBefore)
{
    choose(rentBill);
    expectMessage(QtWarningMsg, "No transaction selected");
    save();
    selection("Payment 12").click();

    save();

    EXPECT_EQ(error(), "none");
}

TEST_F(BudgetItemRefundWidgetTest, ARefusedRefundIsToldAndTheViewStays)
{
    choose(rentBill);
    selection("Payment 12").click();
    answer = [this] { view->onSaveFailed(TransactionNumber(12), "More than was paid."); };

    expectMessage(QtWarningMsg, "^Failed to post the budget item refund for: TransactionNumber\\(12\\) because "
                                "\"More than was paid\\.\"$");
    save();

    EXPECT_EQ(error(), "More than was paid.");
    EXPECT_FALSE(sent.contains("closing"));
    EXPECT_TRUE(button(QDialogButtonBox::Save).isEnabled());
}

TEST_F(BudgetItemRefundWidgetTest, APostedRefundIsToldForAMomentAndTheViewCloses)
{
    choose(rentBill);
    selection("Payment 12").click();
    answer = [this] { view->onSaveSucceeded(TransactionNumber(12), TransactionNumber(31)); };
    QSignalSpy closings(view, &BudgetItemRefundWidget::closing);
    QElapsedTimer sincePosted;
    sincePosted.start();

    save();

    EXPECT_FALSE(status.isHidden());
    EXPECT_EQ(status.text(), "Refund posted under transaction " + presentationText(TransactionNumber(31)) + ".");
    EXPECT_EQ(closings.count(), 0);
    ASSERT_TRUE(closings.wait(10'000));
    EXPECT_GE(sincePosted.elapsed(), 1400);
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains(QString("The budget item refund for TransactionNumber(12) was posted in Txn # "
                                 "TransactionNumber(31)")));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).last(), "The budget item refund widget is about to close.");
}

TEST_F(BudgetItemRefundWidgetTest, APostedRefundIsNotPostedAgainWhileTheViewStillShows)
{
    choose(rentBill);
    selection("Payment 12").click();
    answer = [this] { view->onSaveSucceeded(TransactionNumber(12), TransactionNumber(31)); };
    save();
    sent.clear();

    save();

    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BudgetItemRefundWidgetTest, AViewThatGoesRightAfterThePostIsLeftAlone)
{
    choose(rentBill);
    selection("Payment 12").click();
    answer = [this] {
        view->onSaveSucceeded(TransactionNumber(12), TransactionNumber(31));
        delete view.data();
    };

    emit button(QDialogButtonBox::Save).clicked();
    QTest::qWait(1600);

    EXPECT_TRUE(view.isNull());
    EXPECT_FALSE(sent.contains("closing"));
}

TEST_F(BudgetItemRefundWidgetTest, DiscardClosesAtAnyTime)
{
    choose(rentBill);
    selection("Payment 12").click();
    sent.clear();

    button(QDialogButtonBox::Discard).click();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("The budget item refund widget is about to close.")));
}

TEST_F(BudgetItemRefundWidgetTest, TabGoesFromTheItemToTheAmount)
{
    tlm::testing::showActive(*view);

    auto const stops = tlm::testing::tabOrder(type);

    EXPECT_THAT(stops.mid(0, 3), ElementsAre("typeCmbbx", "sourceCmbbx", "amountLndt"));
}
