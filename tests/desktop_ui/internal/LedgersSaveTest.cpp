#include "LedgersFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::LedgersFixture;
using tlm::testing::MessageLog;
using tlm::testing::showActive;

/// Add, Save and Discard, and the answers to what they send.
class LedgersSaveTest : public LedgersFixture
{
protected:
    void makeWith(AccountCode const& chosen)
    {
        make();
        answerLedgers();
        choose(chosen);
        sent.clear();
        MessageLog::clear();
    }

    static QCheckBox& reconciled(Entry& entry) { return child<QCheckBox>(entry, "reconciledChckbx"); }
    static QCheckBox& remove(Entry& entry) { return child<QCheckBox>(entry, "removeChckbx"); }
};

TEST_F(LedgersSaveTest, DiscardClosesWithoutSaving)
{
    makeWith(cash);
    describe(entry("Bread"), "Rolls");

    discard();

    EXPECT_THAT(sent, ElementsAre("closing"));
    turnEventLoop();
    EXPECT_TRUE(view.isNull());
}

TEST_F(LedgersSaveTest, SaveWithNothingChangedClosesAtOnce)
{
    makeWith(cash);
    auto const name = buttons().button(QDialogButtonBox::Save)->text();

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).front(), "Handling button clicked \"" + name + "\"");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Saving Transactions")));
}

TEST_F(LedgersSaveTest, ChangesAreSentInOrderAndTheViewWaitsForTheAnswers)
{
    makeWith(cash);
    describe(entry("Bread"), "Rolls");
    reconciled(entry("Rolls")).click();
    reconciled(entry("Draw")).setCheckState(Qt::Checked);
    remove(entry("Milk")).click();

    save();

    EXPECT_THAT(sent, ElementsAre("update 1 Rolls", "clear 1", "update 3 Draw", "reconcile 3", "remove 4"));
    EXPECT_TRUE(entry("Rolls").isDirty());
}

TEST_F(LedgersSaveTest, LateAnswersCloseTheViewWithTheLastOne)
{
    makeWith(cash);
    describe(entry("Bread"), "Rolls");
    describe(entry("Milk"), "Cream");
    save();
    sent.clear();
    MessageLog::clear();

    view->onSaveSucceeded(Number(1), Number(1));
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(MessageLog::texts(QtDebugMsg), Contains(QString("Checking if everything is saved.")));

    view->onSaveSucceeded(Number(4), Number(4));
    EXPECT_THAT(sent, ElementsAre("closing"));
}

TEST_F(LedgersSaveTest, ARefusalKeepsTheViewOpenAndShowsWhy)
{
    makeWith(cash);
    describe(entry("Bread"), "Rolls");
    describe(entry("Milk"), "Cream");
    save();
    sent.clear();
    expectMessage(QtWarningMsg, "^Failure saving .*1.* \"The account is closed\\.\"$");

    view->onSaveFailed(Number(1), "The account is closed.");
    view->onSaveSucceeded(Number(4), Number(4));

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(error(entry("Rolls")), "The account is closed.");
    EXPECT_TRUE(entry("Rolls").isDirty());
    save();
    EXPECT_THAT(sent, ElementsAre("update 1 Rolls"));
}

TEST_F(LedgersSaveTest, AnswersInsideTheEmissionCloseTheView)
{
    makeWith(cash);
    acceptAll();
    describe(entry("Bread"), "Rolls");
    describe(entry("Milk"), "Cream");

    save();

    EXPECT_EQ(sent.mid(0, 3), QStringList({"update 1 Rolls", "update 4 Cream", "closing"}));
    turnEventLoop();
    EXPECT_TRUE(view.isNull());
}

TEST_F(LedgersSaveTest, ARefusalInsideTheEmissionKeepsTheViewOpen)
{
    makeWith(cash);
    expectMessage(QtWarningMsg, "^Failure saving");
    answer = [this](MaybeNumber const& number) { view->onSaveFailed(number, "No."); };
    describe(entry("Bread"), "Rolls");

    save();

    EXPECT_THAT(sent, ElementsAre("update 1 Rolls"));
    EXPECT_EQ(error(entry("Rolls")), "No.");
}

TEST_F(LedgersSaveTest, EditsOfALedgerThatIsNotShownAreSavedToo)
{
    makeWith(cash);
    describe(entry("Bread"), "Rolls");
    choose(Types::Expense);

    save();

    EXPECT_THAT(sent, ElementsAre("update 1 Rolls"));
}

TEST_F(LedgersSaveTest, ALedgerWithoutItsLastEntryIsAskedForAgain)
{
    books = {posting(1, food, cash, "Bread"), posting(2, rent, bank, "Flat")};
    makeWith(bank);
    choose(cash);
    remove(entry("Bread")).click();
    describe(entry("Flat"), "House"); // keeps the view open
    save();
    sent.clear();

    view->onSaveSucceeded(Number(1), std::nullopt);
    turnEventLoop();
    choose(bank);
    choose(cash);

    EXPECT_THAT(sent, ElementsAre("ask Cash"));
}

TEST_F(LedgersSaveTest, AddMakesOneBlankEntryAndPutsTheCursorIntoIt)
{
    makeWith(cash);
    showActive(*view);
    auto const name = addButton().text();
    MessageLog::clear();

    addButton().click();
    addButton().click();

    ASSERT_EQ(entries().size(), 4);
    auto& added = *entries().constLast();
    EXPECT_EQ(added.number(), std::nullopt);
    EXPECT_EQ(added.ledger(), cash.number());
    EXPECT_FALSE(added.isDirty());
    EXPECT_FALSE(added.visibleRegion().isEmpty());
    EXPECT_EQ(QApplication::focusWidget(), &child<QWidget>(added, "occurredOnDtdt"));
    EXPECT_EQ(name, "&Add");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Handling button clicked \"&Add\"")).Times(2));
}

TEST_F(LedgersSaveTest, AddFindsItsBlankEntryBelowAThousandOthers)
{
    for (unsigned short number = 100; number < 1100; ++number) {
        books.push_back(posting(number, food, cash, "Meal"));
    }
    makeWith(cash);
    showActive(*view);

    addButton().click();

    auto const* const focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    auto const* const added = qobject_cast<Entry const*>(focused->parentWidget());
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->number(), std::nullopt);
    EXPECT_FALSE(added->visibleRegion().isEmpty());
}

TEST_F(LedgersSaveTest, ABlankEntryOfAnotherLedgerBlocksASecondOne)
{
    makeWith(cash);
    addButton().click();
    choose(bank);

    addButton().click();

    EXPECT_EQ(entries().size(), 3 + 1 + 2);
    EXPECT_EQ(shown().size(), 2);
}

TEST_F(LedgersSaveTest, ANewEntryIsSentAndTakesItsNumber)
{
    makeWith(cash);
    describe(entry("Bread"), "Rolls"); // keeps the view open
    addButton().click();
    auto& added = *entries().constLast();
    describe(added, " Eggs ");
    child<QRadioButton>(added, "debitRdbttn").click();
    child<QComboBox>(added, "accountCmbbx").setCurrentText(presentationText(food));
    child<QComboBox>(added, "codeCmbbx").setCurrentText("EUR");
    tlm::testing::typeOver(child<QLineEdit>(added, "amountLndt"), "5");

    save();
    view->onSaveSucceeded(std::nullopt, Number(50));

    EXPECT_THAT(sent, ElementsAre("update 1 Rolls", "add Eggs"));
    EXPECT_EQ(added.number(), Number(50));
    EXPECT_FALSE(added.isDirty());
}

TEST_F(LedgersSaveTest, ANewEntryThatIsNoTransactionTellsWhyAndIsNotSent)
{
    makeWith(cash);
    addButton().click();
    auto& added = *entries().constLast();
    describe(added, "Eggs");
    expectMessage(QtWarningMsg, "^Failure saving");

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_NE(error(added), "none");
}

TEST_F(LedgersSaveTest, ANewEntryMarkedForRemovalGoesAway)
{
    makeWith(cash);
    addButton().click();
    remove(*entries().constLast()).click();

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
}

TEST_F(LedgersSaveTest, AddWithoutAnAccountDoesNothing)
{
    makeWith(cash);
    choose(Types::Asset);

    emit buttons().clicked(&addButton());

    EXPECT_EQ(entries().size(), 3);
}

TEST_F(LedgersSaveTest, AReceiverMayEndTheViewAtOnce)
{
    makeWith(cash);
    describe(entry("Bread"), "Rolls");
    describe(entry("Milk"), "Cream");
    // Not inside the click of one of its buttons, which ends with the view.
    auto* const box = &buttons();
    auto* const pressed = box->button(QDialogButtonBox::Save);
    box->setParent(nullptr);
    answer = [this](MaybeNumber const& /*number*/) { delete view.data(); };

    emit box->clicked(pressed);

    EXPECT_TRUE(view.isNull());
    EXPECT_THAT(sent, ElementsAre("update 1 Rolls"));
    delete box;
}

TEST_F(LedgersSaveTest, AReceiverMayEndTheViewWhileItCloses)
{
    makeWith(cash);
    QObject::connect(view, &View::closing, view, [this] { delete view.data(); });

    EXPECT_TRUE(view->close());

    EXPECT_TRUE(view.isNull());
}

TEST_F(LedgersSaveTest, AnAnswerForAnUnknownTransactionEndsTheProgram)
{
    makeWith(cash);

    EXPECT_DEATH(view->onSaveSucceeded(Number(99), std::nullopt),
                 "Didn't locate the transaction that succeeded to be saved\\.");
    EXPECT_DEATH(view->onSaveFailed(Number(99), "No."), "Didn't locate the transaction that succeeded to be saved\\.");
}
