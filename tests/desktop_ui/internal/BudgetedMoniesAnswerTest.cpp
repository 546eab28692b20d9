#include "BudgetedMoniesFixture.h"

#include <tlm/foundation/Error.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// What a save walk stands while a receiver acts inside its emissions.
class BudgetedMoniesAnswerTest : public tlm::testing::BudgetedMoniesFixture
{
protected:
    /// Loads three bills and changes the amount of each.
    void loadChanged()
    {
        load({bill("Gas"), bill("Rent"), bill("Water")});
        typeAmount(row("Gas"), "1");
        typeAmount(row("Rent"), "2");
        typeAmount(row("Water"), "3");
    }

    static constexpr auto gas = "updated Gas 1.00 EUR";
    static constexpr auto rent = "updated Rent 2.00 EUR";
    static constexpr auto water = "updated Water 3.00 EUR";
};

TEST_F(BudgetedMoniesAnswerTest, SavedRowsCloseTheViewWithTheLastAnswerAndAfterTheWalk)
{
    loadChanged();
    acceptAll();

    save();

    EXPECT_THAT(sent, ElementsAre(gas, rent, water, "closing", "closing"));
    turnEventLoop();
    EXPECT_TRUE(view.isNull());
}

TEST_F(BudgetedMoniesAnswerTest, OneRefusedRowOfThreeStaysAloneForTheNextWalk)
{
    loadChanged();
    answer = [this](Id const& id, Source const& source) {
        if (source == Source("Rent")) {
            view->onSaveFailed(id, source, "It is needed.", source);
        } else {
            view->onSaveSucceeded(id, source);
        }
    };
    expectMessage(QtWarningMsg,
                  "^Failed to save, Original Source \"Rent\" Displayed Source \"Rent\" \"It is needed\\.\"$");

    save();

    EXPECT_THAT(sent, ElementsAre(gas, rent, water));
    EXPECT_FALSE(row("Gas").isDirty());
    EXPECT_TRUE(row("Rent").isDirty());
    EXPECT_EQ(error(row("Rent")), "It is needed.");
    EXPECT_FALSE(row("Water").isDirty());
    sent.clear();
    acceptAll();

    save();

    EXPECT_THAT(sent, ElementsAre(rent, "closing", "closing"));
    EXPECT_EQ(error(row("Rent")), "none");
}

TEST_F(BudgetedMoniesAnswerTest, ANewRowTurnsIntoAStoredOne)
{
    load({bill("Gas")});
    addButton().click();
    rename(*rows().constLast(), "Rent");
    typeAmount(row("Gas"), "1");
    answer = [this](Id const& id, Source const& source) {
        if (source == Source("Rent")) {
            view->onSaveSucceeded(id, source);
        }
    };
    save();
    sent.clear();
    rename(row("Rent"), "Flat");

    save();

    EXPECT_THAT(sent, Contains(QString("renamed Rent to Flat")));
}

TEST_F(BudgetedMoniesAnswerTest, ARefusedRemovalKeepsItsRowUntilItIsGranted)
{
    load({bill("Gas"), bill("Rent")});
    QPointer<Row> const kept = &row("Gas");
    markForRemoval(*kept);
    answer = [this](Id const& id, Source const& source) { view->onSaveFailed(id, source, "It is needed.", source); };
    expectMessage(QtWarningMsg, "^Failed to save,");

    save();
    turnEventLoop();

    ASSERT_FALSE(kept.isNull());
    EXPECT_TRUE(kept->isDirty());
    EXPECT_EQ(error(*kept), "It is needed.");
    acceptAll();

    save();

    EXPECT_THAT(sent, ElementsAre("removed Gas", "removed Gas", "closing", "closing"));
    turnEventLoop();
    EXPECT_TRUE(kept.isNull());
}

TEST_F(BudgetedMoniesAnswerTest, ARowThatIsAboutToEndIsNotSentAgain)
{
    load({bill("Gas"), bill("Rent")});
    markForRemoval(row("Gas"));
    rename(row("Rent"), "Flat");
    save();
    sent.clear();

    save();

    EXPECT_THAT(sent, ElementsAre("renamed Rent to Flat", "updated Flat 10.00 EUR"));
}

TEST_F(BudgetedMoniesAnswerTest, ARowThatAReceiverEndsAheadOfItsTurnIsSkipped)
{
    loadChanged();
    answer = [this](Id const& /*id*/, Source const& source) {
        if (source == Source("Gas")) {
            delete &row("Rent");
        }
    };

    save();

    EXPECT_THAT(sent, ElementsAre(gas, water));
}

TEST_F(BudgetedMoniesAnswerTest, ARowMayEndInsideItsOwnEmission)
{
    loadChanged();
    markForRemoval(row("Rent"));
    answer = [this](Id const& id, Source const& /*source*/) {
        for (auto* const row : rows()) {
            if (row->identifier() == id) {
                delete row;
            }
        }
    };

    save();

    EXPECT_THAT(sent, ElementsAre(gas, "removed Rent", water, "closing"));
}

TEST_F(BudgetedMoniesAnswerTest, ARowThatEndsWhileItIsRenamedSendsNoValues)
{
    load({bill("Gas"), bill("Rent")});
    rename(row("Gas"), "Heating");
    typeAmount(row("Rent"), "2");
    QObject::connect(view, &View::renamed, view, [this] { delete &row("Heating"); });

    save();

    EXPECT_THAT(sent, ElementsAre("renamed Gas to Heating", rent));
}

TEST_F(BudgetedMoniesAnswerTest, TheViewMayEndInsideEveryKindOfChange)
{
    for (auto const* const change : {"updated", "renamed", "removed", "added"}) {
        loadChanged();
        addButton().click();
        rename(*rows().constLast(), "Attic");
        rename(row("Gas"), "Heating");
        markForRemoval(row("Rent"));
        sent.clear();
        auto const end = [this, change] {
            if (sent.constLast().startsWith(change)) {
                delete view.data();
            }
        };
        QObject::connect(view, &View::renamed, view, end);
        QObject::connect(view, &View::updated, view, end);
        QObject::connect(view, &View::removed, view, end);
        QObject::connect(view, &View::added, view, end);

        save();

        EXPECT_TRUE(view.isNull()) << change;
        EXPECT_TRUE(sent.constLast().startsWith(change)) << sent.constLast().toStdString();
    }
}

TEST_F(BudgetedMoniesAnswerTest, TheViewMayEndWhileItTellsThatItCloses)
{
    load({bill("Gas")});
    QObject::connect(view, &View::closing, view, [this] { delete view.data(); });

    EXPECT_TRUE(view->close());

    EXPECT_TRUE(view.isNull());
}

TEST_F(BudgetedMoniesAnswerTest, TheViewMayEndWhenTheLastAnswerClosesIt)
{
    loadChanged();
    acceptAll();
    QObject::connect(view, &View::closing, view, [this] { delete view.data(); });

    save();

    EXPECT_TRUE(view.isNull());
    EXPECT_THAT(sent, ElementsAre(gas, rent, water, "closing"));
}

TEST_F(BudgetedMoniesAnswerTest, AViewThatIsClosedMeanwhileSendsWhatIsLeftOnce)
{
    loadChanged();
    answer = [this](Id const& id, Source const& source) {
        if (source == Source("Gas")) {
            view->close();
        }
        view->onSaveSucceeded(id, source);
    };

    save();

    EXPECT_THAT(sent, ElementsAre(gas, "closing", rent, water, "closing", "closing"));
    turnEventLoop();
    EXPECT_TRUE(view.isNull());
}

TEST_F(BudgetedMoniesAnswerTest, AReceiversErrorShowsOnTheRowThatWasSent)
{
    loadChanged();
    answer = [this](Id const& id, Source const& source) {
        if (source == Source("Rent")) {
            throw tlm::foundation::Error("The disk is full.");
        }
        view->onSaveSucceeded(id, source);
    };
    expectMessage(QtWarningMsg, "^Error during the save data transformation\\. The disk is full\\.$");

    save();

    EXPECT_THAT(sent, ElementsAre(gas, rent, water));
    EXPECT_EQ(error(row("Rent")), "The disk is full.");
}

TEST_F(BudgetedMoniesAnswerTest, AnyOtherExceptionLeavesTheWalkAndTheButtonsEnabled)
{
    loadChanged();
    answer = [](Id const& /*id*/, Source const& /*source*/) { throw std::runtime_error("a fault"); };

    // Not by a click, on whose way through Qt an exception leaks what Qt allocated.
    EXPECT_THROW(emit buttons().clicked(buttons().button(QDialogButtonBox::Save)), std::runtime_error);

    EXPECT_THAT(sent, ElementsAre(gas));
    EXPECT_TRUE(buttons().isEnabled());
}
