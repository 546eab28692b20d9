#include "BanksAnswerFixture.h"

using ::testing::ElementsAre;
using tlm::testing::BanksAnswerTest;
using tlm::testing::expectMessage;

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
