#include "BankAccountsFixture.h"
#include "support/Translation.h"

#include <tlm/banking/BankError.h>

#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountNumber;
using tlm::banking::BankError;
using tlm::banking::BankName;
using tlm::desktop_ui::internal::BankAccountsWidget;
using tlm::testing::child;
using tlm::testing::itemTexts;
using tlm::testing::Translation;

using BankAccountsWidgetTest = tlm::testing::BankAccountsFixture;

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

    EXPECT_THAT(itemTexts(account), ElementsAre("", presentationText(everyday)));
}

TEST_F(BankAccountsWidgetTest, EmptiesTheAccountsWithTheBank)
{
    chooseBirch();
    QTest::keyClick(&account, Qt::Key_Down);
    heard.clear();

    QTest::keyClick(&bank, Qt::Key_Home);

    EXPECT_THAT(itemTexts(account), ElementsAre(""));
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
    auto const typesBefore = itemTexts(type);

    widget.lookedUpBankAccounts(birchAccounts);

    EXPECT_THAT(itemTexts(account),
                ElementsAre("", presentationText(everyday), presentationText(rainyDays), presentationText(card)));
    EXPECT_EQ(widget.accountCode(), std::nullopt);
    EXPECT_EQ(itemTexts(type), typesBefore);
}

TEST_F(BankAccountsWidgetTest, ForgetsTheAccountWithANewAnswer)
{
    chooseBirch();
    QTest::keyClick(&account, Qt::Key_Down);
    heard.clear();

    widget.lookedUpBankAccounts({{card.number(), Types::CreditCard}});

    EXPECT_THAT(itemTexts(account), ElementsAre("", presentationText(card)));
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

    EXPECT_THAT(itemTexts(account), ElementsAre("", presentationText(everyday)));
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
    EXPECT_THAT(itemTexts(account), ElementsAre("", presentationText(renamed)));
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
