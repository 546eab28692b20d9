#include "TransactionFixture.h"
#include "support/Typing.h"
#include "support/Wheel.h"

#include <QSignalSpy>

#include <functional>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tlm::testing::MessageLog;
using tlm::testing::showActive;
using tlm::testing::TransactionFixture;
using tlm::testing::turnWheelOver;
using tlm::testing::typeOver;

namespace {

/// What a person does to the form of a transaction, and what the view does to it.
class TransactionEntryEditTest : public TransactionFixture
{
public:
    // Reached by the table of edits below.
    using TransactionFixture::amount;
    using TransactionFixture::credit;
    using TransactionFixture::currency;
    using TransactionFixture::date;
    using TransactionFixture::debit;
    using TransactionFixture::description;
    using TransactionFixture::other;
    using TransactionFixture::reconciled;
    using TransactionFixture::remove;

protected:
    /// \return what the person can't change
    QStringList locked() const
    {
        QStringList names;
        for (auto* const part :
             std::initializer_list<QWidget*>{&debit(), &credit(), &other(), &currency(), &reconciled()}) {
            if (!part->isEnabled()) {
                names.append(part->objectName());
            }
        }
        for (auto* const part : std::initializer_list<QWidget*>{&date(), &description(), &amount()}) {
            if (part->property("readOnly").toBool()) {
                names.append(part->objectName());
            }
        }
        return names;
    }

    QString edited(QLineEdit& field, QString const& text)
    {
        typeOver(field, text);
        QTest::keyClick(&field, Qt::Key_Return);
        return field.text();
    }
};

struct Edit
{
    char const* name;
    std::function<void(TransactionEntryEditTest&)> act;
};

Edit const edits[] = {
    {"Date", [](auto& test) { QTest::keyClick(&test.date(), Qt::Key_Up); }},
    {"Description", [](auto& test) { typeOver(test.description(), "Milk"); }},
    {"DebitedSide", [](auto& test) { test.debit().click(); }},
    {"CreditedSide", [](auto& test) { test.credit().click(); }},
    {"OtherAccount", [](auto& test) { test.other().setCurrentIndex(0); }},
    {"Amount", [](auto& test) { typeOver(test.amount(), "3"); }},
    {"Currency", [](auto& test) { test.currency().setCurrentText("USD"); }},
    {"Status", [](auto& test) { test.reconciled().click(); }},
    {"Removal", [](auto& test) { test.remove().click(); }},
};

class TransactionEntryDirtyTest : public TransactionEntryEditTest, public ::testing::WithParamInterface<Edit>
{
protected:
    /// A text counts once the person is done with it.
    void edit()
    {
        GetParam().act(*this);
        for (auto* const field : {&description(), &amount()}) {
            if (field->isModified()) {
                QTest::keyClick(field, Qt::Key_Return);
            }
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Edits, TransactionEntryDirtyTest, ::testing::ValuesIn(edits),
                         [](auto const& edit) { return edit.param.name; });
}

TEST_P(TransactionEntryDirtyTest, AnEditIsDirtyAndSaysSo)
{
    showPurchase();
    MessageLog::clear();

    edit();

    EXPECT_TRUE(form->isDirty());
    EXPECT_TRUE(MessageLog::texts(QtInfoMsg).contains("Marking transaction \"TXN 7\" dirty"));
}

TEST_P(TransactionEntryDirtyTest, AReadOnlyEntryStaysClean)
{
    showPurchase();
    form->setReadOnly(true);
    MessageLog::clear();

    edit();

    EXPECT_FALSE(form->isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg).filter("Marking transaction"), IsEmpty());
}

TEST_F(TransactionEntryEditTest, ReadOnlyLocksWhatCanBeChangedAndOffersNoRemoval)
{
    showPurchase();
    EXPECT_FALSE(form->isReadOnly());
    EXPECT_THAT(locked(), IsEmpty());

    form->setReadOnly(true);
    EXPECT_TRUE(form->isReadOnly());
    EXPECT_TRUE(money().isReadOnly());
    EXPECT_TRUE(remove().isHidden());
    EXPECT_THAT(locked(), ElementsAre("debitRdbttn", "creditRdbttn", "accountCmbbx", "codeCmbbx", "reconciledChckbx",
                                      "occurredOnDtdt", "descriptionLndt", "amountLndt"));

    form->setReadOnly(false);
    EXPECT_FALSE(form->isReadOnly());
    EXPECT_FALSE(money().isReadOnly());
    EXPECT_FALSE(remove().isHidden());
    EXPECT_THAT(locked(), IsEmpty());
}

TEST_F(TransactionEntryEditTest, AReconciledEntryIsReadOnlyFromTheStart)
{
    showPurchase(Statuses::Reconciled);

    EXPECT_TRUE(form->isReadOnly());
    EXPECT_TRUE(remove().isHidden());
    EXPECT_EQ(locked().size(), 8);
}

TEST_F(TransactionEntryEditTest, AnEntryInADisabledViewIsNotReadOnly)
{
    QWidget view;
    showPurchase().setParent(&view);

    view.setEnabled(false);

    EXPECT_FALSE(form->isReadOnly());
    form.release(); // the view ends it
}

TEST_F(TransactionEntryEditTest, ASavedEntryIsCleanAndTellsNoError)
{
    showPurchase();
    form->showError("The account is closed.");

    form->saved(std::nullopt);

    EXPECT_FALSE(form->isDirty());
    EXPECT_EQ(error(), "none");
    EXPECT_EQ(number().text(), "TXN 7");
}

TEST_F(TransactionEntryEditTest, ASavedNewEntryTakesItsNumber)
{
    show(Transaction());
    edited(description(), "Milk");
    MessageLog::clear();

    form->saved(Number(12));

    EXPECT_EQ(number().text(), "TXN 12");
    EXPECT_EQ(form->number(), Number(12));
    EXPECT_FALSE(form->isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Set Transaction Number for \"Milk\" to TransactionNumber(12)"));
}

TEST_F(TransactionEntryEditTest, ARefusedEntryShowsWhyAndIsDirty)
{
    showPurchase();

    form->showError("The account is <b>closed</b>.");

    EXPECT_EQ(error(), "The account is <b>closed</b>.");
    EXPECT_TRUE(form->hasError());
    EXPECT_TRUE(form->isDirty());
}

TEST_F(TransactionEntryEditTest, AnEmptyRefusalShowsNothingAndIsDirtyAllTheSame)
{
    showPurchase();
    form->showError("The account is closed.");
    form->saved(std::nullopt);

    form->showError(QString());

    EXPECT_EQ(error(), "none");
    EXPECT_TRUE(form->isDirty());
}

TEST_F(TransactionEntryEditTest, TheBoxThatSelectsSpeaksWhileItIsNotHidden)
{
    showPurchase();
    form->showSelection(true); // in a form that isn't on screen itself
    QSignalSpy const selected(form.get(), &Form::selected);
    QSignalSpy const deselected(form.get(), &Form::deselected);
    MessageLog::clear();

    select().click();
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.at(0).at(0).value<std::optional<Number>>(), Number(7));
    EXPECT_EQ(deselected.count(), 0);
    EXPECT_TRUE(form->isSelected());

    form->deselect();
    form->deselect();
    EXPECT_EQ(selected.count(), 1);
    ASSERT_EQ(deselected.count(), 1);
    EXPECT_EQ(deselected.at(0).at(0).value<std::optional<Number>>(), Number(7));
    EXPECT_FALSE(form->isSelected());
    EXPECT_FALSE(form->isDirty());
    EXPECT_THAT(MessageLog::texts(QtInfoMsg),
                ElementsAre("Transaction \"TXN 7\" state changed to 2", "Transaction \"TXN 7\" state changed to 0"));
}

TEST_F(TransactionEntryEditTest, TheHiddenBoxThatSelectsIsSilent)
{
    showPurchase();
    EXPECT_TRUE(select().isHidden());
    QSignalSpy const selected(form.get(), &Form::selected);
    QSignalSpy const deselected(form.get(), &Form::deselected);

    select().setChecked(true);
    select().setChecked(false);
    form->showSelection(true);
    form->showSelection(false);
    select().setChecked(true);

    EXPECT_EQ(selected.count(), 0);
    EXPECT_EQ(deselected.count(), 0);
}

TEST_F(TransactionEntryEditTest, APartlyCheckedBoxSelectsNothing)
{
    showPurchase();
    form->showSelection(true);
    QSignalSpy const selected(form.get(), &Form::selected);
    QSignalSpy const deselected(form.get(), &Form::deselected);

    select().setCheckState(Qt::PartiallyChecked);

    EXPECT_EQ(selected.count(), 0);
    EXPECT_EQ(deselected.count(), 0);
}

TEST_F(TransactionEntryEditTest, ANewEntryIsSelectedWithoutANumber)
{
    show(Transaction());
    form->showSelection(true);
    QSignalSpy const selected(form.get(), &Form::selected);

    select().click();

    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.at(0).at(0).value<std::optional<Number>>(), std::nullopt);
}

TEST_F(TransactionEntryEditTest, AnEditedFormOnScreenEndsInSilence)
{
    showPurchase();
    showActive(*form);
    description().setFocus();
    typeOver(description(), "Milk");
    MessageLog::clear();

    form.reset();

    EXPECT_THAT(MessageLog::texts(QtInfoMsg), IsEmpty());
}

TEST_F(TransactionEntryEditTest, TheWheelChangesOnlyTheFieldThatHasTheCursor)
{
    showPurchase();
    showActive(*form);
    description().setFocus();

    for (auto* const field : std::initializer_list<QWidget*>{&date(), &other(), &currency()}) {
        turnWheelOver(*field);
    }
    EXPECT_TRUE(description().hasFocus());
    EXPECT_FALSE(form->isDirty());
    EXPECT_EQ(form->occurredOn(), QDate(2031, 2, 3));
    EXPECT_EQ(form->otherAccount(), food.number());
    EXPECT_EQ(currency().currentText(), "EUR");

    other().setFocus();
    turnWheelOver(other());
    EXPECT_EQ(form->otherAccount(), rent.number());
    EXPECT_TRUE(form->isDirty());
}
