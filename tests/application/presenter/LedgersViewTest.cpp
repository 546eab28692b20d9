#include "LedgersViewFixture.h"

namespace tallymere::presenter {
namespace {

using tlm::testing::child;
using tlm::testing::expectMessage;

TEST_F(LedgersViewTest, ATransactionIsEnteredClearedAndFoundInTheFileAgain)
{
    show(food);
    press("&Add");
    auto& added = form();
    enter(added, "descriptionLndt", "Bread");
    click(added, "creditRdbttn");
    choosePayer(added, code(everyday));
    enterDollars(added, "amountMnyntry", "7");
    click(added, "reconciledChckbx"); // one step up: cleared

    press(QDialogButtonBox::Save);

    EXPECT_TRUE(isDashboardShown());
    ASSERT_TRUE(posted);
    saveAndReopen();
    EXPECT_EQ(posting(*posted), (Posting{QDate::currentDate(), food, everyday, dollars(7), "Bread",
                                         TransactionStatuses::Cleared, std::nullopt}));
}

TEST_F(LedgersViewTest, TransactionsAreChangedReconciledAndRemovedInOneSave)
{
    auto const changed = numberOf(post(food, everyday, dollars(12)));
    auto const reconciled = numberOf(post(food, everyday, dollars(13)));
    auto const removed = numberOf(post(food, everyday, dollars(14)));
    show(food);
    enterDollars(form(changed), "amountMnyntry", "21");
    click(form(reconciled), "reconciledChckbx");
    click(form(reconciled), "reconciledChckbx");
    click(form(removed), "removeChckbx");

    press(QDialogButtonBox::Save);

    EXPECT_TRUE(isDashboardShown());
    saveAndReopen();
    EXPECT_EQ(posting(changed).amount, dollars(21));
    EXPECT_EQ(posting(changed).status, TransactionStatuses::NotCleared);
    EXPECT_EQ(posting(reconciled).status, TransactionStatuses::Reconciled);
    EXPECT_EQ(session.household().balance(food), dollars(34));
}

TEST_F(LedgersViewTest, ARefusedChangeIsNotMarkedAndStaysWithItsMessage)
{
    expectMessage(QtWarningMsg, "Failure saving");
    auto const number = numberOf(post(food, everyday, dollars(12)));
    auto const same = made(food, abroad, dollars(12));
    auto const sentence =
        sentenceOf([&](Household& household) { household.changePosting(PostingId{number.integer()}, same); });
    show(food);
    choosePayer(form(number), code(abroad));
    click(form(number), "reconciledChckbx");

    press(QDialogButtonBox::Save);

    ASSERT_FALSE(isDashboardShown());
    EXPECT_EQ(error(form(number)), sentence);
    EXPECT_EQ(posting(number), made(food, everyday, dollars(12)));
    choosePayer(form(number), code(card));
    press(QDialogButtonBox::Save);
    EXPECT_TRUE(isDashboardShown());
    EXPECT_EQ(posting(number).crediting, card);
    EXPECT_EQ(posting(number).status, TransactionStatuses::Cleared);
}

TEST_F(LedgersViewTest, ANewTransactionWithoutTheOtherAccountStaysWithItsMessage)
{
    expectMessage(QtWarningMsg, "Failure saving");
    show(food);
    press("&Add");
    enterDollars(form(), "amountMnyntry", "7");
    click(form(), "creditRdbttn");

    press(QDialogButtonBox::Save);

    ASSERT_FALSE(isDashboardShown());
    EXPECT_EQ(error(form()),
              "The other account of this transaction isn't chosen. Choose where the money came from or went to.");
}

TEST_F(LedgersViewTest, BothLedgersOfATransactionShowItUnderOneNumber)
{
    auto const number = numberOf(post(food, everyday, dollars(12)));
    show(food);
    EXPECT_TRUE(form(number).isVisible());

    select(everyday);

    EXPECT_TRUE(form(number).isVisible());
    EXPECT_TRUE(child<QAbstractButton>(form(number), "debitRdbttn").isChecked()) << "food is debited";
}
}
}
