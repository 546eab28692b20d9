#include "BanksFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// To whom an answer goes, when texts alone don't tell.
class BanksAnswerTest : public tlm::testing::BanksFixture
{
protected:
    /// Adds an account to the bank at \a row, and leaves it chosen.
    AccountForm& addAccountTo(QTreeWidgetItem& row, QString const& name)
    {
        choose(row);
        addAccount().click();
        typeType(Types::Checking);
        typeName(name);
        return account();
    }

    BankForm& addBankCalled(QString const& name)
    {
        choose(*tree().topLevelItem(0));
        addBank().click();
        typeName(name);
        return bank();
    }

    void saveAll()
    {
        save();
        saveBanks();
    }
};

TEST_F(BanksAnswerTest, ARefusedNameIsShownWhereItWasTypedThoughTheAnswerBearsTheOldCode)
{
    keepTwoBanks();
    load();
    choose(text(100, "Everyday"));
    typeName("Rainy days");
    answer = [this](Change const& change) {
        view->onAccountSaveFailed(change.originalAccount, "It is taken.", change.originalAccount);
    };
    expectMessage(QtWarningMsg,
                  "^Account entry failed to save, Original Code \"Everyday\" Displayed Code \"Everyday\" ");

    save();

    EXPECT_EQ(currentText(), text(100, "Rainy days"));
    EXPECT_EQ(error(), "It is taken.");
}

TEST_F(BanksAnswerTest, ALateRefusalOfANameGoesByTheNumber)
{
    keepTwoBanks();
    load();
    choose(text(100, "Everyday"));
    typeName("Rainy days");
    save();
    expectMessage(QtWarningMsg, "^Account entry failed to save,");

    refuse(changes.front(), "It is taken.");

    EXPECT_EQ(currentText(), text(100, "Rainy days"));
    EXPECT_EQ(error(), "It is taken.");
}

TEST_F(BanksAnswerTest, ARefusedAccountWithoutANameIsShown)
{
    for (auto const isLate : {false, true}) {
        banks.clear();
        accounts.clear();
        keepTwoBanks();
        load();
        addAccountTo(row("Birch Bank"), "");
        auto const refuseIt = [this](Change const& change) { refuse(change, "Name it."); };
        answer = isLate ? nullptr : std::function<void(Change const&)>(refuseIt);
        expectMessage(QtWarningMsg,
                      "^Account entry failed to save, Original Code \"\" Displayed Code \"\" \"Name it\\.\"$");

        save();
        if (isLate) {
            refuseIt(changes.back());
        }

        EXPECT_EQ(currentText(), AccountForm::newEntryText()) << isLate;
        EXPECT_EQ(error(), "Name it.");
        delete view.data();
    }
}

TEST_F(BanksAnswerTest, AnAcceptedAccountWithoutANameIsSaved)
{
    keepTwoBanks();
    load();
    auto const& form = addAccountTo(row("Birch Bank"), "");
    answer = [this](Change const& /*change*/) { view->onAccountSaveSucceeded(code(950, "Account 950")); };

    save();

    EXPECT_EQ(form.code(), code(950, "Account 950"));
    EXPECT_FALSE(form.isDirty());
    EXPECT_THAT(painted(Qt::green), ElementsAre(AccountForm::newEntryText()));
}

TEST_F(BanksAnswerTest, ANameThatWasPastedWithTheSeparatorIsRefusedWhereItStands)
{
    keepTwoBanks();
    load();
    auto const pasted = "5" + Code::separator_ + "Spare";
    choose("Birch Bank");
    addAccount().click();
    tlm::testing::pasteOver(child<QLineEdit>(account(), "nameLndt"), pasted);
    choose(text(100, "Everyday"));
    tlm::testing::pasteOver(child<QLineEdit>(account(), "nameLndt"), pasted);
    QTest::keyClick(&child<QLineEdit>(account(), "nameLndt"), Qt::Key_Return);
    choose(AccountForm::newEntryText().left(1) + Code::separator_ + pasted);
    QTest::keyClick(&child<QLineEdit>(account(), "nameLndt"), Qt::Key_Return);
    QObject::disconnect(view, &View::addedAccount, nullptr, nullptr);
    QObject::connect(view, &View::addedAccount, view,
                     [this] { view->onAccountSaveFailed(std::nullopt, "Type a blank.", Code()); });
    expectMessage(QtWarningMsg, "^Account entry failed to save,");
    expectMessage(QtWarningMsg, "^Account entry save error for ");

    save();

    EXPECT_EQ(painted(Qt::red).size(), 2);
}

TEST_F(BanksAnswerTest, TwoNewAccountsOfOneNameAreEachAnswered)
{
    for (auto const isLate : {false, true}) {
        banks.clear();
        accounts.clear();
        changes.clear();
        keepTwoBanks();
        load();
        nextNumber = 900;
        auto const& first = addAccountTo(row("Aspen Bank"), "Everyday");
        auto const& second = addAccountTo(row("Birch Bank"), "Everyday");
        acceptAll();
        if (isLate) {
            answer = nullptr;
        }

        save();
        if (isLate) {
            accept(changes.at(0));
            accept(changes.at(1));
        }

        EXPECT_EQ(first.code(), code(900, "Everyday")) << isLate;
        EXPECT_EQ(second.code(), code(901, "Everyday")) << isLate;
        EXPECT_FALSE(second.isDirty());
        delete view.data();
    }
}

TEST_F(BanksAnswerTest, OfTwoNewAccountsOfOneNameTheSecondIsRefusedAlone)
{
    keepTwoBanks();
    load();
    addAccountTo(row("Aspen Bank"), "Spare");
    auto const& second = addAccountTo(row("Birch Bank"), "Spare");
    save();
    expectMessage(QtWarningMsg, "^Account entry failed to save,");

    accept(changes.at(0));
    refuse(changes.at(1), "It is taken.");

    EXPECT_EQ(&account(), &second);
    EXPECT_EQ(error(), "It is taken.");
}

TEST_F(BanksAnswerTest, AnAccountIsFoundThoughItsNameWasTrimmedOrTypedAnew)
{
    keepTwoBanks();
    load();
    auto const& trimmed = addAccountTo(row("Aspen Bank"), "  Spare ");
    auto const& retyped = addAccountTo(row("Birch Bank"), "Visa");
    save();
    choose(text(0, "Visa"));
    typeName("Mastercard");
    choose("Birch Bank");

    view->onAccountSaveSucceeded(code(900, "Spare"));
    view->onAccountSaveSucceeded(code(901, "Visa"));

    EXPECT_EQ(trimmed.code(), code(900, "Spare"));
    EXPECT_EQ(retyped.code(), code(901, "Visa"));
}

TEST_F(BanksAnswerTest, AnAnswerToABankPassesOverAnAccountThatReadsTheSame)
{
    keepTwoBanks();
    load();
    auto& form = addBankCalled("x");
    tlm::testing::pasteOver(child<QLineEdit>(form, "nameLndt"), text(100, "Everyday"));
    QTest::keyClick(&child<QLineEdit>(form, "nameLndt"), Qt::Key_Return);
    choose(text(100, "Everyday"));
    typeName("Daily");
    acceptAll();

    saveAll();

    EXPECT_THAT(painted(Qt::green), ElementsAre(text(100, "Daily"), text(100, "Everyday")));
    EXPECT_EQ(form.bank()->name, Name(text(100, "Everyday")));
}

TEST_F(BanksAnswerTest, TwoBanksTypedAlikeAreEachAnswered)
{
    keepBank("Aspen Bank");
    load();
    auto const& first = addBankCalled("Cedar Bank");
    auto const& second = addBankCalled("Cedar Bank");
    answer = [this](Change const& change) {
        if (sent.size() == 1) {
            accept(change);
        } else {
            refuse(change, "It is taken.");
        }
    };
    expectMessage(QtCriticalMsg, "^Bank entry save error for \"\" \"Cedar Bank\" \"It is taken\\.\"$");

    saveAll();

    EXPECT_FALSE(first.isDirty());
    EXPECT_TRUE(second.isDirty());
    EXPECT_EQ(&bank(), &second);
    EXPECT_EQ(error(), "It is taken.");
}

TEST_F(BanksAnswerTest, TwoBanksTypedAlikeAreEachAnsweredLater)
{
    keepBank("Aspen Bank");
    load();
    auto const& first = addBankCalled("Cedar Bank");
    auto const& second = addBankCalled("Cedar Bank");
    saveAll();
    expectMessage(QtCriticalMsg, "^Bank entry save error for \"\" \"Cedar Bank\" \"It is taken\\.\"$");

    accept(changes.at(0));
    refuse(changes.at(1), "It is taken.");

    EXPECT_FALSE(first.isDirty());
    EXPECT_EQ(&bank(), &second);
}

TEST_F(BanksAnswerTest, ABankRenamedLikeAnotherIsRefusedWhereItWasTyped)
{
    for (auto const isLate : {false, true}) {
        banks.clear();
        changes.clear();
        keepBank("Aspen Bank");
        keepBank("Birch Bank");
        load();
        choose("Birch Bank");
        typeName("Aspen Bank");
        auto const& renamed = bank();
        auto const refuseIt = [this](Change const& change) {
            view->onSaveFailed(Name("Birch Bank"), "It is taken.", change.bank);
        };
        answer = isLate ? nullptr : std::function<void(Change const&)>(refuseIt);
        expectMessage(QtCriticalMsg, "^Bank entry save error for \"Birch Bank\" \"Aspen Bank\" \"It is taken\\.\"$");

        saveAll();
        if (isLate) {
            refuseIt(changes.at(0));
        }

        EXPECT_EQ(&bank(), &renamed) << isLate;
        EXPECT_EQ(error(), "It is taken.");
        delete view.data();
    }
}

TEST_F(BanksAnswerTest, ARefusalThatBearsTheOldNameAloneIsShown)
{
    keepBank("Aspen Bank");
    keepBank("Birch Bank");
    load();
    typeName("Cedar Bank");
    saveAll();
    expectMessage(QtCriticalMsg, "^Bank entry save error for \"Aspen Bank\" \"\" \"It is busy\\.\"$");

    view->onSaveFailed(Name("Aspen Bank"), "It is busy.", std::nullopt);

    EXPECT_EQ(currentText(), "Cedar Bank");
    EXPECT_EQ(error(), "It is busy.");
}

TEST_F(BanksAnswerTest, ABankTypedAnewSinceIsStillAnswered)
{
    keepBank("Aspen Bank");
    load();
    auto const& added = addBankCalled("Cedar Bank");
    saveAll();
    choose("Cedar Bank");
    typeName("Dune Bank");
    choose("Aspen Bank");

    view->onSaveSucceeded(Name("Cedar Bank"));

    EXPECT_EQ(added.bank()->name, Name("Dune Bank"));
    EXPECT_THAT(painted(Qt::green), ElementsAre("Dune Bank"));
}

TEST_F(BanksAnswerTest, ABankWhoseNameWasClearedSinceAsksForOne)
{
    keepBank("Aspen Bank");
    load();
    addBankCalled("Cedar Bank");
    saveAll();
    choose("Cedar Bank");
    typeName("");
    choose("Aspen Bank");

    view->onSaveSucceeded(Name("Cedar Bank"));

    EXPECT_EQ(currentText(), "New Bank");
    EXPECT_TRUE(error().contains("A valid bank name cannot be empty."));
    EXPECT_THAT(sent, ElementsAre("added Cedar Bank"));
}

TEST_F(BanksAnswerTest, ABankCalledNewBankIsToldFromOneWithoutAName)
{
    keepBank("Aspen Bank");
    load();
    choose("Aspen Bank");
    addBank().click();
    check("closedChckbx");
    auto const& unnamed = bank();
    auto const& named = addBankCalled("New Bank");
    expectMessage(QtWarningMsg, "^Bank entry save error for \"New Bank\" ");
    saveAll();

    accept(changes.at(0));

    EXPECT_TRUE(unnamed.isDirty());
    EXPECT_FALSE(named.isDirty());
}

using BanksAnswerDeathTest = BanksAnswerTest;

TEST_F(BanksAnswerDeathTest, AnAnswerThatFitsNothingEndsTheProgram)
{
    keepTwoBanks();
    load();

    EXPECT_DEATH(view->onAccountSaveSucceeded(code(77, "Nobody")),
                 "Failed to locate the account that saved successfully\\.");
    EXPECT_DEATH(view->onAccountSaveFailed(code(77, "Nobody"), "No.", code(77, "Nobody")),
                 "Failed to locate the account whose save failed\\.");
    EXPECT_DEATH(view->onAccountSaveFailed(std::nullopt, "No.", code(77, "Nobody")),
                 "Failed to locate the account whose save failed\\.");
    EXPECT_DEATH(view->onSaveSucceeded(Name("Nobody")), "Failed to locate the bank that saved successfully\\.");
    EXPECT_DEATH(view->onSaveFailed(Name("Nobody"), "No.", Name("Nobody")),
                 "Failed to locate the bank whose save failed\\.");
    EXPECT_DEATH(view->onSaveFailed(std::nullopt, "No.", std::nullopt),
                 "Failed to locate the bank whose save failed\\.");
}

TEST_F(BanksAnswerTest, AnAnswerByTheTextAloneIsTaken)
{
    keepTwoBanks();
    load();

    view->onAccountSaveSucceeded(code(77, "Card"));
    view->onSaveSucceeded(Name("Aspen Bank"));

    EXPECT_THAT(painted(Qt::green), ElementsAre("Aspen Bank", text(200, "Card")));
    EXPECT_THAT(sent, ElementsAre("closing"));
}
