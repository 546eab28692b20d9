#include "AccountsFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// What the view makes of the answers, inside the emission and later.
class AccountsAnswerTest : public tlm::testing::AccountsFixture
{};

using AccountsAnswerDeathTest = AccountsAnswerTest;

TEST_F(AccountsAnswerTest, ASuccessCleansItsFormAndTheLastOneCloses)
{
    load({account(1, "A"), account(2, "B")});
    rename(form("A"), "a");
    rename(form("B"), "b");
    save();
    sent.clear();
    MessageLog::clear();

    accept(code(2, "b"));

    EXPECT_FALSE(form("b").isDirty());
    EXPECT_EQ(form("b").code(), code(2, "b"));
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Succeeded to save \"" + row("2", "b") + "\"", "Resetting the dirty flag for \"b\"",
                            "Checking if everything is saved."));
    accept(code(1, "a"));
    EXPECT_THAT(sent, ElementsAre("closing"));
}

TEST_F(AccountsAnswerTest, AnswersInsideTheEmissionSaveAllAndClose)
{
    load({account(1, "A"), account(2, "B")});
    acceptAll();
    rename(form("A"), "a");
    rename(form("B"), "b");
    add("3", "C");

    save();

    EXPECT_THAT(sent, ElementsAre("recoded 2 B to 2 b", "recoded 1 A to 1 a", "added 3 C", "closing", "closing"));
}

TEST_F(AccountsAnswerTest, ARefusalIsShownWithItsRowCurrentAndTheWalkGoesOn)
{
    load({account(1, "A"), account(2, "B"), account(3, "C")});
    rename(form("C"), "c");
    rename(form("A"), "a");
    refuseAll("No.");
    expectMessage(QtWarningMsg,
                  "^Failed to save an account entry, Original Code \"3.*C\" Displayed Code \"3.*c\" \"No\\.\"$");

    save();

    EXPECT_THAT(sent, ElementsAre("recoded 3 C to 3 c", "recoded 1 A to 1 a"));
    EXPECT_EQ(error(form("c")), "No.");
    EXPECT_EQ(error(form("a")), "No.");
    EXPECT_EQ(currentRow(), row("1", "a"));
    EXPECT_EQ(shown(), &form("a"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Processed all accounts."));
}

TEST_F(AccountsAnswerTest, WhatWasRefusedIsMendedAndSavedAgain)
{
    load({account(1, "A")});
    refuseAll("The number 1 is taken.");
    auto& added = add("1", "B");
    save();
    EXPECT_EQ(error(added), "The number 1 is taken.");
    EXPECT_EQ(error(form("A")), std::nullopt);
    sent.clear();
    acceptAll();

    enter(number(added), "2");
    save();

    EXPECT_THAT(sent, ElementsAre("added 2 B", "closing", "closing"));
    EXPECT_EQ(error(added), std::nullopt);
    EXPECT_EQ(added.code(), code(2, "B"));
}

TEST_F(AccountsAnswerTest, EqualNewAccountsEachGetTheirOwnAnswerInsideTheEmission)
{
    load({});
    auto& first = *shown();
    enter(number(first), "7");
    enter(name(first), "A");
    auto& second = add("7", "A");
    answer = [this](Original const& original, Code const& displayed) {
        refuseAll("Taken.");
        EXPECT_EQ(original, std::nullopt);
        accept(displayed);
    };

    save();

    EXPECT_EQ(first.code(), code(7, "A"));
    EXPECT_EQ(error(first), std::nullopt);
    EXPECT_FALSE(first.isDirty());
    EXPECT_EQ(second.code(), std::nullopt);
    EXPECT_EQ(error(second), "Taken.");
    EXPECT_EQ(shown(), &second);
}

TEST_F(AccountsAnswerTest, EqualNewAccountsEachGetTheirOwnAnswerLater)
{
    load({});
    auto& first = *shown();
    enter(number(first), "7");
    enter(name(first), "A");
    auto& second = add("7", "A");
    save();

    accept(code(7, "A"));
    refuse(std::nullopt, "Taken.", code(7, "A"));

    EXPECT_EQ(first.code(), code(7, "A"));
    EXPECT_EQ(error(first), std::nullopt);
    EXPECT_EQ(error(second), "Taken.");
}

TEST_F(AccountsAnswerTest, EqualNumbersOfDifferentNamesGetTheirOwnAnswers)
{
    load({account(7, "A")});
    auto& added = add("7", "B");
    rename(form("A"), "C");
    save();

    refuse(std::nullopt, "Taken.", code(7, "B"));
    accept(code(7, "C"));

    EXPECT_EQ(error(added), "Taken.");
    EXPECT_EQ(form("C").code(), code(7, "C"));
    EXPECT_EQ(error(form("C")), std::nullopt);
    EXPECT_EQ(added.code(), std::nullopt);
}

TEST_F(AccountsAnswerTest, EqualNamesAreToldApartByTheirNumbers)
{
    load({account(1, "Cash"), account(2, "Cash"), account(3, "Cash")});
    closed(form("Cash")).click(); // the last one
    auto& dirty = form("Cash");
    ASSERT_EQ(dirty.number(), 3U);
    for (auto* const each : forms()) {
        closed(*each).setChecked(true);
    }
    save();

    refuse(code(2, "Cash"), "It holds money.", code(2, "Cash"));

    for (auto* const each : forms()) {
        EXPECT_EQ(error(*each).has_value(), each->number() == 2U) << each->number();
    }
}

TEST_F(AccountsAnswerTest, ARefusalIsForTheFormThatWaitsRatherThanForOneOfThatName)
{
    load({account(1, "A"), account(2, "B")});
    rename(form("A"), "B"); // as another account is called
    save();

    refuse(code(1, "A"), "There is a B.", code(1, "B"));

    EXPECT_EQ(error(*forms().at(1)), "There is a B.");
    EXPECT_EQ(error(*forms().at(0)), std::nullopt);
    EXPECT_EQ(shown(), forms().at(1));
}

TEST_F(AccountsAnswerTest, AnAnswerIsFoundAlthoughTheNameWasChangedMeanwhile)
{
    load({account(1, "A"), account(2, "B")});
    rename(form("A"), "a");
    auto& added = add("7", "C");
    save();
    rename(form("a"), "aa");
    rename(added, "CC");

    accept(code(1, "a"));
    accept(code(7, "C"));

    EXPECT_EQ(form("aa").code(), code(1, "a"));
    EXPECT_EQ(added.code(), code(7, "C"));
    EXPECT_THAT(sent, Contains("closing"));
}

TEST_F(AccountsAnswerTest, AnAnswerIsFoundAlthoughAllOfANewAccountWasChangedMeanwhile)
{
    load({account(1, "A")});
    auto& first = add("", "B");
    auto& second = add("7", "C");
    save();
    enter(number(first), "8");
    rename(first, "BB");
    enter(number(second), "9");
    rename(second, "CC");

    refuse(std::nullopt, "No.", code(7, "C"));
    accept(code(40, "B"));

    EXPECT_EQ(first.code(), code(40, "B"));
    EXPECT_EQ(error(second), "No.");
    EXPECT_EQ(second.code(), std::nullopt);
}

TEST_F(AccountsAnswerTest, AnAnswerIsForWhatWasSentRatherThanForWhatIsShownMeanwhile)
{
    load({account(1, "A")});
    auto& first = add("", "B");
    auto& second = add("", "C");
    save();
    rename(first, "C");
    rename(second, "D");

    refuse(std::nullopt, "No.", code(0, "C"));

    EXPECT_EQ(error(first), std::nullopt);
    EXPECT_EQ(error(second), "No.");
}

TEST_F(AccountsAnswerTest, AnAccountIsNotTakenForANewOneOfItsNameThatHasNoNumber)
{
    load({account(3, "A")});
    closed(form("A")).click();
    auto& added = add("", "A");
    save();

    accept(code(3, "A"));
    accept(code(40, "A"));

    EXPECT_EQ(forms().front()->code(), code(3, "A"));
    EXPECT_EQ(added.code(), code(40, "A"));
}

TEST_F(AccountsAnswerTest, ANumberThatTheLedgerGivesIsForWhatWasSentRatherThanForWhatIsShownMeanwhile)
{
    load({account(3, "A")});
    auto& first = add("", "B");
    auto& second = add("", "C");
    save();
    rename(first, "C");

    accept(code(41, "C"));
    accept(code(40, "B"));

    EXPECT_EQ(first.code(), code(40, "B"));
    EXPECT_EQ(second.code(), code(41, "C"));
}

TEST_F(AccountsAnswerTest, ANewAccountThatIsCalledAsAnotherOneNowGetsItsOwnAnswer)
{
    load({account(7, "A")});
    auto& added = add("7", "B");
    rename(form("A"), "B");
    save();

    accept(code(7, "B"));
    refuse(std::nullopt, "Taken.", code(7, "B"));

    EXPECT_EQ(added.code(), std::nullopt);
    EXPECT_EQ(error(added), "Taken.");
}

TEST_F(AccountsAnswerTest, ARefusalIsFoundAlthoughTheNameWasChangedMeanwhile)
{
    load({account(1, "A"), account(2, "B")});
    rename(form("A"), "a");
    auto& added = add("7", "C");
    save();
    rename(form("a"), "aa");
    rename(added, "CC");

    refuse(code(1, "A"), "No.", code(1, "a"));
    refuse(std::nullopt, "No, either.", code(7, "C"));

    EXPECT_EQ(error(form("aa")), "No.");
    EXPECT_EQ(error(added), "No, either.");
    EXPECT_EQ(currentRow(), row("7", "CC"));
}

TEST_F(AccountsAnswerTest, ANumberThatTheLedgerGivesIsTakenOver)
{
    load({account(1, "A")});
    auto& inside = add("", " New Account ");
    answer = [this](Original const&, Code const&) { accept(code(40, "New Account")); };
    save();
    EXPECT_EQ(inside.number(), 40U);
    EXPECT_FALSE(inside.isDirty());

    answer = nullptr;
    auto& later = add("", "C");
    save();
    accept(code(41, "C"));

    EXPECT_EQ(later.number(), 41U);
    EXPECT_EQ(inside.number(), 40U);
}

TEST_F(AccountsAnswerTest, ARefusalThatNamesNothingIsForTheFormThatIsSent)
{
    load({account(1, "A")});
    auto& added = add("7", "B");
    addButton().click(); // a blank form, which fits by its missing name
    answer = [this](Original const&, Code const&) { refuse(std::nullopt, "No.", std::nullopt); };

    save();

    EXPECT_EQ(error(added), "No.");
    EXPECT_EQ(shown(), &added);
}

TEST_F(AccountsAnswerTest, ClosingIsAnsweredWithTheStoredCodeAndRecodingFollows)
{
    load({account(1, "A", 2), account(2, "B")});
    rename(form("A"), "a");
    closed(form("a")).click();
    answer = [this](Original const&, Code const& displayed) {
        accept(sent.constLast().startsWith("closed") ? code(1, "A", 2) : displayed);
    };

    save();

    EXPECT_THAT(sent, ElementsAre("closed 1 a", "recoded 1 A in 2 to 1 a in 2", "closing", "closing"));
    EXPECT_EQ(form("a").code(), code(1, "a", 2));
}

TEST_F(AccountsAnswerTest, ARefusedClosingIsNotForgottenWhenTheNewNameIsAccepted)
{
    load({account(1, "A")});
    rename(form("A"), "a");
    closed(form("a")).click();
    answer = [this](Original const& original, Code const& displayed) {
        if (sent.constLast().startsWith("closed")) {
            refuse(original, "It holds money.", displayed);
        } else {
            accept(displayed);
        }
    };

    save();

    EXPECT_THAT(sent, ElementsAre("closed 1 a", "recoded 1 A to 1 a"));
    EXPECT_EQ(error(form("a")), "It holds money.");
    EXPECT_EQ(form("a").code(), code(1, "a"));
    sent.clear();
    acceptAll();
    save();
    EXPECT_THAT(sent, ElementsAre("closed 1 a", "closing", "closing"));
}

TEST_F(AccountsAnswerTest, AnAccountThatWasClosedHereCanBeOpenedHere)
{
    load({account(1, "A"), account(2, "B")});
    closed(form("A")).click();
    rename(form("B"), "");
    name(form("")).setText("B ");
    answer = [this](Original const& original, Code const& displayed) {
        if (sent.constLast().startsWith("recoded")) {
            refuse(original, "No.", displayed);
        } else {
            accept(displayed);
        }
    };
    save();
    sent.clear();

    closed(form("A")).click();
    save();

    EXPECT_THAT(sent, ElementsAre("recoded 2 B to 2 B ", "opened 1 A"));
}

TEST_F(AccountsAnswerTest, ARemovedAccountGoesWithItsRow)
{
    load({account(1, "A"), account(2, "B")});
    acceptAll();
    QPointer<Entry> const removed = &form("A");
    closed(*removed).click();
    remove(*removed).click();
    select(row("2", "B"));
    rename(form("B"), "b");

    save();

    EXPECT_THAT(sent, ElementsAre("recoded 2 B to 2 b", "closed 1 A", "removed 1 A", "closing", "closing"));
    EXPECT_THAT(rows(), ElementsAre(row("2", "b")));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Removing \"" + row("1", "A") + "\" from the account list."));
    turnEventLoop();
    EXPECT_TRUE(removed.isNull());
}

TEST_F(AccountsAnswerTest, ALateRemovalAfterALateClosingGoesWithItsOwnAnswer)
{
    load({account(1, "A"), account(2, "B")});
    QPointer<Entry> const removed = &form("A");
    closed(*removed).click();
    remove(*removed).click();
    save();

    accept(code(1, "A"));
    EXPECT_EQ(rows().size(), 2);
    accept(code(1, "A"));

    EXPECT_THAT(rows(), ElementsAre(row("2", "B")));
    turnEventLoop();
    EXPECT_TRUE(removed.isNull());
}

TEST_F(AccountsAnswerTest, ARefusedRemovalKeepsTheAccount)
{
    load({account(1, "A")});
    refuseAll("It has postings.");
    rename(form("A"), "a");
    remove(form("a")).click();

    save();

    EXPECT_THAT(sent, ElementsAre("removed 1 a"));
    EXPECT_EQ(error(form("a")), "It has postings.");
    EXPECT_THAT(rows(), ElementsAre(row("1", "a")));
}

TEST_F(AccountsAnswerTest, SavingTwiceAheadOfTheAnswersToARemovalIsFine)
{
    load({account(1, "A"), account(2, "B")});
    remove(form("A")).click();
    select(row("2", "B"));
    rename(form("B"), "b");
    save();
    save();
    accept(code(1, "A"));

    refuse(code(1, "A"), "There is no such account.", code(1, "A"));

    EXPECT_THAT(rows(), ElementsAre(row("2", "b")));
}

TEST_F(AccountsAnswerTest, ANewAccountIsTakenBackOnlyWhenNobodyHearsOfItAnyMore)
{
    load({account(1, "A")});
    auto& added = add("7", "B");
    save();
    remove(added).click();
    save();
    EXPECT_EQ(rows().size(), 2);

    refuse(std::nullopt, "No.", code(7, "B"));
    save();

    EXPECT_THAT(rows(), ElementsAre(row("1", "A")));
    EXPECT_THAT(sent, ElementsAre("added 7 B", "closing"));
}

TEST_F(AccountsAnswerTest, TheRowOfARemovedAccountLeavesItsNeighbourCurrent)
{
    load({account(1, "A"), account(2, "B"), account(3, "C")});
    select(row("3", "C"));
    rename(form("C"), "c");
    remove(form("B")).click();
    save();
    select(row("2", "B"));
    rename(form("B"), "Z");

    accept(code(2, "B"));

    EXPECT_THAT(rows(), ElementsAre(row("1", "A"), row("3", "c")));
    EXPECT_EQ(currentRow(), row("3", "c"));
    EXPECT_EQ(shown(), &form("c"));
}

TEST_F(AccountsAnswerTest, AFaultOfTheReceiverShowsOnTheForm)
{
    load({account(1, "A")});
    rename(form("A"), "a");
    answer = [](Original const&, Code const&) { throw std::runtime_error("The disk is full."); };
    expectMessage(QtWarningMsg, "^Account entry save error for \"1.*a\" \"The disk is full\\.\"");
    expectMessage(QtWarningMsg, "^Failed to save an account entry, Original Code \"1.*A\" Displayed Code \"1.*a\"");

    save();

    EXPECT_EQ(error(form("a")), "The disk is full.");
    sent.clear();
    remove(form("a")).click();
    acceptAll();
    save();
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AccountsAnswerTest, TheViewMayEndInsideAnyEmission)
{
    std::function<void()> const changes[] = {
        [this] { rename(form("A"), "a"); },
        [this] { closed(form("A")).click(); },
        [this] { closed(form("B")).click(); },
        [this] { remove(form("A")).click(); },
        [this] { add("7", "C"); },
    };
    for (auto const& change : changes) {
        load({account(1, "A"), account(2, "B", {}, true)});
        change();
        answer = [this](Original const&, Code const&) { delete view.data(); };

        save();

        EXPECT_TRUE(view.isNull());
    }
}

TEST_F(AccountsAnswerTest, TheViewMayEndAsItCloses)
{
    load({account(1, "A")});
    rename(form("A"), "a");
    acceptAll();
    QObject::connect(view, &View::closing, view, [this] { delete view.data(); });

    save();

    EXPECT_TRUE(view.isNull());
}

TEST_F(AccountsAnswerTest, TheViewMayEndWhileAFaultLeavesTheReceiver)
{
    load({account(1, "A")});
    rename(form("A"), "a");
    answer = [this](Original const&, Code const&) {
        delete view.data();
        throw std::runtime_error("The window has gone.");
    };
    expectMessage(QtWarningMsg, "^Account entry save error");

    save();

    EXPECT_TRUE(view.isNull());
}

TEST_F(AccountsAnswerTest, ASaveInsideAnEmissionEndsWell)
{
    load({account(1, "A"), account(2, "B")});
    rename(form("A"), "a");
    rename(form("B"), "b");
    answer = [this](Original const&, Code const& displayed) {
        acceptAll();
        save();
        accept(displayed);
    };

    save();

    EXPECT_FALSE(form("a").isDirty());
    EXPECT_FALSE(form("b").isDirty());
    EXPECT_EQ(sent.constLast(), "closing");
}

TEST_F(AccountsAnswerTest, HundredsOfAnswersInsideTheEmissionSaveAll)
{
    constexpr auto count = 300U;
    std::set<Account> many;
    for (auto number = 1U; number <= count; ++number) {
        many.insert(account(number, "A"));
    }
    load(many);
    acceptAll();
    for (auto* const each : forms()) {
        name(*each).setText("B");
        emit name(*each).editingFinished();
    }

    save();

    EXPECT_EQ(sent.filter("recoded").size(), static_cast<qsizetype>(count));
    EXPECT_EQ(sent.count("closing"), 2);
}

TEST_F(AccountsAnswerDeathTest, ASuccessThatFitsNoFormEndsTheProgram)
{
    load({account(1, "A")});

    EXPECT_DEATH(accept(code(2, "B")), "Failed to locate the account that succeeded to be saved\\.");
}

TEST_F(AccountsAnswerDeathTest, ARefusalThatFitsNoFormEndsTheProgram)
{
    load({account(1, "A")});

    EXPECT_DEATH(view->onSaveFailed(code(2, "B"), "No.", code(2, "C")),
                 "Failed to located the widget entry which had the error\\.");
    EXPECT_DEATH(view->onSaveFailed(std::nullopt, "No.", std::nullopt),
                 "Failed to located the widget entry which had the error\\.");
}

TEST_F(AccountsAnswerDeathTest, ARemovedAccountWithoutARowEndsTheProgram)
{
    load({account(1, "A"), account(2, "B")});
    remove(form("B")).click();
    save();
    std::unique_ptr<QListWidgetItem> const taken(list().takeItem(1));

    EXPECT_DEATH(accept(code(2, "B")), "Failed to locate the account code to remove\\.");
}
