#include "BooksTest.h"

namespace tallymere::storage {

using namespace testing;
using engine::Posting;
using engine::PostingId;
using fiscora::Currency;
using fiscora::Money;
using ::testing::HasSubstr;
using tlm::accounting::AccountNumber;
using tlm::accounting::TransactionStatuses;

/// Postings that are changed, looked up, and read from the end of a ledger.
class PostingsTest : public BooksTest
{
protected:
    static Posting postingOn(QDate const& day)
    {
        auto posting = postings()[1];
        posting.occurredOn = day;
        return posting;
    }

    std::vector<PostingId> latest(AccountNumber const& number, std::size_t most) const
    {
        std::vector<PostingId> ids;
        for (auto const& posted : document->latestPostingsOf(number, most)) {
            ids.push_back(posted.first);
        }
        return ids;
    }

    PostingId const opening{1};
    PostingId const paid{3};
};

TEST_F(PostingsTest, AChangedPostingTakesThePlaceOfTheOneBefore)
{
    Posting const changed{.occurredOn = QDate(2024, 2, 29),
                          .debiting = AccountNumber(2002),
                          .crediting = AccountNumber(1000),
                          .amount = Money(Currency::EUR, 7, 0, 0),
                          .description = "Ünother",
                          .status = TransactionStatuses::Reconciled,
                          .madeFrom = AccountNumber(1000)};

    change([&] { document->change(paid, changed); });

    EXPECT_EQ(document->posting(paid), changed);
    EXPECT_EQ(postingsOf(AccountNumber(2002)), std::vector{changed});
    EXPECT_TRUE(postingsOf(rent).empty());
    auto expected = household();
    count(expected, {postings()[0], postings()[1], changed, postings()[3]});
    EXPECT_EQ(document->content(), expected);
    EXPECT_TRUE(document->isDirty());
}

TEST_F(PostingsTest, AChangeBackLeavesTheBooksAsTheyWere)
{
    auto cleared = postings()[0];
    cleared.status = TransactionStatuses::Cleared;

    change([&] { document->change(opening, cleared); });
    EXPECT_EQ(document->posting(opening), cleared);
    EXPECT_TRUE(document->isDirty());
    change([&] { document->change(opening, postings()[0]); });

    EXPECT_EQ(document->posting(opening), postings()[0]);
    EXPECT_EQ(document->content(), bookkeeping());
    EXPECT_FALSE(document->isDirty());
}

TEST_F(PostingsTest, AChangedPostingReachesTheFile)
{
    auto unmade = postings()[2];
    unmade.madeFrom.reset();
    unmade.description.clear();
    document->saveAs(at("home.budget"));

    change([&] { document->change(paid, unmade); });
    document->save();
    document.reset();

    document = Document::open(places, at("home.budget"));
    EXPECT_EQ(document->posting(paid), unmade);
    change([&] { document->change(paid, postings()[2]); });
    EXPECT_TRUE(document->isDirty());
}

TEST_F(PostingsTest, WhatIsNotPostedIsNotChanged)
{
    EXPECT_THAT(refused([&] { document->change(PostingId{77}, postings()[0]); }), HasSubstr("can't be changed"));
    EXPECT_THAT(refused([&] { document->remove(PostingId{77}); }), HasSubstr("can't be removed"));
}

TEST_F(PostingsTest, ChangesThatBreakARuleAreRefused)
{
    auto toItself = postings()[0];
    toItself.crediting = toItself.debiting;
    auto nothing = postings()[0];
    nothing.amount = Money(Currency::EUR);
    auto foreign = postings()[0];
    foreign.amount = Money(Currency::JPY, 5, 0, 0);
    auto never = postings()[0];
    never.occurredOn = QDate();
    auto nowhere = postings()[0];
    nowhere.debiting = AccountNumber(77);

    for (auto const& posting : {toItself, nothing, foreign, never, nowhere}) {
        EXPECT_NE(refused([&] { document->change(opening, posting); }), "");
        EXPECT_EQ(document->posting(opening), postings()[0]);
    }
}

TEST_F(PostingsTest, ATextThatIsFarTooLongIsRefused)
{
    auto endless = postings()[0];
    endless.description = QString(2'000'000, 'x');

    EXPECT_EQ(refused([&] { document->post(endless); }),
              "The change can't be kept: a text in it is too long. Shorten that text.");
}

TEST_F(PostingsTest, ARefusedChangeLeavesNoMarkInATransactionThatGoesOn)
{
    auto nothing = postings()[0];
    nothing.amount = Money(Currency::EUR);

    change([&] {
        EXPECT_NE(refusalOf([&] { document->change(opening, nothing); }), QString());
        EXPECT_NE(refusalOf([&] { document->post(nothing); }), QString());
    });

    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(document->content(), bookkeeping());
}

TEST_F(PostingsTest, ChangesNeedATransaction)
{
    EXPECT_THROW(document->change(opening, postings()[1]), std::logic_error);
    EXPECT_EQ(document->posting(opening), postings()[0]);
}

TEST_F(PostingsTest, APostingIsFoundByItsIdentifier)
{
    EXPECT_EQ(document->posting(paid), postings()[2]);
    EXPECT_EQ(document->posting(PostingId{0}), std::nullopt);
    EXPECT_EQ(document->posting(PostingId{5}), std::nullopt);
    change([&] {
        document->remove(paid);
        EXPECT_EQ(document->posting(paid), std::nullopt);
        auto const again = document->post(postings()[2]);
        EXPECT_EQ(document->posting(again), postings()[2]);
    });
}

TEST_F(PostingsTest, ARecodedAccountIsToldByWhatWasPostedBefore)
{
    auto account = books().accounts.at(rent);
    account.code = {AccountNumber(6), "Rent", std::nullopt};

    change([&] { document->change(rent, account); });

    auto expected = postings()[2];
    expected.debiting = AccountNumber(6);
    expected.madeFrom = AccountNumber(6);
    EXPECT_EQ(document->posting(paid), expected);
    change([&] {
        document->remove(paid);
        document->change(AccountNumber(6), bookkeeping().books.accounts.at(rent));
    });
    EXPECT_TRUE(document->isDirty());
    change([&] { document->post(postings()[2]); });
    EXPECT_FALSE(document->isDirty());
}

TEST_F(PostingsTest, TheLatestComeByDayAndByIdentifierWithinADay)
{
    PostingId sameDay;
    PostingId earlier;
    change([&] {
        earlier = document->post(postingOn(QDate(2020, 5, 5)));
        sameDay = document->post(postingOn(postings()[2].occurredOn));
        document->post(postingOn(QDate(1999, 1, 1)));
    });

    EXPECT_EQ(latest(current, 1), std::vector{sameDay});
    EXPECT_EQ(latest(current, 2), (std::vector{paid, sameDay})); // one debits, the other credits
    EXPECT_EQ(latest(current, 3), (std::vector{paid, earlier, sameDay}));
    EXPECT_EQ(document->latestPostingsOf(current, 2).at(paid), postings()[2]);
}

TEST_F(PostingsTest, TheLatestAreNoMoreThanThereAre)
{
    EXPECT_TRUE(latest(current, 0).empty());
    EXPECT_EQ(document->latestPostingsOf(current, 2), document->postingsOf(current));
    EXPECT_EQ(document->latestPostingsOf(current, std::numeric_limits<std::size_t>::max()),
              document->postingsOf(current));
    EXPECT_TRUE(latest(AccountNumber(2002), 5).empty());
    EXPECT_TRUE(latest(AccountNumber(77), 5).empty());
}
}
