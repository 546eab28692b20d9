#include "AccountsFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// What Save tells, in which order, while the answers are still to come.
class AccountsSaveTest : public tlm::testing::AccountsFixture
{
protected:
    QStringList saidInfo(QString const& part) const { return MessageLog::texts(QtInfoMsg).filter(part); }
};

TEST_F(AccountsSaveTest, WithNothingChangedTheViewCloses)
{
    load({account(1, "A"), account(2, "B")});

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Handling account entry widget clicked button \"" +
                                buttons().button(QDialogButtonBox::Save)->text() + "\"",
                            "Saving all account modifications.",
                            "Changing displayed account from \"" + row("1", "A") + "\" to nothing.",
                            "Skipping saving non-dirty account \"B\"", "Skipping saving non-dirty account \"A\"",
                            "Processed all accounts."));
}

TEST_F(AccountsSaveTest, SaveLeavesNoRowCurrentAndTheRowSaysWhatWasTyped)
{
    load({account(1, "A"), account(2, "B")});
    rename(form("A"), "C");

    save();

    EXPECT_EQ(currentRow(), "none");
    EXPECT_THAT(rows(), ElementsAre(row("1", "C"), row("2", "B")));
    EXPECT_EQ(shown(), &form("C"));
}

TEST_F(AccountsSaveTest, ARenamedAccountIsRecodedAndStaysDirtyUntilItsAnswer)
{
    load({account(1, "A", 2), account(2, "B")});
    rename(form("A"), "C");

    save();

    EXPECT_THAT(sent, ElementsAre("recoded 1 A in 2 to 1 C in 2"));
    EXPECT_TRUE(form("C").isDirty());
    EXPECT_THAT(saidInfo("Recoding"),
                ElementsAre("Recoding Account from \"" + row("1", "A") + "\" to \"" + row("1", "C") + "\""));
}

TEST_F(AccountsSaveTest, AnotherParentAloneIsRecoded)
{
    load({account(1, "A"), account(2, "B", 1), account(3, "C", 2)});
    parents(form("A")).setCurrentText("3");
    parents(form("B")).setCurrentIndex(0);
    parents(form("C")).setCurrentText("1");

    save();

    EXPECT_THAT(sent,
                ElementsAre("recoded 3 C in 2 to 3 C in 1", "recoded 2 B in 1 to 2 B", "recoded 1 A to 1 A in 3"));
}

TEST_F(AccountsSaveTest, AnotherNumberIsRecoded)
{
    load({account(1, "A")});
    number(form("A")).setText("7");
    emit number(form("A")).editingFinished();

    save();

    EXPECT_THAT(sent, ElementsAre("recoded 1 A to 7 A"));
}

TEST_F(AccountsSaveTest, ANewAccountIsAddedWithAllThatItStates)
{
    load({account(1, "A")});
    auto& added = add("7", " B ");
    ledgerType(added).setCurrentText(presentationText(Types::Liability));
    parents(added).setCurrentText("1");
    currency(added).setCurrentText("USD");
    enter(amount(added), "12.50");
    closed(added).click();

    save();

    EXPECT_THAT(sent, ElementsAre("added 7  B  in 1"));
    EXPECT_EQ(addedAccounts.front(),
              Account(Types::Liability, code(7, " B ", 1), Money(Currency::USD, 12, 50, 0), true));
    EXPECT_THAT(saidInfo("Adding Account"), ElementsAre("Adding Account: \"" + row("7", " B ") + "\""));
}

TEST_F(AccountsSaveTest, ANewAccountWithoutANumberIsAddedUnderItsName)
{
    load({});
    enter(name(*shown()), "New Account");

    save();

    EXPECT_THAT(sent, ElementsAre("added 0 New Account"));
}

TEST_F(AccountsSaveTest, AClosedAccountThatIsUncheckedIsOpened)
{
    load({account(1, "A", 2, true), account(2, "B")});
    closed(form("A")).click();

    save();

    EXPECT_THAT(sent, ElementsAre("opened 1 A"));
    EXPECT_THAT(saidInfo("Opening"), ElementsAre("Opening Account: \"" + row("1", "A") + "\""));
}

TEST_F(AccountsSaveTest, ClosingGoesOutAheadOfRecoding)
{
    load({account(1, "A")});
    rename(form("A"), "B");
    closed(form("B")).click();

    save();

    EXPECT_THAT(sent, ElementsAre("closed 1 B", "recoded 1 A to 1 B"));
    EXPECT_THAT(saidInfo("Closing"), ElementsAre("Closing Account: \"" + row("1", "B") + "\""));
}

TEST_F(AccountsSaveTest, ClosingGoesOutAheadOfARemoval)
{
    load({account(1, "A", 2), account(2, "B")});
    closed(form("A")).click();
    remove(form("A")).click();

    save();

    EXPECT_THAT(sent, ElementsAre("closed 1 A", "removed 1 A"));
    EXPECT_THAT(saidInfo("Removing"), ElementsAre("Removing Account: \"" + row("1", "A") + "\""));
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(AccountsSaveTest, ANewFormMarkedForRemovalGoesWithItsRowAndNobodyHears)
{
    load({account(1, "A")});
    QPointer<Entry> const added = &add("7", "B");
    remove(*added).click();
    MessageLog::clear();

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(rows(), ElementsAre(row("1", "A")));
    EXPECT_THAT(saidInfo("B\""), ElementsAre("Removing Account: \"" + row("7", "B") + "\"",
                                             "Removing \"" + row("7", "B") + "\" from the account list.",
                                             "Resetting the dirty flag for \"B\""));
    turnEventLoop();
    EXPECT_TRUE(added.isNull());
}

TEST_F(AccountsSaveTest, TheLastFormMarkedForRemovalGoesToo)
{
    load({});
    remove(*shown()).click();

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AccountsSaveTest, AnAccountCanBeAddedWhereTheLastOneWent)
{
    load({account(1, "A")});
    rename(form("A"), "B");
    remove(add("7", "C")).click();
    save();
    EXPECT_EQ(shown(), nullptr);

    addButton().click();

    EXPECT_EQ(currentRow(), Entry::newEntryText());
    EXPECT_TRUE(shown()->isEmpty());
    select(row("1", "B"));
    EXPECT_EQ(shown(), &form("B"));
}

TEST_F(AccountsSaveTest, ABlankFormThatIsDirtyStopsTheWalkWithTheReason)
{
    load({account(1, "A")});
    addButton().click();
    auto& blank = *shown();
    closed(blank).click();
    expectMessage(QtWarningMsg, "^Account entry save error for \"0.*New Account\" .*The account has no name");
    expectMessage(QtWarningMsg, "^Failed to save an account entry, Original Code \"0.*\" Displayed Code \"0.*\" \"The");

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(error(blank)->toStdString(), HasSubstr("The account has no name."));
    EXPECT_TRUE(blank.isDirty());
    EXPECT_EQ(currentRow(), Entry::newEntryText());
    EXPECT_EQ(shown(), &blank);
    EXPECT_THAT(saidInfo("Processed all accounts."), IsEmpty());
}

TEST_F(AccountsSaveTest, TheWalkStopsAtItsFirstFault)
{
    load({account(1, "A"), account(2, "B"), account(3, "C")});
    rename(form("C"), "c");
    rename(form("B"), "");
    rename(form("A"), "a");
    expectMessage(QtWarningMsg, "^Account entry save error");
    expectMessage(QtWarningMsg, "^Failed to save an account entry, Original Code \"2.*B\" Displayed Code \"0");

    save();

    EXPECT_THAT(sent, ElementsAre("recoded 3 C to 3 c"));
    EXPECT_EQ(currentRow(), row("2", "B"));
    EXPECT_THAT(rows(), Contains(row("2", "B")));
    EXPECT_TRUE(error(*shown()));
}

TEST_F(AccountsSaveTest, NamesThatMakeNoCodeShowWhyOnTheirForm)
{
    for (auto const& typed : {QString("  "), "a" + Code::separator_ + "b", QString::fromUtf8("a\u2002b"),
                              Code::separator_, QString("a\nb")}) {
        load({account(1, "A"), account(2, "B")});
        auto& added = add("7", "");
        name(added).setText(typed);
        emit name(added).editingFinished();
        select(row("1", "A"));
        expectMessage(QtWarningMsg, "^Account entry save error");
        expectMessage(QtWarningMsg, "^Failed to save an account entry, Original Code \"0[^\"]*\" Displayed Code \"0");

        save();

        EXPECT_THAT(sent, IsEmpty()) << typed.toStdString();
        EXPECT_EQ(shown(), &added) << typed.toStdString();
        EXPECT_TRUE(error(added)) << typed.toStdString();
        delete view.data();
    }
}

TEST_F(AccountsSaveTest, ANumberThatIsCutIsRefusedInsteadOfSentAsAnother)
{
    load({account(5, "A")});
    addButton().click();
    auto& added = *shown();
    number(added).setText("4294967301");
    enter(name(added), "B");
    expectMessage(QtWarningMsg, "^Account entry save error");
    expectMessage(QtWarningMsg, "^Failed to save an account entry");

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(error(added), "An account can't have the number 4294967301. Type one of at most nine digits.");
    EXPECT_EQ(error(form("A")), std::nullopt);
    EXPECT_EQ(shown(), &added);
}

TEST_F(AccountsSaveTest, ANumberThatIsCutIsNotRemovedOrClosedInsteadOfAnother)
{
    load({account(1, "A"), account(5, "B")});
    number(form("A")).setText("4294967301");
    closed(form("A")).click();
    remove(form("A")).click();
    expectMessage(QtWarningMsg, "^Account entry save error");
    expectMessage(QtWarningMsg, "^Failed to save an account entry");

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_TRUE(error(form("A")));
}

TEST_F(AccountsSaveTest, ABalanceThatIsNoAmountShowsWhy)
{
    load({account(1, "A")});
    auto& added = add("7", "B");
    currency(added).setCurrentText("EUR");
    amount(added).setText("1-2");
    expectMessage(QtWarningMsg, "^Account entry save error for \"7.*B\" .*1-2");
    expectMessage(QtWarningMsg,
                  "^Failed to save an account entry, Original Code \"0.*\" Displayed Code \"7.*B\" .*1-2");

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(error(added)->toStdString(), HasSubstr("The amount or issued code is not valid."));
}

TEST_F(AccountsSaveTest, WhatIsChangedBackIsSaved)
{
    load({account(1, "A"), account(2, "B")});
    closed(form("A")).click();
    closed(form("A")).click();
    rename(form("B"), "B");
    ASSERT_TRUE(form("A").isDirty());

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_FALSE(form("A").isDirty());
}

TEST_F(AccountsSaveTest, AFormThatStaysOnViewAfterSaveIsFollowedByItsRow)
{
    load({account(1, "A"), account(2, "B")});
    rename(form("A"), "C");
    save();
    rename(form("C"), "D");

    select(row("2", "B"));

    EXPECT_THAT(rows(), ElementsAre(row("1", "D"), row("2", "B")));
    select(row("1", "D"));
    EXPECT_EQ(shown(), &form("D"));
}

TEST_F(AccountsSaveTest, AFormThatStaysOnViewAfterSaveIsFollowedByItsRowOnTheNextSave)
{
    load({account(1, "A")});
    auto& added = add("7", "C");
    save();
    rename(added, "D");

    save();

    EXPECT_THAT(rows(), ElementsAre(row("1", "A"), row("7", "D")));
    EXPECT_THAT(sent, ElementsAre("added 7 C", "added 7 D"));
}
