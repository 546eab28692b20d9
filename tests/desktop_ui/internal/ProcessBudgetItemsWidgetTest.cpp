#include "internal/ProcessBudgetItemsWidget.h"

#include "ProcessEntryFixture.h"
#include "ShowActive.h"
#include "tlm/desktop_ui/MoneyEntryWidget.h"

#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::desktop_ui::MoneyEntryWidget;
using tlm::desktop_ui::internal::ProcessBudgetItemsWidget;
using tlm::testing::child;
using tlm::testing::expectMessage;
using tlm::testing::MessageLog;

namespace {

QString const duplicate = "Cannot process duplicate unexpected budget item entries.";
}

/// A view that posts what falls due, whose look-ups are answered at once, and all that it tells.
class ProcessBudgetItemsWidgetTest : public ::testing::Test, protected tlm::testing::ProcessEntries
{
protected:
    using View = ProcessBudgetItemsWidget;

    ~ProcessBudgetItemsWidgetTest() override { delete view.data(); }

    void make(std::vector<Due> const& items)
    {
        view = new View(std::chrono::days(14), items, {aspen, birch}, Currency::EUR, {Currency::EUR, Currency::USD},
                        tlm::navigation::CurrencyDisplayOptions::Code, {everyday, savings}, nullptr);
        listen();
        MessageLog::clear();
    }

    void makeRentAndWage() { make({due(Types::Bill, "Rent", 700), due(Types::Wage, "Salary", 2000)}); }

    QList<Entry*> entries() const { return view->findChildren<Entry*>(); }
    Entry& entry(qsizetype place) const { return *entries().at(place); }

    Entry& addUnexpected(Types type, QString const& name) const
    {
        addButton().click();
        auto& added = *entries().last();
        choose(added, type);
        source(added).setCurrentText(name);
        return added;
    }

    void chooseAccount(Entry const& entry) const
    {
        bank(entry).setCurrentText(aspen.institution());
        account(entry).setCurrentText(presentationText(everyday));
    }

    QDialogButtonBox& buttons() const { return child<QDialogButtonBox>(*view, "saveDiscardBttnbx"); }
    void save() const { buttons().button(QDialogButtonBox::Save)->click(); }

    QPushButton& addButton() const
    {
        auto const all = buttons().findChildren<QPushButton*>();
        return **std::ranges::find_if(
            all, [this](auto* each) { return buttons().buttonRole(each) == QDialogButtonBox::ActionRole; });
    }

    Money total() const { return child<MoneyEntryWidget>(*view, "totalMnyntrydgt").amount(); }

    void acceptAll()
    {
        accept = [this](DueId const& id, bool isSkipped) {
            view->onSaveSucceeded(id, isSkipped ? std::nullopt : std::optional(Number(31)));
        };
    }

    QPointer<View> view;
    QStringList sent;
    std::function<void(DueId const&, bool)> accept; // runs inside the emission of a change

private:
    void tell(QString const& change, DueId const& id, bool isSkipped = false)
    {
        sent.append(change);
        if (accept) {
            accept(id, isSkipped);
        }
    }

    void listen()
    {
        QObject::connect(view, &View::lookUpBankAccounts, view,
                         [this](auto const& name) { view->onLookedUpBankAccounts(name, accountsOfAspen); });
        QObject::connect(view, &View::lookUpBudgetItemDueSources, view, [this](auto const& requestedBy, auto /*type*/) {
            view->onLookUpBudgetItemDueSources(requestedBy, {Source("Phone"), Source("Rent")});
        });
        QObject::connect(view, &View::processed, view,
                         [this](auto const& item, auto const& account, auto const& /*day*/) {
                             tell("process " + item.source.name() + " " + told(item.amount) + " with " +
                                      presentationText(account.number()),
                                  item);
                         });
        QObject::connect(view, &View::processedUnexpected, view,
                         [this](auto const& id, auto const& amount, auto const& account, auto const& /*day*/) {
                             tell("unexpected " + id.source.name() + " " + told(amount) + " with " +
                                      presentationText(account.number()),
                                  id);
                         });
        QObject::connect(view, &View::skipped, view,
                         [this](auto const& id) { tell("skip " + id.source.name(), id, true); });
        QObject::connect(view, &View::closing, view, [this] { sent.append("closing"); });
    }
};

TEST_F(ProcessBudgetItemsWidgetTest, ShowsAnEntryForEachOccurrenceInTheirOrder)
{
    makeRentAndWage();

    ASSERT_EQ(entries().size(), 2);
    EXPECT_EQ(entry(0).identifier(), due(Types::Bill, "Rent", 700));
    EXPECT_EQ(entry(1).identifier(), due(Types::Wage, "Salary", 2000));
    EXPECT_EQ(child<QLabel>(*view, "dueWithinLbl").text(), "Budget Items Due Within 14 Days:");
    EXPECT_EQ(total(), euros(0));
    EXPECT_TRUE(child<QLineEdit>(child<QWidget>(*view, "totalMnyntrydgt"), "amountLndt").isReadOnly());
    EXPECT_TRUE(view->testAttribute(Qt::WA_DeleteOnClose));
}

TEST_F(ProcessBudgetItemsWidgetTest, NothingDueStillTakesWhatNobodyExpected)
{
    make({});
    EXPECT_THAT(entries(), IsEmpty());
    EXPECT_EQ(total(), euros(0));

    addButton().click();

    ASSERT_EQ(entries().size(), 1);
    EXPECT_TRUE(entry(0).isUnexpected());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ::testing::IsSupersetOf({QString("Handling clicked button \"&Add\""),
                                         QString("Adding processing budget item entry: \"\"")}));
}

TEST_F(ProcessBudgetItemsWidgetTest, AnAddedEntryComesLastAndTakesTheCursor)
{
    makeRentAndWage();
    tlm::testing::showActive(*view);

    addButton().click();

    ASSERT_EQ(entries().size(), 3);
    EXPECT_TRUE(entry(2).isUnexpected());
    EXPECT_EQ(QApplication::focusWidget(), &type(entry(2)));
}

TEST_F(ProcessBudgetItemsWidgetTest, UntouchedEntriesAreNotSentAndTheViewCloses)
{
    makeRentAndWage();

    save();

    EXPECT_THAT(sent, ElementsAre("closing"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Not dirty budget item due \"Rent\"")));
}

TEST_F(ProcessBudgetItemsWidgetTest, WhatIsProcessedIsSentWithItsAmountAndAccount)
{
    makeRentAndWage();
    typeAmount(entry(0), "5");
    chooseAccount(entry(0));

    save();

    EXPECT_THAT(sent, ElementsAre("process Rent " + told(euros(5)) + " with " + presentationText(everyday.number())));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Processing budget item due \"Rent\"")));
}

TEST_F(ProcessBudgetItemsWidgetTest, WithoutAnAccountADefaultOneIsSent)
{
    makeRentAndWage();
    process(entry(1)).click();

    save();

    EXPECT_THAT(sent,
                ElementsAre("process Salary " + told(euros(2000)) + " with " + presentationText(AccountNumber())));
}

TEST_F(ProcessBudgetItemsWidgetTest, TheSentDayIsThatOfTheEntry)
{
    makeRentAndWage();
    child<QDateEdit>(entry(0), "processOnDtdt").setDate(QDate(2031, 2, 7));
    QDate day;
    QObject::connect(view, &View::processed, view, [&](auto const&, auto const&, auto const& on) { day = on; });

    save();

    EXPECT_EQ(day, QDate(2031, 2, 7));
}

TEST_F(ProcessBudgetItemsWidgetTest, WhatIsSkippedIsSentWithoutBank)
{
    makeRentAndWage();
    skip(entry(0)).click();

    save();

    EXPECT_THAT(sent, ElementsAre("skip Rent"));
}

TEST_F(ProcessBudgetItemsWidgetTest, ASkippedEntryWithABankIsSentWithTheNextSave)
{
    makeRentAndWage();
    acceptAll();
    skip(entry(0)).click();
    chooseAccount(entry(0));

    save();
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_EQ(error(entry(0)),
              "Notice: the budget item due is marked to skip, but it had a bank source selected, the source was "
              "cleared. Clicking 'save' again will confirm to skip this item.");
    EXPECT_EQ(entry(0).bankName(), std::nullopt);

    save();
    EXPECT_EQ(sent.first(), "skip Rent");
    EXPECT_EQ(result(entry(0)).text(), "Item Due Skipped.");
}

TEST_F(ProcessBudgetItemsWidgetTest, AnIgnoredEntryThatHasAnErrorIsNotSentAndKeepsTheViewOpen)
{
    makeRentAndWage();
    entry(0).setErrorMessage("Something else.");

    save();

    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Ignoring budget item due \"Rent\"")));
}

TEST_F(ProcessBudgetItemsWidgetTest, AnEntryWithoutAnActionIsRefused)
{
    makeRentAndWage();
    process(entry(0)).click();
    process(entry(0)).setAutoExclusive(false);
    process(entry(0)).setChecked(false);

    expectMessage(QtWarningMsg, "^Process budget item entry has an unknown action! \"Rent\"$");
    save();

    EXPECT_EQ(error(entry(0)), "Budget item entry has an unknown action!");
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(ProcessBudgetItemsWidgetTest, AnAmountThatCanNotBeReadIsToldAndTheOthersAreSent)
{
    makeRentAndWage();
    process(entry(0)).click();
    child<QLineEdit>(entry(0), "amountLndt").clear();
    process(entry(1)).click();

    save();

    EXPECT_NE(error(entry(0)), "none");
    EXPECT_EQ(sent.size(), 1);
    EXPECT_TRUE(sent.first().startsWith("process Salary"));
}

TEST_F(ProcessBudgetItemsWidgetTest, TheTotalCountsWhatIsToBeProcessed)
{
    makeRentAndWage();

    typeAmount(entry(0), "5");
    EXPECT_EQ(total(), euros(5));
    process(entry(1)).click();
    EXPECT_EQ(total(), euros(2005));
    skip(entry(1)).click();
    EXPECT_EQ(total(), euros(5));
    ignore(entry(0)).click();
    EXPECT_EQ(total(), euros(0));
}

TEST_F(ProcessBudgetItemsWidgetTest, TheTotalLeavesOutWhatHasNoAmountOrAnotherCurrency)
{
    make({due(Types::Bill, "Rent", 700),
          Due{DueId{{Types::Bill, Source("Far")}, QDate(2031, 2, 3)}, Money(Currency::USD, 9, 0, 0)}});
    process(entry(0)).click();
    process(entry(1)).click();
    addButton().click();
    process(entry(2)).click();

    EXPECT_EQ(total(), euros(700));
    EXPECT_FALSE(MessageLog::texts(QtInfoMsg).filter("Failure while calculating the total processed.").isEmpty());
}

TEST_F(ProcessBudgetItemsWidgetTest, SavedEntriesStayUntilTheLastOneIs)
{
    makeRentAndWage();
    process(entry(0)).click();
    process(entry(1)).click();

    view->onSaveSucceeded(entry(0).identifier(), Number(31));
    EXPECT_EQ(result(entry(0)).text(), "Processed Transaction " + presentationText(Number(31)));
    EXPECT_TRUE(entry(0).isReadOnly());
    EXPECT_THAT(sent, IsEmpty());

    view->onSaveSucceeded(entry(1).identifier(), std::nullopt);
    EXPECT_EQ(result(entry(1)).text(), "Item Due Skipped.");
    EXPECT_THAT(sent, ElementsAre("closing"));
}

TEST_F(ProcessBudgetItemsWidgetTest, ARefusedEntryTellsWhyAndIsSentAgain)
{
    makeRentAndWage();
    process(entry(0)).click();
    accept = [this](DueId const& id, bool /*isSkipped*/) { view->onSaveFailed(id, "No such account."); };

    save();
    EXPECT_EQ(error(entry(0)), "No such account.");
    EXPECT_FALSE(sent.contains("closing"));

    acceptAll();
    save();
    EXPECT_EQ(error(entry(0)), "none");
    EXPECT_EQ(sent.count("process Rent " + told(euros(700)) + " with " + presentationText(AccountNumber())), 2);
    EXPECT_EQ(sent.last(), "closing");
}

TEST_F(ProcessBudgetItemsWidgetTest, AnUnexpectedItemIsSentWithoutADay)
{
    make({});
    auto& added = addUnexpected(Types::Bill, "Phone");
    child<QComboBox>(added, "codeCmbbx").setCurrentText("EUR");
    typeAmount(added, "5");

    save();

    EXPECT_THAT(sent, ElementsAre("unexpected Phone " + told(euros(5)) + " with " + presentationText(AccountNumber())));
}

TEST_F(ProcessBudgetItemsWidgetTest, ATwiceChosenUnexpectedItemIsSentByTheLaterEntry)
{
    make({});
    auto& earlier = addUnexpected(Types::Bill, "Phone");
    auto& later = addUnexpected(Types::Bill, "Phone");

    EXPECT_EQ(error(earlier), duplicate);
    EXPECT_TRUE(earlier.isDuplicate());
    EXPECT_FALSE(later.isDuplicate());
    save();
    EXPECT_EQ(sent.size(), 1);

    source(earlier).setCurrentText("Rent");
    EXPECT_EQ(error(earlier), "none");
    EXPECT_FALSE(earlier.isDuplicate());
}

TEST_F(ProcessBudgetItemsWidgetTest, TheAnswerGoesToTheEntryThatWasSentAndNotToItsDuplicate)
{
    make({});
    auto& earlier = addUnexpected(Types::Bill, "Phone");
    auto& later = addUnexpected(Types::Bill, "Phone");
    acceptAll();
    process(later).click();

    save();
    save();

    EXPECT_TRUE(later.isReadOnly());
    EXPECT_FALSE(earlier.isReadOnly());
    EXPECT_EQ(sent.size(), 1);
}

TEST_F(ProcessBudgetItemsWidgetTest, ALateAnswerGoesToTheEntryThatIsNoDuplicate)
{
    make({});
    auto& earlier = addUnexpected(Types::Bill, "Phone");
    auto& later = addUnexpected(Types::Bill, "Phone");
    save();
    addUnexpected(Types::Bill, "Rent");

    view->onSaveSucceeded(later.identifier(), Number(31));

    EXPECT_TRUE(later.isReadOnly());
    EXPECT_FALSE(earlier.isReadOnly());
}

TEST_F(ProcessBudgetItemsWidgetTest, SourcesReachTheEntryWhoseTypeWasChosen)
{
    make({});
    addButton().click();
    choose(entry(0), Types::Bill);
    addButton().click();

    choose(entry(1), Types::Bill);

    EXPECT_EQ(source(entry(1)).count(), 3);
}

TEST_F(ProcessBudgetItemsWidgetTest, SourcesThatComeForATwiceChosenTypeAreToldAsDuplicate)
{
    make({});
    addUnexpected(Types::Bill, "Phone");
    addButton().click();
    auto& blank = *entries().last();
    choose(blank, Types::Bill);
    source(entry(0)).setCurrentIndex(0);
    blank.clearErrorMessage();

    view->onLookUpBudgetItemDueSources(unexpected(Types::Bill, ""), {Source("Phone")});

    EXPECT_EQ(error(entry(0)), duplicate);
}

TEST_F(ProcessBudgetItemsWidgetTest, AccountsReachTheEntryThatAskedFirst)
{
    makeRentAndWage();
    QObject::disconnect(view, &View::lookUpBankAccounts, view, nullptr);
    bank(entry(1)).setCurrentText(aspen.institution());

    view->onLookedUpBankAccounts(aspen, accountsOfAspen);

    EXPECT_EQ(account(entry(1)).count(), 3);
    EXPECT_EQ(account(entry(0)).count(), 1);
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).filter("Found 2 account codes for the bank \"Aspen Bank\"").size(), 1);
}

TEST_F(ProcessBudgetItemsWidgetTest, AnswersForNoEntryEndTheProgram)
{
    makeRentAndWage();
    auto const unknown = unexpected(Types::Bill, "Nobody");

    EXPECT_DEATH(view->onSaveSucceeded(unknown, std::nullopt),
                 "Failed to locate the process budget item that failed to be saved\\.");
    EXPECT_DEATH(view->onSaveFailed(unknown, "No."),
                 "Failed to locate the process budget item that failed to be saved\\.");
    EXPECT_DEATH(view->onLookedUpBankAccounts(aspen, {}),
                 "Failed to locate the process budget item that requested the bank account look-up\\.");
    EXPECT_DEATH(view->onLookUpBudgetItemDueSources(unknown, {}),
                 "Failed to locate the process budget item that requested the budget item sources look-up\\.");
}

TEST_F(ProcessBudgetItemsWidgetTest, AnUnknownButtonIsAFault)
{
    makeRentAndWage();
    QPushButton foreign("Foreign");

    try {
        emit buttons().clicked(&foreign);
        FAIL() << "nothing was thrown";
    } catch (std::logic_error const& fault) {
        EXPECT_STREQ(fault.what(), "Unknown button pressed, Foreign.");
    }
}

TEST_F(ProcessBudgetItemsWidgetTest, DiscardClosesWithWhateverWasEdited)
{
    makeRentAndWage();
    process(entry(0)).click();

    buttons().button(QDialogButtonBox::Discard)->click();

    EXPECT_THAT(sent, ElementsAre("closing"));
}

TEST_F(ProcessBudgetItemsWidgetTest, AViewThatEndsInTheMiddleOfAWalkIsLeftAlone)
{
    makeRentAndWage();
    process(entry(0)).click();
    process(entry(1)).click();
    accept = [this](DueId const&, bool) { delete view.data(); };

    emit buttons().button(QDialogButtonBox::Save)->clicked();

    EXPECT_TRUE(view.isNull());
    EXPECT_EQ(sent.size(), 1);
}

TEST_F(ProcessBudgetItemsWidgetTest, TabGoesThroughTheEntriesToTheTotalAndTheButtons)
{
    makeRentAndWage();
    addButton().click();
    tlm::testing::showActive(*view);

    auto stops = tlm::testing::tabOrder(type(entry(2)));

    auto const buttonsAt = stops.indexOf("");
    ASSERT_GT(buttonsAt, 0);
    EXPECT_EQ(stops.at(buttonsAt - 1), "amountLndt"); // the total
    EXPECT_EQ(stops.count(""), 3);
    EXPECT_EQ(stops.at(buttonsAt + 3), "dueOnDtdt"); // of the first entry
    EXPECT_EQ(stops.last(), "actionIgnoreRdbttn");   // of the second
}
