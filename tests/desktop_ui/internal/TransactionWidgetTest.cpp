#include "TransactionFixture.h"
#include "internal/OtherAccounts.h"

#include <QAbstractItemView>
#include <QStyleOptionComboBox>

using ::testing::ElementsAre;
using tlm::desktop_ui::internal::OtherAccounts;
using tlm::testing::MessageLog;
using tlm::testing::TransactionFixture;

/// What the form of a transaction shows.
class TransactionWidgetTest : public TransactionFixture
{};

TEST_F(TransactionWidgetTest, ANewEntryIsBlankButForToday)
{
    Transaction const unnumbered(QDate(2031, 2, 3), food, cash, euros(40), "Bread", std::nullopt, Statuses::Reconciled);
    auto const before = QDate::currentDate();

    for (auto const& txn : {Transaction(), unnumbered}) {
        show(txn);

        EXPECT_EQ(form->number(), std::nullopt);
        EXPECT_EQ(number().text(), "");
        EXPECT_TRUE(form->occurredOn() == before || form->occurredOn() == QDate::currentDate());
        EXPECT_EQ(form->description(), "");
        EXPECT_FALSE(form->isDebited());
        EXPECT_FALSE(form->isCredited());
        EXPECT_EQ(form->otherAccount(), std::nullopt);
        EXPECT_EQ(other().currentText(), "");
        EXPECT_EQ(amount().text(), "");
        EXPECT_EQ(form->status(), Statuses::NotCleared);
        EXPECT_FALSE(form->isReadOnly());
        EXPECT_FALSE(form->isDirty());
    }
}

TEST_F(TransactionWidgetTest, APostedEntryShowsItsTransaction)
{
    showPurchase();

    EXPECT_EQ(number().text(), "TXN 7");
    EXPECT_EQ(form->number(), Number(7));
    EXPECT_EQ(date().date(), QDate(2031, 2, 3));
    EXPECT_EQ(description().text(), "Bread");
    EXPECT_EQ(description().cursorPosition(), 0);
    EXPECT_EQ(other().currentText(), presentationText(food));
    EXPECT_EQ(amount().text(), tlm::foundation::presentationText(Money(Currency::EUR, 40, 50, 0)));
    EXPECT_EQ(currency().currentText(), "EUR");
    EXPECT_EQ(form->ledger(), cash);
    EXPECT_FALSE(form->isRemoved());
    EXPECT_FALSE(form->isSelected());
    EXPECT_FALSE(form->isDirty());
    EXPECT_EQ(error(), "none");
    EXPECT_FALSE(form->hasError());
}

TEST_F(TransactionWidgetTest, ATransactionWithoutDescriptionShowsNone)
{
    show(posting(food, cash, Statuses::NotCleared, std::nullopt));

    EXPECT_EQ(form->description(), "");
}

TEST_F(TransactionWidgetTest, TheOtherAccountStandsOnTheSideThatTheLedgerLeaves)
{
    show(posting(food, cash));
    EXPECT_TRUE(form->isDebited());
    EXPECT_FALSE(form->isCredited());
    EXPECT_EQ(other().currentText(), presentationText(food));

    show(posting(cash, food));
    EXPECT_TRUE(form->isCredited());
    EXPECT_FALSE(form->isDebited());
    EXPECT_EQ(other().currentText(), presentationText(food));
}

TEST_F(TransactionWidgetTest, ALedgerThatLostItsParentIsStillTheLedger)
{
    auto const readBack = tlm::accounting::toAccountCode(presentationText(cash));
    ASSERT_NE(readBack, cash);

    show(posting(cash, food), readBack);

    EXPECT_TRUE(form->isCredited());
    EXPECT_FALSE(form->isDebited());
    EXPECT_EQ(other().currentText(), presentationText(food));
    EXPECT_THAT(offered(), ElementsAre("", presentationText(food), presentationText(rent)));
    EXPECT_EQ(form->debiting().number(), cash.number());
    EXPECT_EQ(form->crediting().number(), food.number());
}

TEST_F(TransactionWidgetTest, ATransactionOfNeitherSideCreditsWhatItDebits)
{
    show(posting(food, rent));

    EXPECT_TRUE(form->isCredited());
    EXPECT_FALSE(form->isDebited());
    EXPECT_EQ(other().currentText(), presentationText(food));
}

TEST_F(TransactionWidgetTest, OffersAllAccountsInOrderButTheLedger)
{
    showPurchase();

    EXPECT_THAT(offered(), ElementsAre("", presentationText(food), presentationText(rent)));
    EXPECT_THAT(MessageLog::texts(QtDebugMsg).filter("Adding account"),
                ElementsAre("Adding account AccountCode(1000, \"Cash\", parent 900) to transaction widget "
                            "AccountCode(1000, \"Cash\", parent 900)",
                            "Adding account AccountCode(4000, \"Food\", parent 3900) to transaction widget "
                            "AccountCode(1000, \"Cash\", parent 900)",
                            "Adding account AccountCode(4100, \"Rent\") to transaction widget "
                            "AccountCode(1000, \"Cash\", parent 900)"));
}

TEST_F(TransactionWidgetTest, AnAccountThatIsNotOfferedLeavesTheOtherOneBlank)
{
    show(posting(account(5000, "Pets"), cash));

    EXPECT_EQ(form->otherAccount(), std::nullopt);
    EXPECT_TRUE(form->isDebited());
}

TEST_F(TransactionWidgetTest, FormsThatShareTheirAccountsKnowThemAll)
{
    OtherAccounts const shared(accounts, cash);
    auto const make = [&](Transaction const& txn) {
        return std::make_unique<Form>(shared, txn, cash, std::set{Currency::EUR},
                                      tlm::navigation::CurrencyDisplayOptions::Code, false, nullptr);
    };

    form = make(posting(rent, cash));
    auto const grown = make(posting(food, cash));
    grown->addAccount(account(5000, "Pets"));

    EXPECT_EQ(other().currentText(), presentationText(rent));
    EXPECT_THAT(offered(), ElementsAre("", presentationText(food), presentationText(rent)));
    EXPECT_EQ(tlm::testing::child<QComboBox>(*grown, "accountCmbbx").count(), 4);
}

TEST_F(TransactionWidgetTest, TheBoxOfAccountsKeepsToItsWidthsAndBuildsNoPopUpAheadOfTime)
{
    auto const least = showPurchase().minimumSizeHint();
    accounts.push_back(account(5000, QString(200, 'W')));
    showPurchase();
    form->resize(form->minimumSize());
    tlm::testing::showActive(*form);

    EXPECT_EQ(other().findChild<QAbstractItemView*>(), nullptr);
    EXPECT_GE(other().width(), 150);
    EXPECT_LE(other().width(), 300);
    EXPECT_EQ(form->minimumSizeHint(), least);
}

TEST_F(TransactionWidgetTest, TheBoxOfAccountsShowsItsWidestNameWhereThereIsRoom)
{
    auto const longName = account(5000, "Rainy day savings");
    accounts.push_back(longName);
    show(posting(longName, cash));
    form->resize(form->minimumSize());
    tlm::testing::showActive(*form);

    QStyleOptionComboBox look;
    look.initFrom(&other());
    auto const field =
        other().style()->subControlRect(QStyle::CC_ComboBox, &look, QStyle::SC_ComboBoxEditField, &other());

    EXPECT_LE(other().fontMetrics().horizontalAdvance(other().currentText()), field.width());
    EXPECT_LT(other().width(), 300);
}

TEST_F(TransactionWidgetTest, WithoutOtherAccountsThereIsOnlyTheBlankRow)
{
    Form const alone({}, cash, {}, {}, tlm::navigation::CurrencyDisplayOptions::Code, false, nullptr);

    EXPECT_EQ(tlm::testing::child<QComboBox>(alone, "accountCmbbx").count(), 1);
    EXPECT_EQ(alone.otherAccount(), std::nullopt);
}

TEST_F(TransactionWidgetTest, TheItemsOfItsBoxMayBeWiderThanTheBox)
{
    accounts.push_back(account(5000, QString(40, 'W')));
    showPurchase();
    tlm::testing::showActive(*form);

    QTest::mouseClick(&other(), Qt::LeftButton);

    auto const& items = *other().view();
    EXPECT_GE(items.width(), items.fontMetrics().horizontalAdvance(QString(40, 'W')));
    other().hidePopup();
}

TEST_F(TransactionWidgetTest, AnAccountAddedLaterComesLast)
{
    showPurchase();
    MessageLog::clear();

    form->addAccount(account(1, "Change"));
    form->addAccount(account(1000, "Cash"));

    EXPECT_THAT(offered(), ElementsAre("", presentationText(food), presentationText(rent),
                                       presentationText(account(1, "Change"))));
    EXPECT_EQ(other().currentText(), presentationText(food));
    EXPECT_FALSE(form->isDirty());
    EXPECT_THAT(
        MessageLog::texts(QtDebugMsg),
        ElementsAre("Adding account AccountCode(1, \"Change\") to transaction widget AccountCode(1000, \"Cash\", "
                    "parent 900)",
                    "Adding account AccountCode(1000, \"Cash\") to transaction widget AccountCode(1000, \"Cash\", "
                    "parent 900)"));
}

TEST_F(TransactionWidgetTest, EachStatusHasItsStateOfTheCheckBox)
{
    auto const stateOf = [this](Statuses status) {
        showPurchase(status);
        EXPECT_EQ(form->status(), status);
        return reconciled().checkState();
    };

    EXPECT_EQ(stateOf(Statuses::NotCleared), Qt::Unchecked);
    EXPECT_FALSE(form->isCleared());
    EXPECT_FALSE(form->isReconciled());
    EXPECT_EQ(stateOf(Statuses::Cleared), Qt::PartiallyChecked);
    EXPECT_TRUE(form->isCleared());
    EXPECT_FALSE(form->isReconciled());
    EXPECT_EQ(stateOf(Statuses::Reconciled), Qt::Checked);
    EXPECT_FALSE(form->isCleared());
    EXPECT_TRUE(form->isReconciled());
}

TEST_F(TransactionWidgetTest, AnUnknownStatusIsNotCleared)
{
    showPurchase(static_cast<Statuses>(7));

    EXPECT_EQ(form->status(), Statuses::NotCleared);
}

TEST_F(TransactionWidgetTest, ClicksGoThroughTheStatusesInTheirOrder)
{
    showPurchase();
    std::vector<Statuses> seen;

    for (auto click = 0; click < 3; ++click) {
        reconciled().click();
        seen.push_back(form->status());
    }

    EXPECT_THAT(seen, ElementsAre(Statuses::Cleared, Statuses::Reconciled, Statuses::NotCleared));
}

TEST_F(TransactionWidgetTest, TheWordingNamesTheSides)
{
    showPurchase();
    auto const debitTip = debit().toolTip();
    EXPECT_EQ(debit().text(), "Debi&ted");
    EXPECT_EQ(credit().text(), "Credited");

    show(posting(food, cash), cash, true);
    EXPECT_EQ(debit().text(), "Payment For");
    EXPECT_EQ(credit().text(), "Monies From");
    EXPECT_EQ(debit().toolTip(), debitTip);
}

TEST_F(TransactionWidgetTest, EndsWhenItIsClosed)
{
    showPurchase();

    EXPECT_TRUE(form->testAttribute(Qt::WA_DeleteOnClose));
}
