#include "TransactionsFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;

/// Which entries are selected.
class TransactionsSelectTest : public tlm::testing::TransactionsFixture
{
protected:
    QCheckBox& box(int number) const { return child<QCheckBox>(row(number), "selectedChckbx"); }

    std::vector<int> selection() const
    {
        std::vector<int> numbers;
        for (auto const& txn : view->selectedTransactions()) {
            numbers.push_back(txn.number()->integer());
        }
        return numbers;
    }
};

TEST_F(TransactionsSelectTest, NothingCanBeSelectedAtFirst)
{
    view->add(cash, {posting(1), posting(2)});

    EXPECT_TRUE(box(1).isHidden());
    box(1).setChecked(true);
    box(1).setChecked(false);

    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(TransactionsSelectTest, TheModeReachesEntriesNowAndLater)
{
    view->add(cash, posting(1));
    view->setSelectionMode(2);
    view->add(cash, posting(2));
    EXPECT_FALSE(box(1).isHidden());
    EXPECT_FALSE(box(2).isHidden());

    view->setSelectionMode(0);
    view->add(cash, posting(3));

    for (auto const each : {1, 2, 3}) {
        EXPECT_TRUE(box(each).isHidden()) << each;
    }
}

TEST_F(TransactionsSelectTest, ASecondSelectionDeselectsTheFirst)
{
    view->add(cash, {posting(1), posting(2), posting(3)});
    view->setSelectionMode(1);

    select(row(1));
    select(row(3));
    select(row(2));

    EXPECT_THAT(sent, ElementsAre("selected 1", "deselected 1", "selected 3", "deselected 3", "selected 2"));
    EXPECT_THAT(selection(), ElementsAre(2));
}

TEST_F(TransactionsSelectTest, NewEntriesCountAsEqual)
{
    view->add(cash, Transaction());
    view->add(bank, Transaction());
    view->setSelectionMode(1);

    for (auto* const each : rows()) {
        select(*each);
    }

    EXPECT_THAT(sent, ElementsAre("selected new", "selected new"));
}

TEST_F(TransactionsSelectTest, AnyOtherModeSelectsAsManyAsWanted)
{
    view->add(cash, {posting(1), posting(2), posting(3)});
    view->setSelectionMode(7);

    select(row(3));
    select(row(1));
    select(row(2));
    select(row(2));

    EXPECT_THAT(sent, ElementsAre("selected 3", "selected 1", "selected 2", "deselected 2"));
    EXPECT_THAT(selection(), ElementsAre(1, 3));
}

TEST_F(TransactionsSelectTest, ClearingTellsEachDeselection)
{
    view->add(cash, {posting(1), posting(2), posting(3)});
    view->setSelectionMode(2);
    select(row(3));
    select(row(1));
    sent.clear();

    view->clearSelections();

    EXPECT_THAT(sent, ElementsAre("deselected 1", "deselected 3"));
    EXPECT_THAT(selection(), IsEmpty());
}

TEST_F(TransactionsSelectTest, TheSelectionIsTheBusinessOfReadOnlyEntriesToo)
{
    view->setReadOnly(true);
    view->setSelectionMode(1);
    view->add(cash, posting(1));

    select(row(1));

    EXPECT_THAT(sent, ElementsAre("selected 1"));
    EXPECT_FALSE(view->anyDirty());
}
