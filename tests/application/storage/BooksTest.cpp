#include "BooksTest.h"

namespace tallymere::storage {

using namespace testing;
using engine::PostingId;
using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;

TEST_F(BooksTest, HoldsWhatItWasMadeOf)
{
    EXPECT_EQ(document->content(), bookkeeping());
    EXPECT_EQ(postingsOf(AccountNumber(3001)), (std::vector{postings()[0], postings()[1]}));
    EXPECT_EQ(postingsOf(current), (std::vector{postings()[1], postings()[2]}));
    EXPECT_TRUE(postingsOf(AccountNumber(2002)).empty());
    EXPECT_TRUE(postingsOf(AccountNumber(77)).empty());
}

TEST_F(BooksTest, CountsPostingsFromOne)
{
    EXPECT_EQ(document->postingsOf(current).begin()->first, PostingId{2});

    PostingId id;
    change([&] { id = document->post(postings()[2]); });

    EXPECT_EQ(id, PostingId{5});
}

TEST_F(BooksTest, NeverGivesTheNumberOfAPostingTwice)
{
    change([&] { document->remove(PostingId{4}); });

    PostingId id;
    change([&] { id = document->post(postings()[3]); });

    EXPECT_EQ(id, PostingId{5});
    EXPECT_FALSE(document->isDirty());
}

TEST_F(BooksTest, APostingCountsInBothAccounts)
{
    change([&] { document->post(postings()[2]); });

    EXPECT_EQ(books().turnovers.at(rent), (engine::Turnover{Money(Currency::EUR, 1'900, 0, 0), 2}));
    EXPECT_EQ(books().turnovers.at(current), (engine::Turnover{Money(Currency::EUR, 600, 10, 5), 3}));
    EXPECT_TRUE(document->isDirty());
}

TEST_F(BooksTest, ARemovedPostingIsGone)
{
    change([&] { document->remove(PostingId{4}); });

    EXPECT_FALSE(books().turnovers.contains(yen));
    EXPECT_TRUE(postingsOf(yen).empty());
    EXPECT_NE(refusalOf([&] { change([&] { document->remove(PostingId{4}); }); }), QString());
}

TEST_F(BooksTest, WhatIsDoneAndUndoneDoesNotCountAsChange)
{
    change([&] { document->post(postings()[3]); });
    ASSERT_TRUE(document->isDirty());

    change([&] { document->remove(PostingId{5}); });
    EXPECT_FALSE(document->isDirty());

    EXPECT_THROW(change([&] {
                     document->post(postings()[3]);
                     throw std::runtime_error("no");
                 }),
                 std::runtime_error);
    EXPECT_FALSE(document->isDirty());
}

TEST_F(BooksTest, SumsMayPassWhatTheyEndAt)
{
    auto most = postings()[1];
    most.amount = Money::fromAmount(Currency::EUR, std::numeric_limits<long long>::max());
    auto back = most;
    std::swap(back.debiting, back.crediting);

    change([&] {
        for (auto round = 0; round < 5; ++round) {
            document->post(most);
            document->post(back);
        }
        document->post(back);
        for (auto id = 1; id <= 3; ++id) {
            document->remove(PostingId{id});
        }
    });

    EXPECT_EQ(books().turnovers.at(AccountNumber(3001)), (engine::Turnover{most.amount, 11}));
    EXPECT_EQ(books().turnovers.at(current), (engine::Turnover{-most.amount, 11}));
}

TEST_F(BooksTest, ARecodedAccountKeepsAllThatTellsOfIt)
{
    auto account = books().accounts.at(current);
    account.code = AccountCode(AccountNumber(7), "Main", std::nullopt);

    change([&] { document->change(current, account); });

    auto const content = document->content();
    EXPECT_EQ(content.books.accounts.at(AccountNumber(7)), account);
    EXPECT_FALSE(content.books.accounts.contains(current));
    EXPECT_EQ(content.books.accounts.at(AccountNumber(1000)).code.parent(), AccountNumber(7));
    EXPECT_EQ(content.books.banks.at(southern).accounts().at(AccountNumber(7)), BankAccountTypes::Checking);
    EXPECT_EQ(content.books.turnovers.at(AccountNumber(7)), bookkeeping().books.turnovers.at(current));
    EXPECT_EQ(postingsOf(AccountNumber(7)).size(), 2U);
    EXPECT_TRUE(document->isDirty());
}

TEST_F(BooksTest, ARecodedItemAccountIsStillTheItemsAndThatOfItsPostings)
{
    auto account = books().accounts.at(rent);
    account.code = AccountCode(AccountNumber(6), "Rent", std::nullopt);
    ASSERT_FALSE(document->isDirty());

    change([&] { document->change(rent, account); });

    EXPECT_EQ(document->content().items.at({BudgetItemTypes::Bill, BudgetSource("Rent")}).account, AccountNumber(6));
    EXPECT_EQ(postingsOf(AccountNumber(6)).front().madeFrom, AccountNumber(6));
    EXPECT_TRUE(document->isDirty());

    change([&] { document->change(AccountNumber(6), bookkeeping().books.accounts.at(rent)); });
    EXPECT_FALSE(document->isDirty());
}

TEST_F(BooksTest, EveryPartOfAnAccountChanges)
{
    engine::BookAccount const changed{.code = AccountCode(AccountNumber(2002), "Cărd", AccountNumber(2001)),
                                      .type = AccountTypes::Suspense,
                                      .currency = Currency::KWD,
                                      .isClosed = true};

    change([&] { document->change(AccountNumber(2002), changed); });

    EXPECT_EQ(books().accounts.at(AccountNumber(2002)), changed);
    change([&] { document->change(AccountNumber(2002), household().books.accounts.at(AccountNumber(2002))); });
    EXPECT_EQ(document->content(), bookkeeping());
    EXPECT_FALSE(document->isDirty());
}

TEST_F(BooksTest, AnAccountWithoutTiesIsAddedAndRemoved)
{
    change([&] { document->add(account(8000, "New", AccountTypes::Asset)); });
    EXPECT_EQ(books().accounts.at(AccountNumber(8000)), account(8000, "New", AccountTypes::Asset));

    change([&] { document->remove(AccountNumber(8000)); });
    EXPECT_FALSE(document->isDirty());
}

TEST_F(BooksTest, AnExchangeAccountIsKeptForItsPurpose)
{
    auto exchange = account(3100, "Exchange (EUR)", AccountTypes::Equity);
    exchange.purpose = engine::AccountPurposes::Exchange;

    change([&] { document->add(exchange); });

    EXPECT_EQ(books().accounts.at(AccountNumber(3100)), exchange);
    document->saveAs(at("home.budget"));
    EXPECT_EQ(contentOf(at("home.budget")), document->content());
}

TEST_F(BooksTest, AnExchangeAccountOfAnotherTypeIsRefused)
{
    auto exchange = account(3100, "Exchange (EUR)", AccountTypes::Asset);
    exchange.purpose = engine::AccountPurposes::Exchange;

    EXPECT_NE(refusalOf([&] { change([&] { document->add(exchange); }); }), QString());

    EXPECT_FALSE(document->isDirty());
}

TEST_F(BooksTest, ABankChangesWithItsListOfAccounts)
{
    Bank const changed(BankName("SPARKASSE «SÜD» "), {{yen, BankAccountTypes::Goal}}, true);

    change([&] {
        document->remove(BankName("Yen House"));
        document->change(southern, changed);
    });

    EXPECT_EQ(books().banks, (tlm::banking::BankMap{{changed.name, changed},
                                                    {BankName("Gone"), household().books.banks.at(BankName("Gone"))}}));
    change([&] {
        document->change(changed.name, household().books.banks.at(southern));
        document->add(household().books.banks.at(BankName("Yen House")));
    });
    EXPECT_FALSE(document->isDirty());
}

TEST_F(BooksTest, TheBooksReachTheFileAndAreReadBack)
{
    change([&] { document->post(postings()[3]); });
    auto const expected = document->content();
    auto const posted = document->postingsOf(yen);

    document->saveAs(at("home.budget"));
    document.reset();
    document = Document::open(places, at("home.budget"));

    EXPECT_EQ(document->content(), expected);
    EXPECT_EQ(document->postingsOf(yen), posted);
    EXPECT_FALSE(document->isDirty());
    change([&] { document->remove(posted.rbegin()->first); });
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(document->content(), bookkeeping());
}

TEST_F(BooksTest, BooksThatDifferInPostingsAloneDiffer)
{
    document->saveAs(at("home.budget"));
    auto others = postings();
    others[0].description = "Another word";
    save(at("other.budget"), bookkeeping(), others);

    writeBytes(at("home.budget"), bytesOf(at("other.budget")));

    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(document->content(), contentOf(at("home.budget")));
}
}
