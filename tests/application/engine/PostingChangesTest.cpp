#include "AccountFixture.h"

#include <gmock/gmock.h>
#include <limits>

using fiscora::Currency;
using fiscora::Money;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Key;
using tlm::accounting::AccountNumber;
using tlm::accounting::TransactionStatuses;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

namespace {

class PostingChangesTest : public AccountTest
{
protected:
    PostingChangesTest() { add(bill("Rent")); }

    PostingId post(TransactionStatuses status = TransactionStatuses::NotCleared)
    {
        auto paid = posting(rent, checking, dollars(40));
        paid.status = status;
        paid.madeFrom = rent;
        return household.post(paid);
    }
    Posting const& kept(PostingId const& id) const { return store.postings().at(id); }
    TransactionStatuses status(PostingId const& id) const { return kept(id).status; }

    /// Expects that the posting of \a id can neither be changed nor removed.
    void expectFixed(PostingId const& id, QString const& sentence)
    {
        expectRefused([&] { household.changePosting(id, posting(rent, savings, dollars(1))); }, sentence);
        expectRefused([&] { household.removePosting(id); }, sentence);
    }

    AccountNumber const checking = open("Checking", BankAccountTypes::Checking, dollars(100));
    AccountNumber const savings = open("Savings", BankAccountTypes::Savings, dollars(0));
    AccountNumber const rent{5'001};
};

TEST_F(PostingChangesTest, APostingIsPutInThePlaceOfAnotherWhole)
{
    auto const id = post();
    auto changed = posting(rent, savings, dollars(30));
    changed.occurredOn = today.addDays(3);
    changed.description = "June";
    changed.status = TransactionStatuses::Cleared;

    household.changePosting(id, changed);

    changed.madeFrom = rent;
    EXPECT_EQ(kept(id), changed);
    EXPECT_EQ(household.balance(checking), dollars(100));
    EXPECT_EQ(household.balance(savings), dollars(-30));
    EXPECT_EQ(household.balance(rent), dollars(30));
    EXPECT_EQ(household.content().books.turnovers.at(rent).postings, 1U);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(PostingChangesTest, ItForgetsItsItemWithTheItemsAccount)
{
    auto const id = post();
    auto elsewhere = posting(savings, checking, dollars(40));
    elsewhere.madeFrom = savings; // what a caller tells doesn't matter

    household.changePosting(id, elsewhere);

    EXPECT_EQ(kept(id).madeFrom, std::nullopt);
    EXPECT_FALSE(household.content().books.turnovers.contains(rent));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(PostingChangesTest, ARemovedPostingCountsNoMore)
{
    auto const id = post();

    household.removePosting(id);

    EXPECT_EQ(household.balance(checking), dollars(100));
    EXPECT_FALSE(household.content().books.turnovers.contains(rent));
    EXPECT_FALSE(store.postings().contains(id));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(PostingChangesTest, WhatIsGoneAlready)
{
    QString const sentence("This posting isn't in the books any more. Open the ledger again to see what is.");
    PostingId const gone{4'711};
    auto const known = post();

    expectFixed(gone, sentence);
    expectRefused([&] { household.markReconciled(gone); }, sentence);
    expectRefused([&] { household.markCleared({known, gone}); }, sentence);
    expectRefused([&] { household.markUnreconciled({gone}); }, sentence);
}

TEST_F(PostingChangesTest, WhatIsReconciledStays)
{
    expectFixed(post(TransactionStatuses::Reconciled),
                "This posting of 5/1/2025 is reconciled, so it stays as it is. Post the difference as another one.");
}

TEST_F(PostingChangesTest, WhatAClosedAccountToldStays)
{
    auto const in = household.post(posting(savings, checking, dollars(10)));
    auto const out = household.post(posting(checking, savings, dollars(10)));
    household.closeAccount(savings);

    for (auto const& id : {in, out}) {
        expectFixed(id, "Savings is closed, so its postings stay as they are. Open it again before you change them.");
    }
    EXPECT_NO_THROW(household.markReconciled(in));
}

TEST_F(PostingChangesTest, ChangesThatTheBooksCanNotTake)
{
    auto const id = post();
    addAccount(code(12, "Attic"), AccountTypes::Asset, dollars(0), true);
    auto const refuse = [&](Posting const& wrong, QString const& sentence) {
        expectRefused([&] { household.changePosting(id, wrong); }, sentence);
    };
    auto undated = posting(rent, checking, dollars(1));
    undated.occurredOn = QDate();

    refuse(posting(none, checking, dollars(1)), "There is no account 77 in the books. Choose another account.");
    refuse(posting(rent, rent, dollars(1)), "An amount can't go from an account to itself. Choose two accounts.");
    refuse(posting(rent, checking, dollars(0)), "The amount of the posting isn't above zero. Enter one that is.");
    refuse(posting(rent, checking, euros(1)),
           "Rent is kept in USD. Enter an amount in that currency, or choose another account.");
    refuse(posting(AccountNumber(12), checking, dollars(1)),
           "Attic is closed. Open it again, or choose another account.");
    refuse(undated, "The posting has no date. Enter the day on which it happened.");
}

TEST_F(PostingChangesTest, WhatWasBorrowedIsTheDebts)
{
    add(planned(BudgetItemTypes::Debt, "Car"));
    auto const [id, opening] = *store.postings().rbegin();
    auto larger = opening;
    larger.amount = dollars(6'000);
    auto elsewhere = opening;
    elsewhere.debiting = checking;
    auto described = opening;
    described.occurredOn = today.addDays(-400);
    described.description = "The old one";
    QString const fixed("This posting is the sum of 5000.00 USD that was borrowed for Car, so its accounts and its "
                        "amount stay. Post what was borrowed since by itself.");

    expectRefused([&, opened = id] { household.changePosting(opened, larger); }, fixed);
    expectRefused([&, opened = id] { household.changePosting(opened, elsewhere); }, fixed);
    expectRefused([&, opened = id] { household.removePosting(opened); },
                  "This posting is the sum of 5000.00 USD that was borrowed for Car, so it stays. Remove the debt, and "
                  "it goes with it.");
    household.changePosting(id, described);

    EXPECT_EQ(kept(id), described);
    EXPECT_NO_THROW(household.remove(named(BudgetItemTypes::Debt, "Car")));
}

TEST_F(PostingChangesTest, TheOpeningBalanceOfAnAccountMayBeCorrected)
{
    auto const id = store.postings().begin()->first;
    auto corrected = kept(id);
    corrected.amount = dollars(120);

    household.changePosting(id, corrected);

    EXPECT_EQ(household.balance(checking), dollars(120));
}

TEST_F(PostingChangesTest, MarksRaiseAndLowerWhatTheyAreMadeFor)
{
    auto const open = post();
    auto const cleared = post(TransactionStatuses::Cleared);
    auto const reconciled = post(TransactionStatuses::Reconciled);

    household.markCleared({open, cleared, reconciled});
    EXPECT_EQ(status(open), TransactionStatuses::Cleared);
    EXPECT_EQ(status(cleared), TransactionStatuses::Cleared);
    EXPECT_EQ(status(reconciled), TransactionStatuses::Reconciled);

    household.markReconciled(open);
    household.markUnreconciled({cleared, reconciled});
    EXPECT_EQ(status(open), TransactionStatuses::Reconciled);
    EXPECT_EQ(status(cleared), TransactionStatuses::Cleared);
    EXPECT_EQ(status(reconciled), TransactionStatuses::Cleared);
    EXPECT_EQ(kept(open).madeFrom, rent);
}

TEST_F(PostingChangesTest, MarksThatChangeNothingAreAccepted)
{
    auto const open = post();
    auto const reconciled = post(TransactionStatuses::Reconciled);
    auto const transactions = store.transactions();

    household.markCleared({reconciled});
    household.markReconciled(reconciled);
    household.markUnreconciled({open});
    household.markCleared({});

    EXPECT_EQ(store.transactions(), transactions);
    EXPECT_EQ(status(open), TransactionStatuses::NotCleared);
}

TEST_F(PostingChangesTest, AnotherDayNeverFailsForSumsThatStay)
{
    auto const almostAll = Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max() - 10);
    auto const id = household.post(posting(rent, savings, almostAll));
    household.post(posting(savings, rent, almostAll));
    household.post(posting(savings, rent, dollars(5)));
    auto later = posting(rent, savings, almostAll);
    later.occurredOn = today.addDays(1);

    household.changePosting(id, later);

    EXPECT_EQ(kept(id), later);
    expectRefused([&] { household.removePosting(id); },
                  "What is posted to one account would add up to more than can be counted. Post a smaller amount.");
}

TEST_F(PostingChangesTest, TheLatestPostingsComeByDayThenByIdentifier)
{
    auto early = posting(rent, checking, dollars(1));
    early.occurredOn = today.addDays(-3);
    auto const first = post();
    auto const second = post();
    auto const third = household.post(early);

    EXPECT_THAT(household.latestPostingsOf(rent, 1), ElementsAre(Key(second)));
    EXPECT_THAT(household.latestPostingsOf(rent, 9), ElementsAre(Key(first), Key(second), Key(third)));
    EXPECT_THAT(household.latestPostingsOf(savings, 9), IsEmpty());
    expectRefused([&] { household.latestPostingsOf(none, 9); },
                  "There is no account 77 in the books. Choose another account.");
}
}
}
