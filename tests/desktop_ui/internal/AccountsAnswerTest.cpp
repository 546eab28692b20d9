#include "AccountsFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// What the view makes of the answers, inside the emission and later.
class AccountsAnswerTest : public tlm::testing::AccountsFixture
{};

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

TEST_F(AccountsAnswerTest, ARefusedFormIsInItsPlaceOnceTheWalkIsOver)
{
    load({account(1, "A"), account(2, "B"), account(3, "C")});
    view->resize(900, 700);
    view->show();
    auto const place = form("A").geometry();
    rename(form("C"), "c");
    refuseAll("No.");

    save();

    EXPECT_EQ(shown(), &form("c"));
    EXPECT_EQ(shown()->geometry(), place);
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
