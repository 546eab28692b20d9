#include "ProcessEntryFixture.h"
#include "ShowActive.h"
#include "support/ComboBoxes.h"

#include <QPointer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;

/// An entry and all that it tells.
class ProcessBudgetItemEntryWidgetTest : public ::testing::Test, protected tlm::testing::ProcessEntries
{
protected:
    ~ProcessBudgetItemEntryWidgetTest() override { delete entry.data(); }

    void makeScheduled(Types type = Types::Bill) { make(due(type, "Rent", 700)); }
    void makeUnexpected() { make(std::nullopt); }

    /// Makes an unexpected entry of a type, whose sources are Phone and Rent.
    void makeUnexpected(Types type)
    {
        makeUnexpected();
        choose(*entry, type);
        entry->setBudgetItems({Source("Phone"), Source("Rent")});
        sent.clear();
        MessageLog::clear();
    }

    void chooseBank() const { bank(*entry).setCurrentText(aspen.institution()); }

    QString sourceLabel() const { return child<QLabel>(*entry, "descriptionLbl").text(); }

    QPointer<Entry> entry;
    QStringList sent;

private:
    void make(std::optional<Due> const& item)
    {
        entry = new Entry(item, {aspen, birch}, {Currency::EUR, Currency::USD},
                          tlm::navigation::CurrencyDisplayOptions::Code, {everyday, savings}, nullptr);
        listen();
        MessageLog::clear();
    }

    void listen()
    {
        QObject::connect(entry, &Entry::lookUpBankAccounts, entry,
                         [this](auto const& name) { sent.append("accounts of " + name.institution()); });
        QObject::connect(entry, &Entry::amountChanged, entry,
                         [this](auto const& amount) { sent.append("amount " + told(amount)); });
        QObject::connect(entry, &Entry::sourceChanged, entry, [this](auto const& name) {
            sent.append("bank " + (name ? name->institution() : QString("none")));
        });
        QObject::connect(entry, &Entry::accountNumberChanged, entry, [this](auto const& number) {
            sent.append("account " + (number ? presentationText(*number) : QString("none")));
        });
        QObject::connect(entry, &Entry::actionChanged, entry,
                         [this](auto action) { sent.append("action " + QString::number(static_cast<int>(action))); });
        QObject::connect(entry, &Entry::lookUpBudgetItemDueSources, entry, [this](auto const& by, auto type) {
            sent.append("sources of " + presentationText(type) + " for '" + by.source.name() + "'");
        });
        QObject::connect(entry, &Entry::budgetItemSelected, entry,
                         [this](auto const& id) { sent.append("selected '" + id.source.name() + "'"); });
    }
};

TEST_F(ProcessBudgetItemEntryWidgetTest, AScheduledOccurrenceIsIgnoredAtFirst)
{
    makeScheduled();

    EXPECT_EQ(entry->identifier(), due(Types::Bill, "Rent", 700));
    EXPECT_EQ(entry->dueOn(), QDate(2031, 2, 3));
    EXPECT_EQ(entry->processOn(), QDate::currentDate());
    EXPECT_EQ(entry->amount(), euros(700));
    EXPECT_EQ(entry->action(), Action::Ignore);
    EXPECT_FALSE(entry->isDirty());
    EXPECT_FALSE(entry->isUnexpected());
    EXPECT_FALSE(entry->isReadOnly());
    EXPECT_EQ(error(*entry), "none");
    EXPECT_TRUE(result(*entry).isHidden());
    EXPECT_TRUE(entry->testAttribute(Qt::WA_DeleteOnClose));
    EXPECT_THAT(sent, IsEmpty());
}

TEST_F(ProcessBudgetItemEntryWidgetTest, TheItemOfAScheduledOccurrenceIsFixed)
{
    makeScheduled();

    EXPECT_FALSE(type(*entry).isEnabled());
    EXPECT_FALSE(source(*entry).isEnabled());
    EXPECT_THAT(itemTexts(source(*entry)), ElementsAre("", "Rent"));
    EXPECT_TRUE(child<QDateEdit>(*entry, "dueOnDtdt").isReadOnly());
    EXPECT_EQ(child<QLabel>(*entry, "typeLbl").text(), "Budget Type:");
    EXPECT_EQ(child<QLabel>(*entry, "sourceLbl").text(), "Item:");
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AnUnexpectedItemHasNoDayAndNothingToSkip)
{
    makeUnexpected();

    EXPECT_TRUE(entry->isUnexpected());
    EXPECT_FALSE(entry->dueOn().isValid());
    EXPECT_EQ(entry->identifier(), DueId());
    EXPECT_TRUE(child<QDateEdit>(*entry, "dueOnDtdt").isHidden());
    EXPECT_TRUE(child<QLabel>(*entry, "dueOnLbl").isHidden());
    EXPECT_TRUE(skip(*entry).isHidden());
    EXPECT_TRUE(type(*entry).isEnabled());
    EXPECT_EQ(sourceLabel(), "Pay/Store:");
    EXPECT_FALSE(entry->isDirty());
}

/// How each type names the bank.
struct SourceLabel
{
    tlm::budgeting::BudgetItemTypes type;
    char const* label;
};

class ProcessEntryLabelTest : public ProcessBudgetItemEntryWidgetTest, public ::testing::WithParamInterface<SourceLabel>
{};

INSTANTIATE_TEST_SUITE_P(Types, ProcessEntryLabelTest,
                         ::testing::Values(SourceLabel{tlm::budgeting::BudgetItemTypes::Bill, "Pay From:"},
                                           SourceLabel{tlm::budgeting::BudgetItemTypes::Debt, "Pay From:"},
                                           SourceLabel{tlm::budgeting::BudgetItemTypes::Goal, "Store In:"},
                                           SourceLabel{tlm::budgeting::BudgetItemTypes::Nontrack, "Pay From:"},
                                           SourceLabel{tlm::budgeting::BudgetItemTypes::Wage, "Store In:"}));

TEST_P(ProcessEntryLabelTest, TheBankIsNamedAfterWhatTheTypeDoes)
{
    makeScheduled(GetParam().type);

    EXPECT_EQ(sourceLabel(), GetParam().label);
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AnEditedOccurrenceIsToBeProcessed)
{
    makeScheduled();

    typeAmount(*entry, "5");

    EXPECT_EQ(entry->action(), Action::Process);
    EXPECT_TRUE(entry->isDirty());
    EXPECT_EQ(entry->amount(), euros(5));
    EXPECT_EQ(sent.count("action 2"), 1);
    EXPECT_EQ(sent.first(), "amount " + told(euros(5)));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).count("Marking \"Rent\" as dirty"), 1);
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AnotherDayIsToBeProcessedToo)
{
    makeScheduled();

    child<QDateEdit>(*entry, "processOnDtdt").setDate(QDate(2031, 2, 4));

    EXPECT_EQ(entry->action(), Action::Process);
    EXPECT_EQ(entry->processOn(), QDate(2031, 2, 4));
}

TEST_F(ProcessBudgetItemEntryWidgetTest, WhatIsMarkedToSkipStaysSoWhenEdited)
{
    makeScheduled();
    skip(*entry).click();
    sent.clear();

    chooseBank();

    EXPECT_EQ(entry->action(), Action::Skip);
    EXPECT_TRUE(entry->isDirty());
    EXPECT_THAT(sent, ::testing::Not(Contains(QString("action 2"))));
}

TEST_F(ProcessBudgetItemEntryWidgetTest, IgnoringKeepsTheEditsAndSendsNothing)
{
    makeScheduled();
    typeAmount(*entry, "5");
    sent.clear();

    ignore(*entry).click();

    EXPECT_THAT(sent, ElementsAre("action 1"));
    EXPECT_FALSE(entry->isDirty());
    EXPECT_EQ(entry->amount(), euros(5));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).last(), "Marking \"Rent\" as not dirty since it's ignored");
}

TEST_F(ProcessBudgetItemEntryWidgetTest, EachActionIsToldOnce)
{
    makeScheduled();

    process(*entry).click();
    EXPECT_TRUE(entry->isDirty());
    skip(*entry).click();

    EXPECT_THAT(sent, ElementsAre("action 2", "action 3"));
    EXPECT_EQ(entry->action(), Action::Skip);
}

TEST_F(ProcessBudgetItemEntryWidgetTest, ABankAsksForItsAccountsOnce)
{
    makeScheduled();

    chooseBank();
    EXPECT_TRUE(entry->isAwaitingBankAccounts());
    EXPECT_THAT(sent, Contains(QString("accounts of Aspen Bank")));
    EXPECT_THAT(sent, Contains(QString("bank Aspen Bank")));

    entry->setBankAccounts(accountsOfAspen);
    EXPECT_FALSE(entry->isAwaitingBankAccounts());
    EXPECT_THAT(itemTexts(account(*entry)), ElementsAre("", presentationText(everyday), presentationText(savings)));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Setting budget item entry account codes")));
    EXPECT_EQ(entry->bankName(), aspen);
    EXPECT_EQ(entry->accountCode(), std::nullopt);
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AnAccountIsToldAndItsTypeFollows)
{
    makeScheduled();
    chooseBank();
    entry->setBankAccounts(accountsOfAspen);
    sent.clear();

    account(*entry).setCurrentText(presentationText(savings));

    EXPECT_THAT(sent, Contains("account " + presentationText(savings.number())));
    EXPECT_EQ(entry->accountCode(), savings);
    EXPECT_FALSE(child<QComboBox>(child<QWidget>(*entry, "sourceCmbbx"), "typeCmbbx").isEnabled());
}

TEST_F(ProcessBudgetItemEntryWidgetTest, TheBankCanBeCleared)
{
    makeScheduled();
    chooseBank();

    entry->clearBankName();

    EXPECT_EQ(entry->bankName(), std::nullopt);
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AnotherTypeEmptiesTheSourcesBeforeItAsksForNewOnes)
{
    makeUnexpected(Types::Bill);
    source(*entry).setCurrentText("Rent");
    sent.clear();
    QStringList left;
    QObject::connect(entry, &Entry::lookUpBudgetItemDueSources, entry, [&] { left = itemTexts(source(*entry)); });

    choose(*entry, Types::Wage);

    EXPECT_THAT(left, ElementsAre(""));
    EXPECT_EQ(sourceLabel(), "Store In:");
    EXPECT_THAT(sent.last(), "selected ''");
    EXPECT_THAT(sent, Contains("sources of " + presentationText(Types::Wage) + " for ''"));
    EXPECT_LT(sent.lastIndexOf("sources of " + presentationText(Types::Wage) + " for ''"), sent.size() - 1);
    EXPECT_TRUE(entry->isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains(QString("Budget item type index changed, requesting new budget item sources for the type.")));
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AnotherSourceIsToldAndIsToBeProcessed)
{
    makeUnexpected(Types::Bill);
    ignore(*entry).click();
    sent.clear();

    source(*entry).setCurrentText("Phone");

    EXPECT_THAT(sent, ElementsAre("selected 'Phone'", "action 2"));
    EXPECT_EQ(entry->identifier(), unexpected(Types::Bill, "Phone"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains(QString("Budget item type source changed.")));
}

TEST_F(ProcessBudgetItemEntryWidgetTest, NewSourcesHaveTheEntrySent)
{
    makeUnexpected();

    entry->setBudgetItems({Source("Phone")});

    EXPECT_TRUE(entry->isDirty());
    EXPECT_THAT(itemTexts(source(*entry)), ElementsAre("", "Phone"));
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AnErrorIsShownAndHasTheEntrySentAgain)
{
    makeScheduled();

    entry->setErrorMessage("No such account.");

    EXPECT_EQ(error(*entry), "No such account.");
    EXPECT_TRUE(entry->isDirty());
    EXPECT_EQ(entry->action(), Action::Ignore);
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).last(), "Updating \"Rent\" with error message. \"No such account.\"");

    entry->clearErrorMessage();
    EXPECT_EQ(error(*entry), "none");
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).last(), "Clearing error message.");
}

TEST_F(ProcessBudgetItemEntryWidgetTest, WhatWasProcessedTellsItsNumberAndIsFrozen)
{
    makeScheduled();
    typeAmount(*entry, "5");
    entry->setErrorMessage("Not yet.");

    entry->markProcessed(Number(31));
    entry->markSaved();

    EXPECT_FALSE(result(*entry).isHidden());
    EXPECT_EQ(result(*entry).text(), "Processed Transaction " + presentationText(Number(31)));
    EXPECT_TRUE(entry->isReadOnly());
    EXPECT_FALSE(entry->isDirty());
    EXPECT_EQ(error(*entry), "none");
    EXPECT_TRUE(child<QLineEdit>(*entry, "amountLndt").isReadOnly());
    EXPECT_FALSE(child<QDateEdit>(*entry, "processOnDtdt").isEnabled());
    EXPECT_FALSE(bank(*entry).isEnabled());
    for (auto const* const button : {&ignore(*entry), &process(*entry), &skip(*entry)}) {
        EXPECT_FALSE(button->isEnabled());
    }
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                Contains(QString("Marking processed \"Rent\" under TransactionNumber(31)")));
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).last(), "Marking \"Rent\" as saved.");
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AFrozenEntryDoesNotTurnDirty)
{
    makeScheduled();
    entry->markSaved();

    entry->clearBankName();
    child<QDateEdit>(*entry, "processOnDtdt").setDate(QDate(2031, 2, 4));

    EXPECT_FALSE(entry->isDirty());
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).last(), "Not marking \"Rent\" as dirty since it's read-only");
}

TEST_F(ProcessBudgetItemEntryWidgetTest, WhatWasSkippedSaysSo)
{
    makeScheduled();

    entry->markSkipped();

    EXPECT_EQ(result(*entry).text(), "Item Due Skipped.");
    EXPECT_FALSE(result(*entry).isHidden());
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).last(), "Marking skipped \"Rent\"");
}

TEST_F(ProcessBudgetItemEntryWidgetTest, ADuplicateIsMarkedUntilItIsCleared)
{
    makeUnexpected();

    entry->markDuplicate();
    EXPECT_TRUE(entry->isDuplicate());

    entry->clearDuplicate();
    EXPECT_FALSE(entry->isDuplicate());
}

TEST_F(ProcessBudgetItemEntryWidgetTest, TabGoesFromTheItemToTheActions)
{
    makeUnexpected();
    entry->setBudgetItems({Source("Rent")});
    process(*entry).click();
    tlm::testing::showActive(*entry);

    auto stops = tlm::testing::tabOrder(type(*entry));

    stops.removeDuplicates(); // a date is walked through by its parts
    EXPECT_THAT(stops, ElementsAre("typeCmbbx", "sourceCmbbx", "processOnDtdt", "codeCmbbx", "amountLndt", "bankCmbbx",
                                   "accountCmbbx", "actionIgnoreRdbttn"));
}

TEST_F(ProcessBudgetItemEntryWidgetTest, WalkingThroughAnEntryByTheKeyboardLeavesItIgnored)
{
    makeScheduled();
    tlm::testing::showActive(*entry);

    auto const stops = tlm::testing::tabOrder(bank(*entry));

    EXPECT_TRUE(stops.contains("amountLndt"));
    EXPECT_TRUE(stops.contains("processOnDtdt"));
    EXPECT_FALSE(entry->isDirty());
    EXPECT_EQ(entry->action(), Action::Ignore);
}

TEST_F(ProcessBudgetItemEntryWidgetTest, TheArrowKeysChooseAnAction)
{
    makeScheduled();
    tlm::testing::showActive(*entry);
    ignore(*entry).setFocus();

    QTest::keyClick(&ignore(*entry), Qt::Key_Down);

    EXPECT_EQ(entry->action(), Action::Process);
    EXPECT_TRUE(entry->isDirty());
    EXPECT_THAT(sent, ElementsAre("action 2"));
}

TEST_F(ProcessBudgetItemEntryWidgetTest, AnEntryThatEndsUnderTheCursorTellsNothing)
{
    makeScheduled();
    tlm::testing::showActive(*entry);
    child<QLineEdit>(*entry, "amountLndt").setFocus();
    sent.clear();

    delete entry.data();

    EXPECT_THAT(sent, IsEmpty());
}
