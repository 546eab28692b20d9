#include "TransactionsFixture.h"

#include <tlm/foundation/Error.h>

#include <QVBoxLayout>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using tlm::accounting::toAccountCode;
using tlm::testing::child;
using tlm::testing::MessageLog;

/// What the list holds and offers.
class TransactionsWidgetTest : public tlm::testing::TransactionsFixture
{
protected:
    QStringList descriptionsFromTopToBottom() const
    {
        auto const& layout = child<QVBoxLayout>(*view, "transactionVbxlyt");
        QStringList texts;
        for (auto place = 0; place < layout.count(); ++place) {
            if (auto const* const row = qobject_cast<Row*>(layout.itemAt(place)->widget())) {
                texts.append(row->description());
            }
        }
        return texts;
    }
};

TEST_F(TransactionsWidgetTest, AnEmptyListHoldsItsHeadingAndNothingElse)
{
    EXPECT_EQ(view->objectName(), "transactionsWdgt");
    EXPECT_EQ(view->windowTitle(), "Transactions Widget");
    EXPECT_FALSE(view->testAttribute(Qt::WA_DeleteOnClose));
    EXPECT_EQ(child<QLabel>(*view, "transactionsLbl").text(), "Transactions:");
    EXPECT_EQ(scroller().minimumWidth(), 500);
    EXPECT_EQ(scroller().sizeAdjustPolicy(), QAbstractScrollArea::AdjustToContents);
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_FALSE(view->anyDirty());
    EXPECT_FALSE(view->hasNewEntry());
    EXPECT_FALSE(view->isLoaded(cash));
    EXPECT_EQ(view->find(number(1)), std::nullopt);
    EXPECT_EQ(view->find(std::nullopt), std::nullopt);
    EXPECT_THAT(view->selectedTransactions(), IsEmpty());
}

TEST_F(TransactionsWidgetTest, ALedgerIsAddedInTheOrderOfItsTransactions)
{
    view->add(cash, {posting(3, QDate(2031, 1, 2)), posting(2, QDate(2031, 1, 5)), posting(1, QDate(2031, 1, 2))});

    EXPECT_THAT(descriptionsFromTopToBottom(), ElementsAre("Bread 1", "Bread 3", "Bread 2"));
    EXPECT_THAT(MessageLog::texts(QtInfoMsg).filter("Adding Transaction"),
                ElementsAre("Adding Transaction  \"1\"", "Adding Transaction  \"3\"", "Adding Transaction  \"2\""));
}

TEST_F(TransactionsWidgetTest, SingleEntriesGrowDownwardAheadOfTheSpacer)
{
    view->add(cash, posting(9, QDate(2031, 1, 9)));
    view->add(cash, posting(5));
    view->add(cash, Transaction());

    EXPECT_THAT(descriptionsFromTopToBottom(), ElementsAre("Bread 9", "Bread 5", ""));
    auto const& layout = child<QVBoxLayout>(*view, "transactionVbxlyt");
    ASSERT_EQ(layout.count(), 4);
    EXPECT_NE(layout.itemAt(3)->spacerItem(), nullptr);
    EXPECT_EQ(MessageLog::texts(QtInfoMsg).filter("Adding Transaction").constLast(), "Adding Transaction  \"0\"");
}

TEST_F(TransactionsWidgetTest, LedgersAreToldApartByTheirNumbers)
{
    view->add(cash, posting(1));

    EXPECT_TRUE(view->isLoaded(toAccountCode(presentationText(cash)))); // which has lost its parent
    EXPECT_FALSE(view->isLoaded(food));
}

TEST_F(TransactionsWidgetTest, ALedgerReadFromATextShowsTheSidesOfItsEntries)
{
    auto const read = toAccountCode(presentationText(cash));

    view->add(read, posting(1));

    EXPECT_TRUE(row(1).isDebited());
    EXPECT_FALSE(row(1).isCredited());
    EXPECT_EQ(view->find(number(1))->crediting(), read);
    EXPECT_THAT(offered(row(1)), Not(Contains(presentationText(cash))));
}

TEST_F(TransactionsWidgetTest, AnEmptyLedgerIsNotLoaded)
{
    view->add(cash, std::vector<Transaction>());

    EXPECT_FALSE(view->isLoaded(cash));
}

TEST_F(TransactionsWidgetTest, ANewAccountIsOfferedInAllEntriesNowAndLater)
{
    auto const gifts = account(4200, "Gifts", {});
    view->add(cash, posting(1));
    view->add(bank, posting(2));
    MessageLog::clear();

    view->addAccount(gifts);
    view->addAccount(gifts);

    EXPECT_THAT(MessageLog::texts(QtDebugMsg).filter("to the list of accounts."),
                ElementsAre("Adding account AccountCode(4200, \"Gifts\") to the list of accounts."));
    view->add(cash, posting(3));
    for (auto const each : {1, 2, 3}) {
        EXPECT_EQ(offered(row(each)).count(presentationText(gifts)), 1) << each;
    }
    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsWidgetTest, AnAccountThatIsKnownUnderItsTextIsNotOfferedTwice)
{
    view->add(cash, posting(1));

    view->addAccount(toAccountCode(presentationText(food)));

    EXPECT_EQ(offered(row(1)).count(presentationText(food)), 1);
}

TEST_F(TransactionsWidgetTest, ReadOnlyReachesEntriesNowAndLater)
{
    view->add(cash, posting(1));
    view->setReadOnly(true);
    view->add(cash, posting(2));
    EXPECT_TRUE(row(1).isReadOnly());
    EXPECT_TRUE(row(2).isReadOnly());

    view->setReadOnly(false);
    view->add(cash, posting(3, QDate(2031, 1, 1), Statuses::Reconciled));

    for (auto const each : {1, 2, 3}) {
        EXPECT_FALSE(row(each).isReadOnly()) << each;
    }
}

TEST_F(TransactionsWidgetTest, AReconciledEntryIsReadOnlyByItself)
{
    view->add(cash, {posting(1), posting(2, QDate(2031, 1, 1), Statuses::Reconciled)});

    EXPECT_FALSE(row(1).isReadOnly());
    EXPECT_TRUE(row(2).isReadOnly());
    EXPECT_TRUE(child<QCheckBox>(row(2), "removeChckbx").isHidden());
}

TEST_F(TransactionsWidgetTest, HidingALedgerHidesItsEntriesAndNoOthers)
{
    view->add(cash, {posting(1), posting(2)});
    view->add(bank, posting(3));

    view->hideLedger(toAccountCode(presentationText(cash)));
    view->hideLedger(rent);

    EXPECT_TRUE(row(1).isHidden());
    EXPECT_TRUE(row(2).isHidden());
    EXPECT_FALSE(row(3).isHidden());
    EXPECT_TRUE(view->isLoaded(cash));
    view->add(cash, posting(4));
    EXPECT_FALSE(row(4).isHidden());
    EXPECT_TRUE(row(1).isHidden());
    view->showLedger(cash);
    EXPECT_FALSE(row(1).isHidden());
    EXPECT_FALSE(row(2).isHidden());
}

TEST_F(TransactionsWidgetTest, ANewEntryIsKnown)
{
    view->add(cash, posting(1));
    EXPECT_FALSE(view->hasNewEntry());

    view->add(cash, Transaction());

    EXPECT_TRUE(view->hasNewEntry());
    EXPECT_FALSE(view->anyDirty());
}

TEST_F(TransactionsWidgetTest, FindGivesWhatTheEntryShows)
{
    view->add(cash, posting(7, QDate(2031, 1, 1), Statuses::Cleared));
    describe(row(7), "  Rolls ");
    child<QRadioButton>(row(7), "creditRdbttn").click();

    auto const found = view->find(number(7));

    ASSERT_TRUE(found);
    auto const readFood = toAccountCode(presentationText(food));
    EXPECT_EQ(*found,
              Transaction(QDate(2031, 1, 1), cash, readFood, euros(8), "  Rolls ", number(7), Statuses::Cleared));
}

TEST_F(TransactionsWidgetTest, FindGivesASetDescriptionEvenWhenItIsEmpty)
{
    view->add(cash, Transaction(QDate(2031, 1, 1), food, cash, euros(1), {}, number(7), Statuses::NotCleared));

    EXPECT_EQ(view->find(number(7))->description(), std::optional<QString>(""));
}

TEST_F(TransactionsWidgetTest, AnEntryThatShowsNoTransactionIsNotFoundWithoutAWord)
{
    view->add(cash, Transaction());

    EXPECT_THROW(view->find(std::nullopt), tlm::foundation::Error);
}

TEST_F(TransactionsWidgetTest, EverydayTermsNameTheSides)
{
    auto everyday = std::make_unique<View>(nullptr);
    everyday->setUp({cash, food}, {fiscora::Currency::EUR}, tlm::navigation::CurrencyDisplayOptions::Code, true);

    everyday->add(cash, posting(1));

    EXPECT_EQ(child<QRadioButton>(*everyday, "debitRdbttn").text(), "Payment For");
    EXPECT_EQ(child<QRadioButton>(*everyday, "creditRdbttn").text(), "Monies From");
}
