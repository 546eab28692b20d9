#include "AccountsViewFixture.h"

namespace tallymere::presenter {
namespace {

using tlm::testing::expectMessage;

TEST_F(AccountsViewTest, TheWholeChartIsShown)
{
    EXPECT_EQ(std::size_t(list().count()), content().books.accounts.size());
}

TEST_F(AccountsViewTest, AccountsAreAddedRecodedClosedAndRemovedInOneSave)
{
    add("610", "Garden", "25");
    enter(form("Food"), "nameLndt", "Groceries");
    click(form("Fun"), "closedChckbx");
    click(form("Holidays"), "removeChckbx");

    press(QDialogButtonBox::Save);

    EXPECT_TRUE(isDashboardShown()) << "all was saved";
    EXPECT_EQ(answers.size(), 4U);
    saveAndReopen();
    EXPECT_EQ(code(AccountNumber(610)).name(), "Garden");
    EXPECT_EQ(session.household().balance(AccountNumber(610)), dollars(25));
    EXPECT_EQ(code(food).name(), "Groceries");
    EXPECT_TRUE(account(fun).isClosed);
    EXPECT_FALSE(hasAccount(abroad));
}

TEST_F(AccountsViewTest, AnAccountIsClosedAndRenamedInOneSave)
{
    auto& entry = form("Food");
    enter(entry, "nameLndt", "Groceries");
    click(entry, "closedChckbx");

    press(QDialogButtonBox::Save);

    EXPECT_TRUE(isDashboardShown());
    saveAndReopen();
    EXPECT_EQ(code(food).name(), "Groceries");
    EXPECT_TRUE(account(food).isClosed);
}

TEST_F(AccountsViewTest, ARefusedNameAfterTheClosingStaysWithItsMessage)
{
    expectMessage(QtWarningMsg, "Failed to save an account entry");
    auto const sentence =
        sentenceOf([](Household& household) { household.recode(food, AccountCode(food, "fun", std::nullopt)); });
    auto& entry = form("Food");
    enter(entry, "nameLndt", "fun");
    click(entry, "closedChckbx");

    press(QDialogButtonBox::Save);

    ASSERT_FALSE(isDashboardShown());
    EXPECT_EQ(error(entry), sentence);
    EXPECT_TRUE(account(food).isClosed);
    EXPECT_EQ(code(food).name(), "Food");
    enter(entry, "nameLndt", "Groceries");
    press(QDialogButtonBox::Save);
    EXPECT_TRUE(isDashboardShown());
    EXPECT_EQ(code(food).name(), "Groceries");
}

TEST_F(AccountsViewTest, ARefusedEntryStaysWithItsMessageWhileTheOthersAreKept)
{
    expectMessage(QtWarningMsg, "Failed to save an account entry");
    auto const sentence = sentenceOf([this](Household& household) { household.closeAccount(everyday); });
    enter(form("Food"), "nameLndt", "Groceries");
    auto& refused = form("Everyday");
    enter(refused, "nameLndt", "Daily");
    click(refused, "closedChckbx");

    press(QDialogButtonBox::Save);

    ASSERT_FALSE(isDashboardShown());
    EXPECT_EQ(error(refused), sentence);
    EXPECT_EQ(code(food).name(), "Groceries");
    EXPECT_EQ(code(everyday).name(), "Everyday");
    click(refused, "closedChckbx");
    press(QDialogButtonBox::Save);
    EXPECT_TRUE(isDashboardShown());
    saveAndReopen();
    EXPECT_EQ(code(everyday).name(), "Daily");
    EXPECT_FALSE(account(everyday).isClosed);
}

TEST_F(AccountsViewTest, ARefusedRemovalAfterTheClosingStaysWithItsMessage)
{
    expectMessage(QtWarningMsg, "Failed to save an account entry");
    post(food, everyday, dollars(5));
    post(everyday, food, dollars(5));
    auto const sentence = sentenceOf([](Household& household) { household.removeAccount(food); });
    show();
    auto& entry = form("Food");
    click(entry, "closedChckbx");
    click(entry, "removeChckbx");

    press(QDialogButtonBox::Save);

    ASSERT_FALSE(isDashboardShown());
    EXPECT_EQ(error(entry), sentence);
    EXPECT_TRUE(account(food).isClosed);
}

TEST_F(AccountsViewTest, DiscardKeepsTheBooksAsTheyWere)
{
    auto const before = content();
    add("610", "Garden", "25");
    click(form("Food"), "removeChckbx");

    press(QDialogButtonBox::Discard);

    EXPECT_TRUE(isDashboardShown());
    EXPECT_EQ(content(), before);
    EXPECT_FALSE(session.isDirty());
}
}
}
