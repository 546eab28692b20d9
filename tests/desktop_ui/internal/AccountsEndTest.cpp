#include "AccountsFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// What ends by an answer: an account, the view, the program.
class AccountsEndTest : public tlm::testing::AccountsFixture
{};

using AccountsEndDeathTest = AccountsEndTest;

TEST_F(AccountsEndTest, ARemovedAccountGoesWithItsRow)
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

TEST_F(AccountsEndTest, ALateRemovalAfterALateClosingGoesWithItsOwnAnswer)
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

TEST_F(AccountsEndTest, ARefusedRemovalKeepsTheAccount)
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

TEST_F(AccountsEndTest, SavingTwiceAheadOfTheAnswersToARemovalIsFine)
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

TEST_F(AccountsEndTest, ANewAccountIsTakenBackOnlyWhenNobodyHearsOfItAnyMore)
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

TEST_F(AccountsEndTest, TheRowOfARemovedAccountLeavesItsNeighbourCurrent)
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

TEST_F(AccountsEndTest, AFaultOfTheReceiverShowsOnTheForm)
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

TEST_F(AccountsEndTest, TheViewMayEndInsideAnyEmission)
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

TEST_F(AccountsEndTest, TheViewMayEndAsItCloses)
{
    load({account(1, "A")});
    rename(form("A"), "a");
    acceptAll();
    QObject::connect(view, &View::closing, view, [this] { delete view.data(); });

    save();

    EXPECT_TRUE(view.isNull());
}

TEST_F(AccountsEndTest, TheViewMayEndWhileAFaultLeavesTheReceiver)
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

TEST_F(AccountsEndTest, ASaveInsideAnEmissionEndsWell)
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

TEST_F(AccountsEndDeathTest, ASuccessThatFitsNoFormEndsTheProgram)
{
    load({account(1, "A")});

    EXPECT_DEATH(accept(code(2, "B")), "Failed to locate the account that succeeded to be saved\\.");
}

TEST_F(AccountsEndDeathTest, ARefusalThatFitsNoFormEndsTheProgram)
{
    load({account(1, "A")});

    EXPECT_DEATH(view->onSaveFailed(code(2, "B"), "No.", code(2, "C")),
                 "Failed to located the widget entry which had the error\\.");
    EXPECT_DEATH(view->onSaveFailed(std::nullopt, "No.", std::nullopt),
                 "Failed to located the widget entry which had the error\\.");
}

TEST_F(AccountsEndDeathTest, ARemovedAccountWithoutARowEndsTheProgram)
{
    load({account(1, "A"), account(2, "B")});
    remove(form("B")).click();
    save();
    std::unique_ptr<QListWidgetItem> const taken(list().takeItem(1));

    EXPECT_DEATH(accept(code(2, "B")), "Failed to locate the account code to remove\\.");
}
