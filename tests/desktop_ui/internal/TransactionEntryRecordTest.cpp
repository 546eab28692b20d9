#include "TransactionFixture.h"
#include "support/Translation.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/foundation/Error.h>

using ::testing::ElementsAre;
using tlm::testing::MessageLog;
using tlm::testing::TransactionFixture;
using tlm::testing::Translation;

/// What is read back from the form of a transaction.
class TransactionEntryRecordTest : public TransactionFixture
{};

TEST_F(TransactionEntryRecordTest, WhatIsShownReadsBackAsItIs)
{
    for (auto const status : {Statuses::NotCleared, Statuses::Cleared, Statuses::Reconciled}) {
        // Without parents, which no text tells.
        auto const txn = posting(rent, account(1000, "Cash"), status, " Bread ");
        show(txn, account(1000, "Cash"));

        EXPECT_EQ(form->transaction(), txn);
    }
}

TEST_F(TransactionEntryRecordTest, AnEmptyDescriptionReadsBackAsASetOne)
{
    show(posting(food, cash, Statuses::NotCleared, std::nullopt));

    EXPECT_EQ(form->transaction().description(), "");
}

TEST_F(TransactionEntryRecordTest, TheBooksAreAskedForATrimmedPostingWithoutNumberAndStatus)
{
    show(posting(food, cash, Statuses::Cleared, "  Bread \t"));
    auto const requested = form->requested();

    EXPECT_EQ(requested.occurredOn(), QDate(2031, 2, 3));
    EXPECT_EQ(requested.debiting(), food.number());
    EXPECT_EQ(requested.crediting(), cash);
    EXPECT_EQ(requested.amount(), Money(Currency::EUR, 40, 50, 0));
    EXPECT_EQ(requested.description(), "Bread");
    EXPECT_EQ(requested.number(), std::nullopt);
    EXPECT_EQ(requested.status(), Statuses::NotCleared);

    description().setText(" \t ");
    EXPECT_EQ(form->requested().description(), std::nullopt);
}

TEST_F(TransactionEntryRecordTest, ANewEntryHasTheLedgerOnBothSidesAndIsNoTransaction)
{
    show(Transaction());
    money().setAmount(euros(4));

    EXPECT_EQ(form->debiting(), cash);
    EXPECT_EQ(form->crediting(), cash);
    EXPECT_THROW(form->requested(), tlm::foundation::Error);
    EXPECT_THROW(form->transaction(), tlm::foundation::Error);
}

TEST_F(TransactionEntryRecordTest, AChosenSideWithoutAnAccountIsADefaultCode)
{
    show(Transaction());

    credit().click();
    EXPECT_EQ(form->debiting(), cash);
    EXPECT_EQ(form->crediting(), AccountCode());

    debit().click();
    EXPECT_EQ(form->debiting(), AccountCode());
    EXPECT_EQ(form->crediting(), cash);
}

TEST_F(TransactionEntryRecordTest, AnAmountThatIsNoneIsAnError)
{
    showPurchase();
    amount().setText("1-2");

    EXPECT_THROW(form->amount(), tlm::desktop_ui::DataEntryError);
    EXPECT_THROW(form->requested(), tlm::desktop_ui::DataEntryError);
    EXPECT_THROW(form->transaction(), tlm::desktop_ui::DataEntryError);
}

TEST_F(TransactionEntryRecordTest, TheLabelIsTheTruthAboutTheNumber)
{
    showPurchase();

    number().setText("TXN 12");
    EXPECT_EQ(form->number(), Number(12));
    EXPECT_EQ(form->transaction().number(), Number(12));

    number().clear();
    EXPECT_EQ(form->number(), std::nullopt);
}

TEST_F(TransactionEntryRecordTest, TheNumberIsReadFromATranslatedLabel)
{
    Translation const german({{"TXN %1", "Buchung %1 im Buch 2"}});

    showPurchase();

    EXPECT_EQ(number().text(), "Buchung 7 im Buch 2");
    EXPECT_EQ(form->number(), Number(7));
}

TEST_F(TransactionEntryRecordTest, TheNumberIsLoggedAheadOfTheDescription)
{
    showPurchase();

    EXPECT_THAT(MessageLog::texts(QtInfoMsg).filter("Transaction Number"),
                ElementsAre("Set Transaction Number for \"\" to TransactionNumber(7)"));
}
