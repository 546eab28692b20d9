#include "BanksAnswerFixture.h"

using ::testing::ElementsAre;
using tlm::testing::BanksAnswerTest;
using tlm::testing::child;
using tlm::testing::expectMessage;

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
