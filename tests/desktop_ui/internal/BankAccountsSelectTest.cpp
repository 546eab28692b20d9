#include "BankAccountsFixture.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/banking/BankError.h>

#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccount;
using tlm::banking::BankError;
using tlm::banking::BankName;
using tlm::desktop_ui::DataEntryError;
using tlm::testing::BankAccountsFixture;
using tlm::testing::itemTexts;

namespace {

/// Chooses from code what a person would pick.
class BankAccountsSelectTest : public BankAccountsFixture
{
protected:
    BankAccount const birchSavings{birch, rainyDays.number(), Types::Savings};
};
}

TEST_F(BankAccountsSelectTest, ChoosesABankAsIfItWerePicked)
{
    widget.setBank(birch);

    EXPECT_EQ(widget.bank(), birch);
    EXPECT_THAT(heard, ElementsAre("bank Birch Bank", "look up Birch Bank"));
}

TEST_F(BankAccountsSelectTest, ChoosesNoBank)
{
    chooseBirch();

    widget.setBank(std::nullopt);

    EXPECT_EQ(widget.bank(), std::nullopt);
    EXPECT_THAT(itemTexts(account), ElementsAre(""));
    EXPECT_EQ(heard.value(0), "no bank");
}

TEST_F(BankAccountsSelectTest, RefusesABankThatIsNotOnOffer)
{
    chooseBirch();

    try {
        widget.setBank(BankName("Cedar %2"));
        FAIL() << "took an unknown bank";
    } catch (DataEntryError const& error) {
        EXPECT_EQ(error.message(), "The value, Cedar %2, is not valid for the \"bank account\" entry. Failed to locate "
                                   "the bank under the given name.");
    }

    EXPECT_EQ(widget.bank(), birch);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(BankAccountsSelectTest, NeverTakesTheBlankRowForABank)
{
    chooseBirch();

    EXPECT_THROW(widget.setBank(BankName()), DataEntryError);

    EXPECT_EQ(widget.bank(), birch);
}

TEST_F(BankAccountsSelectTest, ShowsAnAccountOnOfferInSilence)
{
    chooseBirch();

    widget.select(birchSavings);

    EXPECT_EQ(widget.bankAccount(), birchSavings);
    EXPECT_EQ(account.count(), 4);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(BankAccountsSelectTest, ShowsAnAccountThatIsNotLookedUpYetAndRemembersIt)
{
    widget.select(birchSavings);

    EXPECT_EQ(widget.bankAccount(), birchSavings);
    EXPECT_THAT(itemTexts(account), ElementsAre("", presentationText(rainyDays)));
    EXPECT_THAT(heard, IsEmpty());
    QTest::keyClick(&account, Qt::Key_Up);
    EXPECT_EQ(widget.type(), std::nullopt);
    QTest::keyClick(&account, Qt::Key_Down);
    EXPECT_EQ(widget.type(), Types::Savings);
}

TEST_F(BankAccountsSelectTest, AddsNoSecondRowForAnAccountSelectedTwice)
{
    widget.select(birchSavings);

    widget.select(birchSavings);

    EXPECT_THAT(itemTexts(account), ElementsAre("", presentationText(rainyDays)));
}

TEST_F(BankAccountsSelectTest, LetsTheTypeFollowTheAccountAndThenTakesTheTypeSelected)
{
    chooseBirch();
    QStringList shown;
    QObject::connect(&type, &QComboBox::currentTextChanged, &type, [&](auto const& text) { shown.append(text); });

    widget.select({birch, rainyDays.number(), Types::Goal});

    EXPECT_THAT(shown, ElementsAre("Savings", "", "Goal"));
    EXPECT_EQ(widget.type(), Types::Goal);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(BankAccountsSelectTest, BlanksTheTypeOfAnUnspecifiedAccount)
{
    chooseBirch();

    widget.select({birch, rainyDays.number(), Types::Unspecified});

    EXPECT_EQ(widget.accountCode(), rainyDays);
    EXPECT_EQ(widget.type(), std::nullopt);
}

TEST_F(BankAccountsSelectTest, SpeaksAgainAfterwards)
{
    widget.select(birchSavings);

    QTest::keyClick(&bank, Qt::Key_Up);

    EXPECT_THAT(heard, ElementsAre("bank Aspen Bank", "look up Aspen Bank"));
}

TEST_F(BankAccountsSelectTest, StaysSilentForAnOwnerWhoSilencedIt)
{
    widget.blockSignals(true);

    widget.select(birchSavings);

    EXPECT_TRUE(widget.signalsBlocked());
}

TEST_F(BankAccountsSelectTest, RaisesAnUnknownNumberWithTheBankChosen)
{
    chooseBirch();
    widget.setBank(aspen);

    try {
        widget.select({birch, AccountNumber(150), Types::Savings});
        FAIL() << "took an unknown number";
    } catch (BankError const& error) {
        EXPECT_EQ(error.message(), "The account number 150 is not known.");
        EXPECT_EQ(error.bank(), birch);
    }

    EXPECT_EQ(widget.bank(), birch);
    EXPECT_EQ(account.count(), 4);
    EXPECT_FALSE(widget.signalsBlocked());
}

TEST_F(BankAccountsSelectTest, ChangesNothingForABankThatIsNotOnOffer)
{
    widget.select(birchSavings);

    EXPECT_THROW(widget.select({BankName("Cedar Bank"), everyday.number(), Types::Checking}), DataEntryError);
    EXPECT_THROW(widget.select({}), DataEntryError);

    EXPECT_EQ(widget.bankAccount(), birchSavings);
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_FALSE(widget.signalsBlocked());
}
