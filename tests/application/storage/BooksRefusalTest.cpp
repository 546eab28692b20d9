#include "BooksTest.h"

namespace tallymere::storage {

using namespace testing;
using engine::PostingId;
using fiscora::Currency;
using fiscora::Money;
using ::testing::HasSubstr;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;

TEST_F(BooksTest, AnAccountThatIsNeededIsNotRemoved)
{
    EXPECT_NE(refused([&] { document->remove(AccountNumber(3001)); }), ""); // postings
    EXPECT_NE(refused([&] { document->remove(AccountNumber(1000)); }), ""); // an item
    EXPECT_NE(refused([&] { document->remove(AccountNumber(2002)); }), ""); // a bank
    EXPECT_NE(refused([&] {                                                 // a part of it
                  document->change(southern, Bank(southern, {}, false));
                  document->remove(PostingId{2});
                  document->remove(PostingId{3});
                  document->remove(current);
              }),
              "");
}

TEST_F(BooksTest, NumbersAreUnique)
{
    EXPECT_THAT(refused([&] { document->add(account(1001, "Twin", AccountTypes::Asset)); }),
                HasSubstr("an account of that number"));
    EXPECT_THAT(refused([&] { document->change(yen, account(1001, "Yen", AccountTypes::Asset, Currency::JPY)); }),
                HasSubstr("an account of that number"));
}

TEST_F(BooksTest, WhatTellsOfNoAccountIsRefused)
{
    AccountNumber const none(77);
    auto orphan = account(8000, "Orphan", AccountTypes::Asset);
    orphan.code = AccountCode(AccountNumber(8000), "Orphan", none);
    auto posting = postings()[0];
    posting.madeFrom = none;
    auto nowhere = postings()[0];
    nowhere.debiting = none;
    auto item = numberedBill(1);
    item.account = none;

    EXPECT_THAT(refused([&] { document->add(orphan); }), HasSubstr("no account 77"));
    EXPECT_THAT(refused([&] { document->post(posting); }), HasSubstr("no account 77"));
    EXPECT_THAT(refused([&] { document->post(nowhere); }), HasSubstr("no account 77"));
    EXPECT_THAT(refused([&] { document->add(item); }), HasSubstr("no account 77"));
    EXPECT_THAT(refused([&] { document->remove(none); }), HasSubstr("no account 77"));
    EXPECT_THAT(refused([&] { document->change(none, account(77, "None", AccountTypes::Asset)); }),
                HasSubstr("no account 77"));
    EXPECT_THAT(refused([&] {
                    document->add(Bank(BankName("New"), {{none, BankAccountTypes::Loan}}, false));
                }),
                HasSubstr("no account 77"));
}

TEST_F(BooksTest, APostingIsInTheCurrencyOfItsAccounts)
{
    auto foreign = postings()[0];
    foreign.amount = Money(Currency::JPY, 5, 0, 0);
    auto mixed = postings()[0];
    mixed.debiting = yen;
    auto moved = household().books.accounts.at(yen);
    moved.currency = Currency::EUR;

    EXPECT_NE(refused([&] { document->post(foreign); }), "");
    EXPECT_NE(refused([&] { document->post(mixed); }), "");
    EXPECT_NE(refused([&] { document->change(yen, moved); }), "");
}

TEST_F(BooksTest, PostingsThatBreakARuleAreRefused)
{
    auto toItself = postings()[0];
    toItself.crediting = toItself.debiting;
    auto nothing = postings()[0];
    nothing.amount = Money(Currency::EUR);
    auto backwards = postings()[0];
    backwards.amount = Money(Currency::EUR, -1, 0, 0);
    auto never = postings()[0];
    never.occurredOn = QDate();
    auto unspeakable = postings()[0];
    unspeakable.description = QString(QChar(0xDC00));

    for (auto const& posting : {toItself, nothing, backwards, never, unspeakable}) {
        EXPECT_NE(refused([&] { document->post(posting); }), "");
    }
}

TEST_F(BooksTest, BanksThatBreakARuleAreRefused)
{
    EXPECT_THAT(refused([&] { document->add(Bank(BankName(" gone"), {}, false)); }), HasSubstr("a bank of that name"));
    EXPECT_NE(refused([&] { document->add(Bank(BankName("New"), {{current, BankAccountTypes::Loan}}, false)); }), "");
    EXPECT_NE(refused([&] { document->add(Bank(BankName(" "), {}, false)); }), "");
    EXPECT_THAT(refused([&] { document->remove(BankName("New")); }), HasSubstr("New isn't among the banks"));
    EXPECT_THAT(refused([&] { document->change(BankName("New"), Bank()); }), HasSubstr("New isn't among the banks"));
}

TEST_F(BooksTest, ChangesOfTheBooksNeedATransaction)
{
    EXPECT_THROW(document->post(postings()[0]), std::logic_error);
    EXPECT_THROW(document->remove(PostingId{1}), std::logic_error);
    EXPECT_THROW(document->add(account(8000, "New", AccountTypes::Asset)), std::logic_error);
    EXPECT_EQ(document->content(), bookkeeping());
}
}
