#include "AccountEntryFixture.h"
#include "ShowActive.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <QFormLayout>
#include <QIntValidator>
#include <QSignalSpy>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::child;
using tlm::testing::itemTexts;
using tlm::testing::MessageLog;

namespace {

constexpr auto dirtyLine = "Marking as dirty account entry #";
}

class AccountEntryWidgetTest : public tlm::testing::AccountEntryFixture
{};

TEST_F(AccountEntryWidgetTest, AnAccountOfTheLedgerIsShownWithWhatIsFixed)
{
    auto const form = ledgerForm(groceries());

    EXPECT_EQ(number(*form).text(), "5000");
    EXPECT_TRUE(number(*form).isReadOnly());
    EXPECT_EQ(name(*form).text(), "Groceries");
    EXPECT_FALSE(name(*form).isReadOnly());
    EXPECT_EQ(parents(*form).currentText(), "4000");
    EXPECT_TRUE(parents(*form).isEnabled());
    EXPECT_EQ(ledgerType(*form).currentText(), presentationText(Types::Expense));
    EXPECT_FALSE(ledgerType(*form).isEnabled());
    EXPECT_FALSE(bankType(*form).isEnabled());
    EXPECT_EQ(balanceLabel(*form), "Running Balance:");
    EXPECT_TRUE(balance(*form).isReadOnly());
    EXPECT_EQ(form->balance(), euros(20));
    EXPECT_EQ(form->code(), groceries());
    EXPECT_FALSE(form->isClosed());
    EXPECT_FALSE(form->wasClosed());
    EXPECT_FALSE(form->isDirty());
}

TEST_F(AccountEntryWidgetTest, ANewAccountIsAllEditable)
{
    auto const form = newForm();

    EXPECT_EQ(number(*form).text(), "");
    EXPECT_FALSE(number(*form).isReadOnly());
    EXPECT_FALSE(name(*form).isReadOnly());
    EXPECT_TRUE(ledgerType(*form).isEnabled());
    EXPECT_EQ(balanceLabel(*form), "Opening Balance:");
    EXPECT_FALSE(balance(*form).isReadOnly());
    EXPECT_EQ(parents(*form).currentText(), "No Parent");
    EXPECT_EQ(form->code(), std::nullopt);
    EXPECT_TRUE(form->isEmpty());
    EXPECT_FALSE(form->isDirty());
}

TEST_F(AccountEntryWidgetTest, TheTypesAreListedInTheirOrders)
{
    auto const form = newForm();

    EXPECT_THAT(itemTexts(ledgerType(*form)),
                ElementsAre("Suspense", "Asset", "Equity", "Expense", "Liability", "Income"));
    EXPECT_THAT(itemTexts(bankType(*form)),
                ElementsAre("Unspecified", "Checking", "Goal", "Credit Card", "Loan", "Savings"));
}

TEST_F(AccountEntryWidgetTest, ALedgerFormShowsNumberAndParentAndNoBankType)
{
    auto const form = ledgerForm(groceries());

    for (auto const* part : {"ledgerTypeLbl", "ledgerTypeCmbbx", "numberLbl", "numberLndt", "parentLbl", "parentCmbbx",
                             "closedChckbx", "removeChckbx"}) {
        EXPECT_TRUE(isOnView(*form, part)) << part;
    }
    for (auto const* part : {"bankTypeLbl", "bankTypeCmbbx", "errorWdgt"}) {
        EXPECT_FALSE(isOnView(*form, part)) << part;
    }
}

TEST_F(AccountEntryWidgetTest, ABankFormShowsItsTypeInThePlaceOfNumberAndParent)
{
    auto const form = bankForm(groceries(), BankTypes::Savings);

    for (auto const* part :
         {"ledgerTypeLbl", "ledgerTypeCmbbx", "numberLbl", "numberLndt", "parentLbl", "parentCmbbx"}) {
        EXPECT_FALSE(isOnView(*form, part)) << part;
    }
    for (auto const* part : {"bankTypeLbl", "bankTypeCmbbx", "nameLndt", "balanceMnyntrywdgt"}) {
        EXPECT_TRUE(isOnView(*form, part)) << part;
    }
    EXPECT_EQ(form->bankType(), BankTypes::Savings);
    EXPECT_EQ(form->number(), 5000U);
}

TEST_F(AccountEntryWidgetTest, AnUnspecifiedBankTypeIsNone)
{
    EXPECT_EQ(bankForm(std::nullopt, BankTypes::Unspecified)->bankType(), std::nullopt);
}

TEST_F(AccountEntryWidgetTest, AFormWithoutAnythingShowsBothTypesAndTakesCurrenciesLater)
{
    Entry form(nullptr);
    EXPECT_TRUE(isOnView(form, "ledgerTypeCmbbx"));
    EXPECT_TRUE(isOnView(form, "bankTypeCmbbx"));
    EXPECT_FALSE(isOnView(form, "numberLndt"));
    EXPECT_EQ(form.ledgerType(), presentationText(Types{}));
    EXPECT_EQ(form.bankType(), std::nullopt);
    EXPECT_THAT(balance(form).currencies(), IsEmpty());
    EXPECT_THAT(itemTexts(parents(form)), ElementsAre("No Parent"));

    form.setUsableCurrencies({Currency::EUR}, Display::Code);
    enter(name(form), "Everyday");
    bankType(form).setCurrentText(presentationText(BankTypes::Checking));
    enter(amount(form), "12.50");

    EXPECT_EQ(form.name(), "Everyday");
    EXPECT_EQ(form.bankType(), BankTypes::Checking);
    EXPECT_EQ(form.balance(), Money(Currency::EUR, 12, 50, 0));
}

TEST_F(AccountEntryWidgetTest, AClosedAccountIsShownClosed)
{
    auto const form = ledgerForm(groceries(), true);

    EXPECT_TRUE(form->isClosed());
    EXPECT_TRUE(form->wasClosed());
    closed(*form).click();
    EXPECT_FALSE(form->isClosed());
    EXPECT_TRUE(form->wasClosed());
}

TEST_F(AccountEntryWidgetTest, EachEditMakesTheFormDirtyAndSaysSoOnce)
{
    std::function<void(Entry&)> const edits[] = {
        [](Entry& form) { ledgerType(form).setCurrentIndex(1); },
        [](Entry& form) { bankType(form).setCurrentIndex(1); },
        [](Entry& form) { parents(form).setCurrentIndex(1); },
        [](Entry& form) { enter(number(form), "17"); },
        [](Entry& form) { enter(name(form), "Rent"); },
        [](Entry& form) { enter(amount(form), "17"); },
        [](Entry& form) { currency(form).setCurrentText("USD"); },
        [](Entry& form) { closed(form).click(); },
        [](Entry& form) { remove(form).click(); },
        [](Entry& form) { form.showError("No."); },
    };
    for (auto const& edit : edits) {
        auto const form = newForm();
        MessageLog::clear();

        edit(*form);
        edit(*form);

        EXPECT_TRUE(form->isDirty());
        EXPECT_EQ(MessageLog::texts(QtInfoMsg).filter(dirtyLine), QStringList("Marking as dirty account entry # 0"));
    }
}

TEST_F(AccountEntryWidgetTest, AnAccountOfTheLedgerTellsItsNumberWhenItBecomesDirty)
{
    auto const form = ledgerForm(groceries());

    closed(*form).click();

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Marking as dirty account entry # 5000"));
}

TEST_F(AccountEntryWidgetTest, AFormThatCannotBeEditedIsNeverDirty)
{
    auto const form = newForm();

    form->setEditable(false);

    for (auto const* part : {"ledgerTypeCmbbx", "bankTypeCmbbx", "parentCmbbx", "closedChckbx", "removeChckbx"}) {
        EXPECT_FALSE(child<QWidget>(*form, part).isEnabled()) << part;
    }
    EXPECT_TRUE(number(*form).isReadOnly());
    EXPECT_TRUE(name(*form).isReadOnly());
    EXPECT_TRUE(balance(*form).isReadOnly());
    form->showError("No.");
    parents(*form).setCurrentIndex(1);
    EXPECT_FALSE(form->isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg).filter(dirtyLine), IsEmpty());
}

TEST_F(AccountEntryWidgetTest, AFormCanBeMadeEditableAgain)
{
    auto const form = newForm();
    form->setEditable(false);

    form->setEditable(true);

    for (auto const* part : {"ledgerTypeCmbbx", "bankTypeCmbbx", "parentCmbbx", "closedChckbx", "removeChckbx"}) {
        EXPECT_TRUE(child<QWidget>(*form, part).isEnabled()) << part;
    }
    EXPECT_FALSE(number(*form).isReadOnly());
    EXPECT_FALSE(balance(*form).isReadOnly());
    enter(name(*form), "Rent");
    EXPECT_TRUE(form->isDirty());
}

TEST_F(AccountEntryWidgetTest, TheRowTellsNumberAndNameAsFarAsTheyAreGiven)
{
    auto const form = newForm();
    EXPECT_EQ(form->displayText(), Entry::newEntryText());
    EXPECT_EQ(Entry::newEntryText(), row("0", "New Account"));

    number(*form).setText("5");
    EXPECT_EQ(form->displayText(), row("5", "New Account"));
    name(*form).setText("Rent");
    EXPECT_EQ(form->displayText(), row("5", "Rent"));
    number(*form).clear();
    EXPECT_EQ(form->displayText(), row("0", "Rent"));
}

TEST_F(AccountEntryWidgetTest, AFormIsEmptyAsLongAsNeitherNumberNorNameIsTyped)
{
    auto const form = newForm();

    number(*form).setText("5");
    EXPECT_FALSE(form->isEmpty());
    number(*form).clear();
    name(*form).setText(" ");
    EXPECT_FALSE(form->isEmpty());
    name(*form).clear();
    EXPECT_TRUE(form->isEmpty());
}

TEST_F(AccountEntryWidgetTest, WhatIsSavedIsCleanAndKeepsTheNameAsTyped)
{
    auto const form = newForm();
    enter(name(*form), " Rent ");
    form->showError("It is taken.");
    MessageLog::clear();

    form->saved({Number(17), "Rent", std::nullopt});

    EXPECT_EQ(form->code(), Code(Number(17), "Rent", std::nullopt));
    EXPECT_EQ(number(*form).text(), "17");
    EXPECT_EQ(name(*form).text(), " Rent ");
    EXPECT_EQ(error(*form), std::nullopt);
    EXPECT_FALSE(form->isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), ElementsAre("Resetting the dirty flag for \" Rent \""));
}

TEST_F(AccountEntryWidgetTest, ASavedAccountFixesWhatTheLedgerKnowsOfIt)
{
    auto const form = newForm();

    form->saved({Number(17), "Rent", std::nullopt});

    EXPECT_TRUE(number(*form).isReadOnly());
    EXPECT_TRUE(balance(*form).isReadOnly());
    EXPECT_EQ(balanceLabel(*form), "Running Balance:");
    EXPECT_FALSE(ledgerType(*form).isEnabled());
    EXPECT_TRUE(parents(*form).isEnabled());
    EXPECT_FALSE(name(*form).isReadOnly());
}

TEST_F(AccountEntryWidgetTest, AnErrorIsShownAndResettingTheFlagLeavesItThere)
{
    auto const form = ledgerForm(groceries());

    form->showError("It is taken.");
    EXPECT_EQ(error(*form), "It is taken.");
    EXPECT_TRUE(form->isDirty());
    form->resetDirty();

    EXPECT_FALSE(form->isDirty());
    EXPECT_EQ(error(*form), "It is taken.");
    EXPECT_THAT(MessageLog::texts(QtInfoMsg), Contains("Resetting the dirty flag for \"Groceries\""));
}

TEST_F(AccountEntryWidgetTest, ABalanceThatIsNoAmountRaises)
{
    auto const form = newForm();
    amount(*form).setText("1.2.3");

    EXPECT_THROW(form->balance(), tlm::desktop_ui::DataEntryError);
}

TEST_F(AccountEntryWidgetTest, TheBoxesForClosedAndRemovedCanBeHidden)
{
    auto const form = newForm();

    form->hideClosed();
    form->hideRemove();

    EXPECT_FALSE(isOnView(*form, "closedChckbx"));
    EXPECT_FALSE(isOnView(*form, "removeChckbx"));
}

TEST_F(AccountEntryWidgetTest, TabGoesThroughTheFormFromTopToBottom)
{
    Entry form(nullptr);
    for (auto* const part : form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        part->setVisible(part->objectName() != "errorWdgt");
    }
    tlm::testing::showActive(form);

    EXPECT_THAT(tlm::testing::tabOrder(ledgerType(form)),
                ElementsAre("ledgerTypeCmbbx", "bankTypeCmbbx", "numberLndt", "nameLndt", "parentCmbbx", "codeCmbbx",
                            "amountLndt", "closedChckbx", "removeChckbx"));
}

TEST_F(AccountEntryWidgetTest, AFormThatEndsWhileItIsEditedEndsQuietly)
{
    auto form = newForm();
    tlm::testing::showActive(*form);
    name(*form).setFocus();
    tlm::testing::type(name(*form), "Rent");

    form.reset();

    EXPECT_EQ(form, nullptr);
}

TEST_F(AccountEntryWidgetTest, EachLabelNamesTheFieldBelowIt)
{
    auto const form = newForm();

    for (auto const& [label, field] : {std::pair("ledgerTypeLbl", "ledgerTypeCmbbx"),
                                       {"bankTypeLbl", "bankTypeCmbbx"},
                                       {"numberLbl", "numberLndt"},
                                       {"nameLbl", "nameLndt"},
                                       {"parentLbl", "parentCmbbx"}}) {
        EXPECT_EQ(child<QLabel>(*form, label).buddy(), &child<QWidget>(*form, field)) << label;
    }
}
