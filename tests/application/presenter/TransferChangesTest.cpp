#include "LedgersFixture.h"

namespace tallymere::presenter {
namespace {

class TransferChangesTest : public LedgersTest
{
protected:
    /// Has the household do what the window asks for, and tells why it refuses.
    QString refusal(AccountNumber const& from, AccountNumber const& to, Money const& amount)
    {
        return sentenceOf(
            [&](Household& household) { household.transfer(from, to, amount, {}, QDate::currentDate()); });
    }
};

TEST_F(TransferChangesTest, MoneyMovesTodayForTheReasonGiven)
{
    emit window.transferRequested(everyday, card, dollars(30), "Pay the card");

    ASSERT_TRUE(posted);
    expectAccepted({}, posted);
    auto const made = session.household().latestPostingsOf(card, 9);
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(made.begin()->second, (Posting{QDate::currentDate(), card, everyday, dollars(30), "Pay the card",
                                             TransactionStatuses::NotCleared, std::nullopt}));
}

TEST_F(TransferChangesTest, EachRefusalIsAnsweredWithTheSentenceOfTheHousehold)
{
    AccountNumber const none;
    struct Case
    {
        AccountNumber from;
        AccountNumber to;
        Money amount;
    };
    for (auto const& [from, to, amount] :
         {Case{everyday, everyday, dollars(1)}, Case{none, card, dollars(1)}, Case{everyday, none, dollars(1)},
          Case{everyday, AccountNumber(999), dollars(1)}, Case{everyday, card, dollars(0)},
          Case{everyday, card, euros(1)}}) {
        expectRefused([&] { emit window.transferRequested(from, to, amount, "Why not"); }, refusal(from, to, amount),
                      {});
    }
}
}
}
