#include "TransactionsFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Le;
using ::testing::SizeIs;

/// Where a ledger that is shown scrolls to.
class TransactionsScrollTest : public tlm::testing::TransactionsFixture
{
protected:
    /// Puts \a count entries of the bank ahead of all others, so that the list scrolls.
    void leadWith(int count)
    {
        for (auto each = 0; each < count; ++each) {
            view->add(bank, posting(1'000 + each));
        }
    }

    bool isWhollyOnScreen(Row const& row) const { return scroller().viewport()->rect().contains(placeOf(row)); }
};

TEST_F(TransactionsScrollTest, ALedgerOfOneDayScrollsToItsLastEntry)
{
    showOnScreen();
    for (auto const each : {9, 8, 7, 6, 5, 4, 3, 2, 1}) {
        view->add(cash, posting(each));
    }

    view->showLedger(cash);

    EXPECT_TRUE(isWhollyOnScreen(row(1)));
    EXPECT_EQ(bar().value(), bar().maximum());
}

TEST_F(TransactionsScrollTest, ALedgerThatIsWiderThanTheListShowsItsDays)
{
    showOnScreen();
    view->resize(600, view->height());
    leadWith(20);

    view->showLedger(bank);

    ASSERT_GT(scroller().horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(scroller().horizontalScrollBar()->value(), 0);
    EXPECT_GT(bar().value(), 0);
}

TEST_F(TransactionsScrollTest, OnlyAnEarlierEntryWithALowerNumberLeavesTheKeptOne)
{
    showOnScreen();
    view->add(cash, posting(5, QDate(2031, 3, 1)));
    for (auto each = 0; each < 20; ++each) {
        view->add(cash, posting(4 - each % 3, QDate(2031, 1, 1)));
    }
    view->showLedger(cash);
    EXPECT_EQ(bar().value(), 0);

    view->add(cash, posting(6, QDate(2030, 1, 1)));
    view->showLedger(cash);

    EXPECT_TRUE(isWhollyOnScreen(row(6)));
}

TEST_F(TransactionsScrollTest, ANewEntryIsTheLatest)
{
    showOnScreen();
    leadWith(20);
    view->add(cash, posting(2, QDate(2090, 1, 1)));
    view->add(cash, Transaction());

    view->showLedger(cash);

    EXPECT_TRUE(isWhollyOnScreen(newRow()));
}

TEST_F(TransactionsScrollTest, AnEntryOnALaterDayTakesThePlaceOfANewOne)
{
    showOnScreen();
    view->add(cash, Transaction());
    leadWith(20);
    view->add(cash, posting(2, QDate::currentDate().addDays(1)));

    view->showLedger(cash);

    EXPECT_TRUE(isWhollyOnScreen(row(2)));
}

TEST_F(TransactionsScrollTest, TheDayThatAnEntryShowsCounts)
{
    showOnScreen();
    view->add(cash, postings(100));
    view->showLedger(cash);
    bar().setValue(0);
    turnEventLoop();
    tlm::testing::child<QDateEdit>(row(100), "occurredOnDtdt").setDate(QDate(2030, 1, 1));
    tlm::testing::child<QDateEdit>(row(2), "occurredOnDtdt").setDate(QDate(2040, 1, 1));

    view->showLedger(cash); // the hundredth has the higher number

    EXPECT_TRUE(isWhollyOnScreen(row(100)));
}

TEST_F(TransactionsScrollTest, AListThatIsNotOnScreenScrollsOnceItIs)
{
    view->add(cash, postings(50));
    view->showLedger(cash);

    showOnScreen();

    EXPECT_TRUE(isWhollyOnScreen(row(50)));
}

TEST_F(TransactionsScrollTest, ALedgerThatIsNotLoadedScrollsNowhere)
{
    showOnScreen();
    view->add(cash, postings(50));
    turnEventLoop();
    bar().setValue(333);

    view->showLedger(food);

    EXPECT_EQ(bar().value(), 333);
}

TEST_F(TransactionsScrollTest, ALongLedgerIsAtItsEndAtOnce)
{
    showOnScreen();
    view->add(cash, postings(2'000));

    view->showLedger(cash);

    EXPECT_TRUE(isWhollyOnScreen(row(2'000)));
    EXPECT_THAT(descriptionsOnScreen(), Contains("Bread 1999"));
    EXPECT_THAT(rows(), SizeIs(Le(40)));
}

TEST_F(TransactionsScrollTest, AnyPlaceOfALongLedgerShowsItsEntriesAtOnce)
{
    showOnScreen();
    view->add(cash, postings(2'000));
    view->showLedger(cash);
    auto const step = row(2'000).y() - row(1'999).y();

    for (auto const first : {1, 700, 1'234, 1'990}) {
        bar().setValue(row(1).y() + (first - 1) * step);

        auto const seen = descriptionsOnScreen();
        ASSERT_GE(seen.size(), 4);
        for (auto each = 0; each < 4; ++each) {
            EXPECT_EQ(seen.at(each), QStringLiteral("Bread %1").arg(first + each));
        }
        EXPECT_EQ(placeOf(row(first)).y(), 0);
    }
}

TEST_F(TransactionsScrollTest, ScrollingThroughALongLedgerKeepsOnlyAFewForms)
{
    showOnScreen();
    view->add(cash, postings(5'000));
    view->showLedger(cash);
    auto most = qsizetype(0);

    for (auto value = 0; value < bar().maximum(); value += 2'000) {
        bar().setValue(value);
        turnEventLoop();
        most = std::max(most, rows().size());
    }

    EXPECT_LE(most, 400);
}

TEST_F(TransactionsScrollTest, AGrownWindowShowsEntriesAllTheWayDown)
{
    showOnScreen();
    view->add(cash, postings(2'000));
    view->showLedger(cash);
    bar().setValue(bar().maximum() / 2);

    view->resize(1'024, 4'000);
    turnEventLoop();

    auto const seen = rowsOnScreen();
    EXPECT_GE(placeOf(*seen.back()).bottom() + 20, scroller().viewport()->height());
    for (std::size_t each = 1; each < seen.size(); ++each) {
        EXPECT_EQ(seen[each]->number()->integer(), seen[each - 1]->number()->integer() + 1);
    }
}

TEST_F(TransactionsScrollTest, EveryPossibleTransactionFits)
{
    showOnScreen();
    view->add(cash, postings(65'535));

    view->showLedger(cash);

    EXPECT_TRUE(isWhollyOnScreen(row(65'535)));
    bar().setValue(0);
    EXPECT_TRUE(isWhollyOnScreen(row(1)));
}

TEST_F(TransactionsScrollTest, ALargerFontKeepsThePlacesOfALongLedger)
{
    showOnScreen();
    view->add(cash, postings(2'000));
    view->showLedger(cash);
    auto font = view->font();
    font.setPointSize(font.pointSize() * 2);

    view->setFont(font);
    turnEventLoop();
    bar().setValue(bar().maximum());
    turnEventLoop();

    EXPECT_TRUE(isWhollyOnScreen(row(2'000)));
    bar().setValue(bar().maximum() / 2);
    turnEventLoop();
    auto const seen = rowsOnScreen();
    auto const step = seen.at(1)->y() - seen.at(0)->y();
    auto const first = seen.at(0)->number()->integer();
    EXPECT_EQ(seen.at(0)->y() - row(1).y(), (first - 1) * step);
}
