#include "LedgersFixture.h"
#include "support/ComboBoxes.h"

#include <tlm/foundation/PresentationText.h>

#include <QHeaderView>

#include <algorithm>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::LedgersFixture;
using tlm::testing::MessageLog;
using tlm::testing::showActive;

/// Browsing the ledgers.
class LedgersWidgetTest : public LedgersFixture
{
protected:
    QStringList types() const
    {
        QStringList texts;
        for (auto type = 0; type < tree().topLevelItemCount(); ++type) {
            texts.append(tree().topLevelItem(type)->text(0));
        }
        return texts;
    }

    QStringList accountsOf(Types type) const
    {
        QStringList texts;
        auto const& typeRow = row(presentationText(type));
        for (auto account = 0; account < typeRow.childCount(); ++account) {
            texts.append(typeRow.child(account)->text(0));
        }
        return texts;
    }

    static QStringList offered(Entry const& entry)
    {
        return tlm::testing::itemTexts(child<QComboBox>(entry, "accountCmbbx"));
    }
};

TEST_F(LedgersWidgetTest, WithoutAccountsThereAreOnlyTypesAndNothingToAddTo)
{
    make({});

    EXPECT_EQ(types().size(), 6);
    for (auto type = 0; type < 6; ++type) {
        EXPECT_EQ(tree().topLevelItem(type)->childCount(), 0);
        EXPECT_EQ(tree().topLevelItem(type)->flags(), Qt::ItemIsEnabled);
    }
    EXPECT_FALSE(addButton().isEnabled());
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(LedgersWidgetTest, AccountsStandBelowTheirTypesWhateverTheyArePartOf)
{
    make();

    EXPECT_TRUE(std::ranges::is_sorted(types()));
    EXPECT_THAT(accountsOf(Types::Asset), ElementsAre(presentationText(cash), presentationText(bank)));
    EXPECT_THAT(accountsOf(Types::Expense), ElementsAre(presentationText(food), presentationText(rent)));
    EXPECT_THAT(accountsOf(Types::Liability), IsEmpty());
    EXPECT_EQ(tree().headerItem()->text(0), "Ledgers");
    EXPECT_EQ(tree().currentItem(), nullptr);
    EXPECT_FALSE(addButton().isEnabled());
    EXPECT_THAT(entries(), IsEmpty());
}

TEST_F(LedgersWidgetTest, ChoosingAnAccountAsksForItsLedger)
{
    make();

    choose(cash);

    EXPECT_THAT(sent, ElementsAre("ask Cash"));
    EXPECT_TRUE(addButton().isEnabled());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Requesting to display \"" + presentationText(cash) + "\""));
}

TEST_F(LedgersWidgetTest, TheAnswerShowsTheLedgerSeenFromItsAccount)
{
    make();
    choose(cash);
    MessageLog::clear();

    view->onShowLedger(ledgerOf(cash, books));

    EXPECT_EQ(MessageLog::texts(QtInfoMsg).front(), "Showing Ledger: \"" + presentationText(cash) + "\"");
    EXPECT_THAT(shown(), ElementsAre("Bread", "Draw", "Milk"));
    EXPECT_EQ(entry("Bread").otherAccount(), food.number());
    EXPECT_TRUE(entry("Bread").isDebited());
    EXPECT_EQ(entry("Draw").otherAccount(), bank.number());
    EXPECT_TRUE(entry("Draw").isCredited());
    EXPECT_FALSE(entry("Bread").isDirty());
}

TEST_F(LedgersWidgetTest, AnEntryOffersEveryAccountButItsLedger)
{
    make();
    answerLedgers();

    choose(cash);

    EXPECT_THAT(offered(entry("Bread")),
                ElementsAre("", presentationText(bank), presentationText(food), presentationText(rent)));
}

TEST_F(LedgersWidgetTest, ALedgerIsAskedForOnceAndKeptWhileOthersAreShown)
{
    make();
    answerLedgers();

    choose(cash);
    choose(bank);
    EXPECT_THAT(shown(), ElementsAre("Flat", "Draw"));
    MessageLog::clear();
    choose(cash);

    EXPECT_THAT(sent, ElementsAre("ask Cash", "ask Bank"));
    EXPECT_THAT(shown(), ElementsAre("Bread", "Draw", "Milk"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Hiding transactions for selected account \"" + presentationText(bank) + "\"",
                            "Requesting to display \"" + presentationText(cash) + "\""));
}

TEST_F(LedgersWidgetTest, ATypeShowsNothingAndHasNothingToAddTo)
{
    make();
    answerLedgers();
    choose(cash);

    choose(Types::Asset);

    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_EQ(entries().size(), 3);
    EXPECT_FALSE(addButton().isEnabled());
    EXPECT_THAT(sent, ElementsAre("ask Cash"));

    choose(cash);
    EXPECT_EQ(shown().size(), 3);
    EXPECT_TRUE(addButton().isEnabled());
    EXPECT_THAT(sent, ElementsAre("ask Cash"));
}

TEST_F(LedgersWidgetTest, ALedgerWithoutTransactionsIsAskedForAgain)
{
    books.clear();
    make();
    answerLedgers();

    choose(cash);
    choose(bank);
    choose(cash);

    EXPECT_THAT(sent, ElementsAre("ask Cash", "ask Bank", "ask Cash"));
    EXPECT_THAT(entries(), IsEmpty());
}

TEST_F(LedgersWidgetTest, AnAnswerThatComesLateIsFiledUnderTheAccountChosenByThen)
{
    make();
    choose(cash);
    choose(rent);

    view->onShowLedger(ledgerOf(cash, books));

    EXPECT_THAT(shown(), ElementsAre("Bread", "Draw", "Milk"));
    EXPECT_EQ(entry("Bread").ledger(), rent.number());
    choose(Types::Asset);
    EXPECT_THAT(shown(), IsEmpty());
    choose(rent);
    EXPECT_EQ(shown().size(), 3);
    EXPECT_THAT(sent, ElementsAre("ask Cash", "ask Rent"));
    choose(cash);
    EXPECT_THAT(sent, ElementsAre("ask Cash", "ask Rent", "ask Cash"));
}

TEST_F(LedgersWidgetTest, AnAnswerThatFindsATypeChosenWaitsUnseenUnderItsOwnAccount)
{
    make();
    choose(cash);
    choose(Types::Asset);

    view->onShowLedger(ledgerOf(cash, books));

    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_EQ(entry("Bread").ledger(), cash.number());
    choose(cash);
    EXPECT_EQ(shown().size(), 3);
    EXPECT_THAT(sent, ElementsAre("ask Cash"));
}

TEST_F(LedgersWidgetTest, AnAnswerThatNobodyAskedForWaitsUnseen)
{
    make();

    view->onShowLedger(ledgerOf(cash, books));

    EXPECT_THAT(shown(), IsEmpty());
    choose(cash);
    EXPECT_EQ(shown().size(), 3);
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(LedgersWidgetTest, AnAnswerForNoAccountAtAllIsNoTrouble)
{
    make();

    view->onShowLedger(LedgerAccount());

    EXPECT_THAT(entries(), IsEmpty());
}

TEST_F(LedgersWidgetTest, TheWordingReachesTheEntries)
{
    make({asset(cash), expense(food)}, true);
    answerLedgers();

    choose(cash);

    EXPECT_EQ(child<QRadioButton>(entry("Bread"), "debitRdbttn").text(), "Payment For");
    EXPECT_EQ(child<QRadioButton>(entry("Bread"), "creditRdbttn").text(), "Monies From");
}

TEST_F(LedgersWidgetTest, AmountsAreShownAsTheLocaleWritesThem)
{
    make();
    answerLedgers();

    choose(cash);

    EXPECT_EQ(child<QLineEdit>(entry("Milk"), "amountLndt").text(), tlm::foundation::presentationText(euros(4)));
    EXPECT_EQ(child<QComboBox>(entry("Milk"), "codeCmbbx").currentText(), "EUR");
}

TEST_F(LedgersWidgetTest, TheListTakesMostOfTheWidthAndTheTreeEnoughToRead)
{
    make();
    answerLedgers();
    choose(cash);
    view->resize(1280, 720);
    showActive(*view);
    auto const& list = child<QWidget>(*view, "transactionsWdgt");
    auto const& scrolled = child<QWidget>(*view, "transactionsScrllr");

    EXPECT_GE(tree().width(), 250);
    EXPECT_GT(list.width(), 2 * tree().width());
    EXPECT_GE(scrolled.width(), entry("Bread").width());
    EXPECT_EQ(tree().geometry().top(), list.geometry().top());
}

TEST_F(LedgersWidgetTest, ALongNameIsScrolledToRatherThanCutOff)
{
    AccountCode const wordy(AccountNumber(5000), QString(100, 'W'), std::nullopt);
    make({asset(wordy)});
    view->resize(1024, 576);
    showActive(*view);

    EXPECT_GT(tree().header()->sectionSize(0), tree().fontMetrics().horizontalAdvance(presentationText(wordy)));
    EXPECT_LE(tree().width(), 300);
}

TEST_F(LedgersWidgetTest, AViewWithAChosenAccountEndsInSilence)
{
    make();
    answerLedgers();
    choose(cash);
    showActive(*view);
    sent.clear();

    delete view.data();

    EXPECT_THAT(sent, IsEmpty());
}
