#include "BanksFixture.h"

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// The first walk, over the accounts.
class BanksAccountsSaveTest : public tlm::testing::BanksFixture
{
protected:
    BanksAccountsSaveTest()
    {
        keepTwoBanks();
        load();
    }

    /// Adds an account to the bank called \a bank, and leaves it chosen.
    void addAccountTo(QString const& bank, QString const& name, Types type = Types::Savings)
    {
        choose(bank);
        addAccount().click();
        typeType(type);
        typeName(name);
    }

    static QString quoted(QString const& text) { return QDebug::toString(text); }

    QStringList savingLines() const
    {
        auto lines = MessageLog::texts(QtInfoMsg);
        return lines.mid(lines.indexOf("Starting processing bank account widgets."));
    }
};

TEST_F(BanksAccountsSaveTest, NothingChangedClosesAfterAWhile)
{
    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg).mid(1),
                ElementsAre("Changing displayed bank from \"Aspen Bank\" to nothing.",
                            "Starting processing bank account widgets.",
                            "No Changes to Account: " + quoted(text(100, "Everyday")),
                            "No Changes to Account: " + quoted(text(110, "Rainy days")),
                            "No Changes to Account: " + quoted(text(200, "Card")),
                            "No Changes to Account: " + quoted(text(111, "Holiday")), "Processed all bank accounts."));
    MessageLog::clear();
    QTest::qWait(1200);
    EXPECT_THAT(sent, IsEmpty());
    QTest::qWait(600);
    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Starting processing bank widgets.", "No Changes to Bank: \"Aspen Bank\"",
                            "No Changes to Bank: \"Birch Bank\"", "Processing accounts."));
}

TEST_F(BanksAccountsSaveTest, ANewAccountIsAddedWithAllThatItStates)
{
    addAccountTo("Birch Bank", "Spare");
    child<QComboBox>(account(), "codeCmbbx").setCurrentText("USD");
    tlm::testing::typeOver(child<QLineEdit>(account(), "amountLndt"), "12.50");

    save();

    EXPECT_THAT(sent, ElementsAre("added account 'Spare' Savings 12.50 USD"));
    EXPECT_THAT(savingLines(), Contains("Adding New Account " + quoted(text(0, "Spare"))));
    EXPECT_EQ(currentText(), "none");
}

TEST_F(BanksAccountsSaveTest, ANewAccountWithoutATypeIsUnspecified)
{
    choose("Birch Bank");
    addAccount().click();
    typeName("Spare");

    save();

    EXPECT_THAT(sent, ElementsAre("added account 'Spare' Unspecified 0.00 XXX"));
}

TEST_F(BanksAccountsSaveTest, ANewNameRenames)
{
    choose(text(100, "Everyday"));
    typeName("Daily");

    save();

    EXPECT_THAT(sent, ElementsAre("renamed account " + text(100, "Everyday") + " to " + text(100, "Daily")));
    EXPECT_THAT(savingLines(), Contains("Renaming Account \"Everyday\" to \"Daily\""));
}

TEST_F(BanksAccountsSaveTest, AnAccountIsRemovedUnderItsSavedName)
{
    choose(text(100, "Everyday"));
    typeName("Daily");
    markForRemoval();

    save();

    EXPECT_THAT(sent, ElementsAre("removed account " + text(100, "Everyday")));
    EXPECT_THAT(savingLines(), Contains("Removing Account: " + quoted(text(100, "Daily"))));
}

TEST_F(BanksAccountsSaveTest, ANewAccountMarkedForRemovalJustGoes)
{
    addAccountTo("Birch Bank", "Spare");
    QPointer<AccountForm> const form = &account();
    markForRemoval();

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(rows(), Not(Contains("  " + text(0, "Spare"))));
    EXPECT_THAT(savingLines(), Contains("Resetting the dirty flag for \"Spare\""));
    turnEventLoop();
    EXPECT_TRUE(form.isNull());
}

TEST_F(BanksAccountsSaveTest, WhatOnlyTheFormKnowsIsSettledAtOnce)
{
    choose(text(100, "Everyday"));
    check("closedChckbx");
    auto const& form = account();
    ASSERT_TRUE(form.isDirty());

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_FALSE(form.isDirty());
    EXPECT_THAT(painted(Qt::green), ElementsAre(text(100, "Everyday")));
    EXPECT_THAT(savingLines(), Contains("Successfully saved account to ledger. \"Everyday\""));
}

TEST_F(BanksAccountsSaveTest, AWalkThatSettledAllItselfRunsTheBanksTwice)
{
    choose(text(100, "Everyday"));
    check("closedChckbx");
    choose("Birch Bank");
    typeName("Cedar Bank");

    save();
    QTest::qWait(1800);

    EXPECT_THAT(sent, ElementsAre("renamed Birch Bank to Cedar Bank", "updated Cedar Bank 200:Credit Card",
                                  "renamed Birch Bank to Cedar Bank", "updated Cedar Bank 200:Credit Card"));
}

TEST_F(BanksAccountsSaveTest, ABadEntryIsShownAndTheWalkGoesOn)
{
    choose(text(100, "Everyday"));
    typeName("  ");
    choose(text(200, "Card"));
    typeName("Visa");
    expectMessage(QtWarningMsg, "^Account entry save error for \"100.*\" The account has no name\\.");

    save();

    EXPECT_THAT(sent, ElementsAre("renamed account " + text(200, "Card") + " to " + text(200, "Visa")));
    auto const blank = text(100, "Everyday").chopped(8) + "  ";
    EXPECT_THAT(painted(Qt::red), ElementsAre(blank));
    EXPECT_EQ(currentText(), blank);
    EXPECT_TRUE(error().startsWith("The account has no name."));
    EXPECT_TRUE(account().isDirty());
}

TEST_F(BanksAccountsSaveTest, ABadOpeningBalanceIsShown)
{
    addAccountTo("Birch Bank", "Spare");
    child<QComboBox>(account(), "codeCmbbx").setCurrentText("USD");
    child<QLineEdit>(account(), "amountLndt").clear();
    expectMessage(QtWarningMsg, "^Account entry save error for ");

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(painted(Qt::red), ElementsAre(text(0, "Spare")));
    EXPECT_TRUE(error().contains("The amount or issued code is not valid."));
}

TEST_F(BanksAccountsSaveTest, AcceptedAccountsAreGreenAndLetTheBanksGo)
{
    addAccountTo("Birch Bank", "Spare");
    choose(text(100, "Everyday"));
    typeName("Daily");
    acceptAll();

    save();
    EXPECT_THAT(painted(Qt::green), ElementsAre(text(100, "Daily"), text(0, "Spare")));
    EXPECT_THAT(sent, Not(Contains("closing")));

    QTRY_VERIFY_WITH_TIMEOUT(sent.contains("closing"), 2500);
    EXPECT_EQ(sent.at(2), "updated Birch Bank 200:Credit Card 900:Savings");
    EXPECT_THAT(sent.mid(3), Each("closing"));
}

TEST_F(BanksAccountsSaveTest, ARefusedAccountKeepsTheBanksWaiting)
{
    addAccountTo("Birch Bank", "Spare");
    answer = [this](Change const& change) { refuse(change, "There are too many."); };
    expectMessage(
        QtWarningMsg,
        "^Account entry failed to save, Original Code \"\" Displayed Code \"Spare\" \"There are too many\\.\"$");

    save();
    QTest::qWait(1700);

    EXPECT_THAT(sent, ElementsAre("added account 'Spare' Savings 0.00 XXX"));
    EXPECT_EQ(error(), "There are too many.");
    EXPECT_THAT(painted(Qt::red), ElementsAre(text(0, "Spare")));
    EXPECT_EQ(currentText(), text(0, "Spare"));

    acceptAll();
    save();
    EXPECT_THAT(painted(Qt::red), IsEmpty());
    EXPECT_THAT(painted(Qt::green), ElementsAre(text(0, "Spare")));
    choose(text(0, "Spare"));
    EXPECT_EQ(error(), "none");
}

TEST_F(BanksAccountsSaveTest, DiscardAfterSaveStopsTheBanks)
{
    choose("Birch Bank");
    typeName("Cedar Bank");

    save();
    discard();
    QTest::qWait(1700);

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_TRUE(view.isNull());
}

TEST_F(BanksAccountsSaveTest, ARemovedAccountTakesItsSubAccountsAlong)
{
    choose(text(110, "Rainy days"));
    markForRemoval();
    acceptAll();

    save();

    EXPECT_THAT(rows(),
                ElementsAre("Aspen Bank", "  " + text(100, "Everyday"), "Birch Bank", "  " + text(200, "Card")));
    saveBanks();
    EXPECT_THAT(sent, ElementsAre("removed account " + text(110, "Rainy days"), "closing"));
}

TEST_F(BanksAccountsSaveTest, AnAccountThatIsChosenWhileItsRemovalIsAcceptedGoes)
{
    choose(text(100, "Everyday"));
    markForRemoval();
    save();
    choose(text(100, "Everyday"));

    accept(changes.front());

    EXPECT_EQ(currentText(), "none");
    EXPECT_THAT(shown<AccountForm>(), IsEmpty());
    EXPECT_FALSE(addBank().isEnabled());
    choose("Birch Bank");
    EXPECT_EQ(bank().bankName(), Name("Birch Bank"));
}

TEST_F(BanksAccountsSaveTest, TheViewMayEndWithinTheWalk)
{
    choose(text(100, "Everyday"));
    typeName("Daily");
    choose(text(200, "Card"));
    typeName("Visa");
    answer = [this](Change const& /*change*/) { delete view.data(); };

    save();

    EXPECT_EQ(sent.size(), 1);
    EXPECT_TRUE(view.isNull());
}

TEST_F(BanksAccountsSaveTest, AReceiverThatThrowsIsShownAsAFailure)
{
    choose(text(100, "Everyday"));
    typeName("Daily");
    answer = [](Change const& /*change*/) { throw std::runtime_error("The disk is full."); };
    expectMessage(QtWarningMsg, "^Account entry save error for \"100.*Daily\" The disk is full\\.$");

    save();

    EXPECT_EQ(error(), "The disk is full.");
}
