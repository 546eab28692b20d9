#include "LedgersFixture.h"

#include <set>

namespace tallymere::presenter {
namespace {

class LedgersShownTest : public LedgersTest
{};

TEST_F(LedgersShownTest, ALedgerHasItsAccountAndTransactions)
{
    auto const id = post(food, everyday, dollars(12));
    session.change([&](Household& household) { household.markCleared({id}); });

    auto const transactions = load(food);

    ASSERT_EQ(ledgers.size(), 1U);
    EXPECT_EQ(ledgers.front().account, Account(AccountTypes::Expense, code(food), dollars(12), false));
    ASSERT_EQ(transactions.size(), 1U);
    TransactionNumber const number(static_cast<unsigned short>(id.value));
    EXPECT_EQ(transactions.at(number), Transaction(QDate(2026, 3, 1), code(food), code(everyday), dollars(12),
                                                   std::nullopt, number, TransactionStatuses::Cleared));
}

TEST_F(LedgersShownTest, ALedgerWithoutTransactionsIsShownEmpty)
{
    EXPECT_TRUE(load(fun).empty());

    ASSERT_EQ(ledgers.size(), 1U);
    EXPECT_EQ(ledgers.front().account.code(), code(fun));
    EXPECT_EQ(status(), QString());
}

TEST_F(LedgersShownTest, APostingHasOneNumberInBothOfItsLedgers)
{
    post(food, everyday, dollars(12));

    auto const number = load(food).begin()->first;

    EXPECT_TRUE(load(everyday).contains(number));
    EXPECT_EQ(load(everyday).at(number), load(food).at(number));
}

TEST_F(LedgersShownTest, AnAccountThatHasGoneMeanwhileIsTold)
{
    tlm::testing::expectMessage(QtWarningMsg, "Show Ledger");
    AccountNumber const gone(999);
    auto const sentence = sentenceOf([&](Household& household) { household.balance(gone); });

    emit window.selectedLedger(AccountCode(gone, "Gone", std::nullopt));

    EXPECT_TRUE(ledgers.empty());
    EXPECT_EQ(readMessage(), sentence);
}

/// A budget whose ledgers hold more than there are numbers.
class LongLedgersTest : public LedgersTest
{
protected:
    static constexpr int shown_ = int(LedgersPresenter::shownAtMost_);

    LongLedgersTest()
    {
        auto budget = content();
        std::vector<Posting> postings;
        // The latest come first, so that their identifiers are the lowest.
        for (auto count = shown_ + 50; count > 0; --count) {
            postings.push_back(made(food, everyday, dollars(1), QDate(1900, 1, 1).addDays(count)));
        }
        postings.push_back(made(fun, everyday, dollars(1), QDate(1900, 1, 1)));
        engine::Turnover const paid{dollars(shown_ + 50), postings.size() - 1};
        budget.books.turnovers = {
            {food, paid}, {fun, {dollars(1), 1}}, {everyday, {dollars(-shown_ - 51), postings.size()}}};
        auto const path = home.path("long.budget");
        storage::Document::create(session.places(), budget, postings)->saveAs(path);
        session.open(path);
        forget();
    }
};

TEST_F(LongLedgersTest, TheLatestThatFitAreShownAndTheStatusBarSaysSo)
{
    auto const transactions = load(food);

    ASSERT_EQ(transactions.size(), std::size_t(shown_));
    std::set<QDate> days;
    for (auto const& [number, each] : transactions) {
        days.insert(each.occurredOn());
    }
    EXPECT_EQ(*days.begin(), QDate(1900, 1, 1).addDays(51));
    EXPECT_EQ(*days.rbegin(), QDate(1900, 1, 1).addDays(shown_ + 50));
    QLocale const locale;
    EXPECT_EQ(status(),
              QStringLiteral("Food has %1 transactions, more than can be shown at once. These are the latest %2.")
                  .arg(locale.toString(shown_ + 50), locale.toString(shown_)));
}

TEST_F(LongLedgersTest, AnotherLedgerStillShowsWhatHasItsNumberAlready)
{
    auto const first = load(food);

    EXPECT_EQ(load(everyday), first) << "all but the earliest are the same";
    EXPECT_TRUE(load(fun).empty());
    EXPECT_TRUE(status().endsWith("Open the ledgers anew to see more of them."));
    showAnew();
    EXPECT_EQ(load(fun).size(), 1U);
}

TEST_F(LongLedgersTest, NewTransactionsAreTakenUntilNoNumberIsLeft)
{
    load(food);
    for (std::size_t count = 0; count < LedgersPresenter::leftToNew_; ++count) {
        emit window.addedTransaction(record(dollars(3)));
        ASSERT_EQ(answers.back().refusal, std::nullopt);
    }

    expectRefused(
        [&] { emit window.addedTransaction(record(dollars(3))); },
        "No more transactions can be shown at once. Leave the ledgers, open them anew, and add this one there.", {});
    expectRefused(
        [&] { emit window.transferRequested(everyday, card, dollars(3), {}); },
        "No more transactions can be shown at once. Leave the ledgers, open them anew, and add this one there.", {});
    showAnew();
    forget();
    emit window.addedTransaction(record(dollars(3)));
    EXPECT_EQ(answers.back().refusal, std::nullopt);
}
}
}
