#include "BudgetedMoniesFixture.h"

#include <tlm/foundation/Error.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using tlm::foundation::Error;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

/// What Save sends, with answers that come later or never.
class BudgetedMoniesSaveTest : public tlm::testing::BudgetedMoniesFixture
{
protected:
    template <typename Act>
    static QString messageOf(Act const& act)
    {
        try {
            act();
        } catch (Error const& error) {
            return error.message();
        }
        return "no error";
    }
};

TEST_F(BudgetedMoniesSaveTest, NothingDirtySendsNothingAndCloses)
{
    load({bill("Gas"), bill("Rent")});

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Handling budgeted money entries button clicked \"" +
                                buttons().button(QDialogButtonBox::Save)->text() + "\"",
                            "Saving all budgeted money entries.",
                            "Examining budgeted money Original Source: BudgetSource(\"Gas\")",
                            "BudgetSource(\"Gas\") budgeted money Did Not Change.",
                            "Examining budgeted money Original Source: BudgetSource(\"Rent\")",
                            "BudgetSource(\"Rent\") budgeted money Did Not Change.",
                            "Processed all budgeted money entries.", "The budgeted monies widget is about to close."));
    turnEventLoop();
    EXPECT_TRUE(view.isNull());
}

TEST_F(BudgetedMoniesSaveTest, OnlyAChangedRowIsSentAndStaysDirtyUntilItsAnswer)
{
    load({bill("Gas"), bill("Rent")});
    typeAmount(row("Rent"), "700");

    save();

    EXPECT_THAT(sent, ElementsAre("updated Rent 700.00 EUR"));
    EXPECT_EQ(ids.front(), row("Rent").identifier());
    EXPECT_TRUE(row("Rent").isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("budgeted money to be Updated: BudgetSource(\"Rent\")"));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).constLast(), "Processed all budgeted money entries.");
}

TEST_F(BudgetedMoniesSaveTest, ANewRowIsAddedWithAllThatItStates)
{
    load({});
    fiscora::registerConversion(Currency::USD, Currency::EUR, fiscora::FloatingPoint(0.5));
    expectMessage(QtWarningMsg, "^The total leaves out an amount"); // while its currency stands alone
    auto& added = *rows().front();
    rename(added, "  Gas ");
    child<QDateEdit>(added, "nextOccurOnDtdt").setDate(QDate(2031, 2, 3));
    child<QComboBox>(added, "codeCmbbx").setCurrentText("USD");
    typeAmount(added, "12.50");
    child<QComboBox>(added, "periodCmbbx").setCurrentText(presentationText(Frequency::Yearly));
    std::unique_ptr<tlm::budgeting::Bill> heard;
    QObject::connect(view, &View::added, view, [&](auto const& /*id*/, auto const& money, auto const& account) {
        heard = std::make_unique<tlm::budgeting::Bill>(dynamic_cast<tlm::budgeting::Bill const&>(*money));
        EXPECT_EQ(account, std::nullopt);
    });

    save();

    EXPECT_THAT(sent, ElementsAre("added Gas 12.50 USD"));
    ASSERT_NE(heard, nullptr);
    EXPECT_EQ(*heard, tlm::budgeting::Bill(Source("Gas"), Money(Currency::USD, 12, 50, 0), Frequency::Yearly,
                                           QDate(2031, 2, 3)));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("budgeted money to be Added: BudgetSource(\"Gas\")"));
}

TEST_F(BudgetedMoniesSaveTest, ANewNameIsToldBeforeTheValuesUnderOneIdentifier)
{
    load({bill("Gas")});
    rename(row("Gas"), "Heating");

    save();

    EXPECT_THAT(sent, ElementsAre("renamed Gas to Heating", "updated Heating 10.00 EUR"));
    EXPECT_THAT(ids, ElementsAre(row("Heating").identifier(), row("Heating").identifier()));
}

TEST_F(BudgetedMoniesSaveTest, ANameThatWasClearedIsToldAsTheEmptySource)
{
    load({bill("Gas")});
    rename(row("Gas"), "  ");
    expectMessage(QtWarningMsg, "^Failed to save, Original Source \"Gas\" Displayed Source \"\" \"Name the bill\\.\"$");

    save();
    view->onSaveFailed(ids.front(), Source("Gas"), "Name the bill.", std::nullopt);

    EXPECT_THAT(sent, ElementsAre("renamed Gas to ", "updated  10.00 EUR"));
    EXPECT_EQ(error(*rows().front()), "Name the bill.");
}

TEST_F(BudgetedMoniesSaveTest, AStoredRowMarkedForRemovalIsRemovedUnderItsStoredSource)
{
    load({bill("Gas"), bill("Rent")});
    rename(row("Gas"), "Heating");
    markForRemoval(row("Heating"));
    QPointer<Row> const removed = &row("Heating");
    auto const id = removed->identifier();

    save();

    EXPECT_THAT(sent, ElementsAre("removed Gas", "closing"));
    EXPECT_THAT(ids, ElementsAre(id));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("budgeted money to be Removed"));
    EXPECT_FALSE(removed.isNull());
    turnEventLoop();
    EXPECT_TRUE(removed.isNull());
}

TEST_F(BudgetedMoniesSaveTest, ANewRowMarkedForRemovalJustGoesAway)
{
    load({bill("Gas")});
    addButton().click();
    auto& added = *rows().constLast();
    rename(added, "Rent");
    markForRemoval(added);

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
    turnEventLoop();
    EXPECT_TRUE(view.isNull());
}

TEST_F(BudgetedMoniesSaveTest, ARefusedNewRowGoesAwayWhenItIsMarkedForRemoval)
{
    load({bill("Gas"), bill("Rent")});
    addButton().click();
    QPointer<Row> const added = rows().constLast();
    rename(*added, "Gas");
    rename(row("Rent"), "Flat");
    added->setErrorMessage("There is a bill of that name.");
    markForRemoval(*added);

    save();

    EXPECT_THAT(sent, ElementsAre("renamed Rent to Flat", "updated Flat 10.00 EUR"));
    turnEventLoop();
    EXPECT_TRUE(added.isNull());
}

TEST_F(BudgetedMoniesSaveTest, RowsAreSentInTheOrderInWhichTheyWereMade)
{
    load({bill("Gas"), bill("Rent")});
    addButton().click();
    rename(*rows().constLast(), "Attic");
    typeAmount(row("Rent"), "1");
    typeAmount(row("Gas"), "2");

    save();

    EXPECT_THAT(sent, ElementsAre("updated Gas 2.00 EUR", "updated Rent 1.00 EUR",
                                  ::testing::ResultOf(
                                      [](QString const& told) { return told.startsWith("added Attic"); }, true)));
}

TEST_F(BudgetedMoniesSaveTest, AnAmountThatCannotBeReadShowsOnItsRowAndTheWalkGoesOn)
{
    load({bill("Gas"), bill("Rent")});
    typeAmount(row("Rent"), "2");
    child<QLineEdit>(row("Gas"), "amountLndt").setText("1.2.3");
    row("Gas").markDirty();
    expectMessage(QtWarningMsg, "^Error during the save data transformation\\. .*1\\.2\\.3");

    save();

    EXPECT_THAT(sent, ElementsAre("updated Rent 2.00 EUR"));
    EXPECT_THAT(error(row("Gas")).toStdString(), HasSubstr("The amount or issued code is not valid."));
    EXPECT_TRUE(row("Gas").isDirty());
}

TEST_F(BudgetedMoniesSaveTest, ALateAnswerCleansItsRowAndTheLastOneCloses)
{
    load({bill("Gas"), bill("Rent")});
    rename(row("Gas"), "Heating");
    rename(row("Rent"), "Flat");
    save();
    sent.clear();
    MessageLog::clear();

    view->onSaveSucceeded(row("Flat").identifier(), Source("Flat"));

    EXPECT_FALSE(row("Flat").isDirty());
    EXPECT_EQ(row("Flat").originalSource(), Source("Flat"));
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Succeeded to save \"Flat\"", "Checking if everything is completely saved."));

    view->onSaveSucceeded(row("Heating").identifier(), Source("Heating"));

    EXPECT_THAT(sent, ElementsAre("closing"));
}

TEST_F(BudgetedMoniesSaveTest, ALateRefusalKeepsTheViewOpenAndTheRowIsSentAgain)
{
    load({bill("Gas"), bill("Rent")});
    rename(row("Gas"), "Heating");
    rename(row("Rent"), "Flat");
    save();
    expectMessage(QtWarningMsg,
                  "^Failed to save, Original Source \"Gas\" Displayed Source \"Heating\" \"It is taken\\.\"$");
    view->onSaveFailed(row("Heating").identifier(), Source("Gas"), "It is taken.", Source("Heating"));
    view->onSaveSucceeded(row("Flat").identifier(), Source("Flat"));
    EXPECT_EQ(error(row("Heating")), "It is taken.");
    EXPECT_EQ(error(row("Flat")), "none");
    sent.clear();

    save();

    EXPECT_THAT(sent, ElementsAre("renamed Gas to Heating", "updated Heating 10.00 EUR"));
}

TEST_F(BudgetedMoniesSaveTest, TheAnswerFindsItsRowAlthoughTheSourceWasChangedMeanwhile)
{
    load({bill("Gas"), bill("Rent")});
    rename(row("Gas"), "Heating");
    rename(row("Rent"), "Flat");
    save();
    rename(row("Heating"), "Warmth");

    view->onSaveSucceeded(ids.front(), Source("Heating"));

    EXPECT_FALSE(row("Warmth").isDirty());
    EXPECT_TRUE(row("Flat").isDirty());
}

TEST_F(BudgetedMoniesSaveTest, SuccessOfAnUnknownRowIsAnError)
{
    load({bill("Gas")});

    EXPECT_EQ(messageOf([&] { view->onSaveSucceeded(Id(), Source("Rent")); }),
              "Failed to locate the budgeted money entry widget 'Rent' that succeeded to be saved.");
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(BudgetedMoniesSaveTest, FailureOfAnUnknownRowIsAnErrorThatNamesWhatIsShown)
{
    load({bill("Gas")});
    expectMessage(QtWarningMsg, "^Failed to save,");

    EXPECT_EQ(messageOf([&] { view->onSaveFailed(Id(), Source("Rent"), "No.", Source("Flat")); }),
              "Failed to locate the budgeted money that failed to be saved, Flat.");
    EXPECT_EQ(messageOf([&] { view->onSaveFailed(Id(), Source("Rent"), "No.", std::nullopt); }),
              "Failed to locate the budgeted money that failed to be saved, Rent.");
    EXPECT_EQ(messageOf([&] { view->onSaveFailed(Id(), std::nullopt, "No.", std::nullopt); }),
              "Failed to locate the budgeted money that failed to be saved, .");
    EXPECT_EQ(error(row("Gas")), "none");
}

TEST_F(BudgetedMoniesSaveTest, AnAnswerForARowThatIsGoneIsAnError)
{
    load({bill("Gas"), bill("Rent")});
    rename(row("Rent"), "Flat");
    markForRemoval(row("Gas"));
    auto const gone = row("Gas").identifier();
    save();
    turnEventLoop();

    EXPECT_EQ(messageOf([&] { view->onSaveSucceeded(gone, Source("Gas")); }),
              "Failed to locate the budgeted money entry widget 'Gas' that succeeded to be saved.");
    EXPECT_TRUE(row("Flat").isDirty());
}
