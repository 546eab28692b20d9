#include "AccountsFixture.h"

using ::testing::Contains;

/// Which form an answer is for.
class AccountsReplyTest : public tlm::testing::AccountsFixture
{};

TEST_F(AccountsReplyTest, EqualNewAccountsEachGetTheirOwnAnswerInsideTheEmission)
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

TEST_F(AccountsReplyTest, EqualNewAccountsEachGetTheirOwnAnswerLater)
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

TEST_F(AccountsReplyTest, EqualNumbersOfDifferentNamesGetTheirOwnAnswers)
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

TEST_F(AccountsReplyTest, EqualNamesAreToldApartByTheirNumbers)
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

TEST_F(AccountsReplyTest, ARefusalIsForTheFormThatWaitsRatherThanForOneOfThatName)
{
    load({account(1, "A"), account(2, "B")});
    rename(form("A"), "B"); // as another account is called
    save();

    refuse(code(1, "A"), "There is a B.", code(1, "B"));

    EXPECT_EQ(error(*forms().at(1)), "There is a B.");
    EXPECT_EQ(error(*forms().at(0)), std::nullopt);
    EXPECT_EQ(shown(), forms().at(1));
}

TEST_F(AccountsReplyTest, AnAnswerIsFoundAlthoughTheNameWasChangedMeanwhile)
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

TEST_F(AccountsReplyTest, AnAnswerIsFoundAlthoughAllOfANewAccountWasChangedMeanwhile)
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

TEST_F(AccountsReplyTest, AnAnswerIsForWhatWasSentRatherThanForWhatIsShownMeanwhile)
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

TEST_F(AccountsReplyTest, AnAccountIsNotTakenForANewOneOfItsNameThatHasNoNumber)
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

TEST_F(AccountsReplyTest, ANumberThatTheLedgerGivesIsForWhatWasSentRatherThanForWhatIsShownMeanwhile)
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

TEST_F(AccountsReplyTest, ANewAccountThatIsCalledAsAnotherOneNowGetsItsOwnAnswer)
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

TEST_F(AccountsReplyTest, ARefusalIsFoundAlthoughTheNameWasChangedMeanwhile)
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

TEST_F(AccountsReplyTest, ANumberThatTheLedgerGivesIsTakenOver)
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

TEST_F(AccountsReplyTest, ARefusalThatNamesNothingIsForTheFormThatIsSent)
{
    load({account(1, "A")});
    auto& added = add("7", "B");
    addButton().click(); // a blank form, which fits by its missing name
    answer = [this](Original const&, Code const&) { refuse(std::nullopt, "No.", std::nullopt); };

    save();

    EXPECT_EQ(error(added), "No.");
    EXPECT_EQ(shown(), &added);
}
