#include "BanksFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// The second walk, over the banks.
class BanksSaveTest : public tlm::testing::BanksFixture
{
protected:
    /// Saves accounts and banks.
    void saveAll()
    {
        save();
        saveBanks();
    }
};

TEST_F(BanksSaveTest, ANewBankIsAddedWithItsAccountsAndWhetherItIsClosed)
{
    keepBank("Aspen Bank");
    load();
    addBank().click();
    typeName("Cedar Bank");
    check("closedChckbx");
    addAccount().click();
    typeName("Everyday");
    typeType(Types::Checking);
    acceptAll();

    saveAll();

    EXPECT_THAT(sent, ElementsAre("added account 'Everyday' Checking 0.00 XXX", "added Cedar Bank 900:Checking closed",
                                  "closing", "closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Adding Bank: \"Cedar Bank\""));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Successfully Saved Bank \"Cedar Bank\""));
    EXPECT_THAT(painted(Qt::green), Contains("Cedar Bank"));
}

TEST_F(BanksSaveTest, ANewNameIsToldBeforeTheAccounts)
{
    keepTwoBanks();
    load();
    typeName("Cedar Bank");

    saveAll();

    EXPECT_THAT(sent, ElementsAre("renamed Aspen Bank to Cedar Bank", "updated Cedar Bank 100:Checking 110:Savings"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Modifying Bank: \"Cedar Bank\""));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Renaming Bank from \"Aspen Bank\" to \"Cedar Bank\""));
}

TEST_F(BanksSaveTest, ClosingIsToldAlone)
{
    keepTwoBanks();
    load();
    check("closedChckbx");

    saveAll();

    EXPECT_THAT(sent, ElementsAre("closed Aspen Bank"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Closing Bank: \"Aspen Bank\""));
}

TEST_F(BanksSaveTest, ReopeningIsToldBeforeTheAccounts)
{
    keepBank("Aspen Bank", true);
    load();
    typeName("Cedar Bank");
    check("closedChckbx");

    saveAll();

    EXPECT_THAT(sent, ElementsAre("renamed Aspen Bank to Cedar Bank", "opened Cedar Bank", "updated Cedar Bank"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Reopening Bank: \"Cedar Bank\""));
}

TEST_F(BanksSaveTest, ABankThatStaysClosedIsUpdatedAsAnOpenOne)
{
    keepBank("Aspen Bank", true);
    load();
    addAccount().click();
    typeName("Everyday");
    acceptAll();

    saveAll();

    EXPECT_THAT(sent, Contains("updated Aspen Bank 900:Unspecified"));
}

TEST_F(BanksSaveTest, AnAcceptedNewNameIsFollowedByAllThatWasTyped)
{
    keepBank("Aspen Bank");
    load();
    typeName("Cedar Bank");
    check("closedChckbx");
    acceptAll();

    saveAll();

    EXPECT_THAT(sent,
                ElementsAre("renamed Aspen Bank to Cedar Bank", "closing", "closed Cedar Bank", "closing", "closing"));
}

TEST_F(BanksSaveTest, ABankIsRemovedUnderTheNameTyped)
{
    keepTwoBanks();
    load();
    typeName("Cedar Bank");
    markForRemoval();
    acceptAll();

    saveAll();

    EXPECT_THAT(sent, ElementsAre("removed Cedar Bank", "closing", "closing"));
    EXPECT_THAT(rows(), ElementsAre("Birch Bank", "  " + text(200, "Card")));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Removing Account: \"Cedar Bank\""));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Resetting the dirty flag of BankName(\"Cedar Bank\")"));
}

TEST_F(BanksSaveTest, ARefusedRemovalStaysForAnotherTry)
{
    keepTwoBanks();
    load();
    markForRemoval();
    answer = [this](Change const& change) { refuse(change, "It has accounts."); };
    expectMessage(QtCriticalMsg, "^Bank entry save error for \"Aspen Bank\" \"Aspen Bank\" \"It has accounts\\.\"$");

    saveAll();

    EXPECT_THAT(sent, ElementsAre("removed Aspen Bank"));
    EXPECT_EQ(error(), "It has accounts.");
    EXPECT_THAT(painted(Qt::red), ElementsAre("Aspen Bank"));

    saveAll();
    EXPECT_THAT(sent, ElementsAre("removed Aspen Bank", "removed Aspen Bank"));
}

TEST_F(BanksSaveTest, ANewBankWithoutANameIsShownAsBad)
{
    keepTwoBanks();
    load();
    addBank().click();
    check("closedChckbx");
    expectMessage(QtWarningMsg, "^Bank entry save error for \"New Bank\" ");

    saveAll();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(painted(Qt::red), ElementsAre("New Bank"));
    EXPECT_EQ(currentText(), "New Bank");
    EXPECT_TRUE(error().contains("A valid bank name cannot be empty."));
}

TEST_F(BanksSaveTest, ANewBankIsRemovedWithItsNewAccount)
{
    keepBank("Aspen Bank");
    load();
    addBank().click();
    markForRemoval();
    addAccount().click();
    markForRemoval();

    saveAll();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(rows(), ElementsAre("Aspen Bank"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Removing Account: \"New Bank\""));
}

TEST_F(BanksSaveTest, ANewBankThatHoldsAnAccountStays)
{
    load();
    typeName("Cedar Bank");
    markForRemoval();
    addAccount().click();
    acceptAll();

    saveAll();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(rows().size(), 2);
    EXPECT_THAT(painted(Qt::red), ElementsAre("Cedar Bank"));
    EXPECT_EQ(error(), "Cannot remove a bank that has bank accounts.");
}

TEST_F(BanksSaveTest, OneRefusalKeepsTheViewOpenForAllBanks)
{
    keepBank("Aspen Bank");
    keepBank("Birch Bank");
    load();
    typeName("Cedar Bank");
    choose("Birch Bank");
    typeName("Dune Bank");
    answer = [this](Change const& change) {
        if (change.bank == Name("Dune Bank")) {
            accept(change);
        } else {
            refuse(change, "It is taken.");
        }
    };
    expectMessage(QtCriticalMsg, "^Bank entry save error for \"Aspen Bank\" \"Cedar Bank\" \"It is taken\\.\"$");
    expectMessage(QtCriticalMsg, "^Bank entry save error for \"Cedar Bank\" \"Cedar Bank\" \"It is taken\\.\"$");

    saveAll();

    EXPECT_THAT(sent, ElementsAre("renamed Aspen Bank to Cedar Bank", "updated Cedar Bank",
                                  "renamed Birch Bank to Dune Bank", "updated Dune Bank"));
    EXPECT_THAT(painted(Qt::red), ElementsAre("Cedar Bank"));
    EXPECT_THAT(painted(Qt::green), ElementsAre("Dune Bank"));
    EXPECT_EQ(currentText(), "Cedar Bank");
    EXPECT_EQ(error(), "It is taken.");
    EXPECT_TRUE(view->findChildren<BankForm*>().at(0)->isDirty());
}

TEST_F(BanksSaveTest, PaintedRowsStayReadable)
{
    keepBank("Aspen Bank");
    load();
    typeName("Cedar Bank");
    answer = [this](Change const& change) { refuse(change, "It is taken."); };
    expectMessage(QtCriticalMsg, "It is taken");

    saveAll();

    EXPECT_EQ(row("Cedar Bank").background(0), QBrush(Qt::red, Qt::SolidPattern));
    EXPECT_EQ(row("Cedar Bank").foreground(0), QBrush(Qt::black));
    EXPECT_EQ(row("Cedar Bank").background(1), QBrush());
}

TEST_F(BanksSaveTest, TheViewMayEndBetweenTheNewNameAndTheAccounts)
{
    keepTwoBanks();
    load();
    typeName("Cedar Bank");
    answer = [this](Change const& /*change*/) { delete view.data(); };

    saveAll();

    EXPECT_THAT(sent, ElementsAre("renamed Aspen Bank to Cedar Bank"));
    EXPECT_TRUE(view.isNull());
}

TEST_F(BanksSaveTest, TheViewMayEndAsTheLastAnswerClosesIt)
{
    keepTwoBanks();
    load();
    typeName("Cedar Bank");
    QObject::connect(view, &View::closing, view, [this] { delete view.data(); });
    acceptAll();

    saveAll();

    EXPECT_THAT(sent, ElementsAre("renamed Aspen Bank to Cedar Bank", "closing"));
    EXPECT_TRUE(view.isNull());
}

TEST_F(BanksSaveTest, ARemovalAcceptedForABankWithAccountsTakesThemAlong)
{
    keepTwoBanks();
    load();
    markForRemoval();
    choose(text(100, "Everyday"));
    save();
    saveBanks();
    choose(text(111, "Holiday"));

    accept(changes.front());

    EXPECT_THAT(rows(), ElementsAre("Birch Bank", "  " + text(200, "Card")));
    EXPECT_EQ(currentText(), "none");
    turnEventLoop();
}
