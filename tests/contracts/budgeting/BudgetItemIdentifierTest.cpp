#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetTotals.h>

#include <support/Properties.h>
#include <support/Translation.h>

using namespace tlm::budgeting;
using fiscora::Currency;
using fiscora::Money;

namespace {

static_assert(std::is_nothrow_move_constructible_v<BudgetItemAmountDue>);

BudgetItemIdentifier const rent{BudgetItemTypes::Bill, BudgetSource("Rent")};
QDate const day(2024, 2, 29);

BudgetItemAmountDue anyDue()
{
    return {{{static_cast<BudgetItemTypes>(*rc::gen::inRange(0, 2)), BudgetSource(*rc::gen::element<QString>("", "a"))},
             *rc::gen::element(QDate(), day, day.addDays(1))},
            Money::fromAmount(Currency::EUR, *rc::gen::inRange(0, 2))};
}
}

TEST(BudgetItemIdentifierTest, ADefaultOneNamesNothing)
{
    BudgetItemAmountDue const due;

    EXPECT_EQ(due.type, BudgetItemTypes::None);
    EXPECT_TRUE(due.source.isEmpty());
    EXPECT_FALSE(due.dueOn.isValid());
    EXPECT_EQ(due.amount, Money());
}

TEST(BudgetItemIdentifierTest, AnUnexpectedItemWithoutSourceAndDateIsLegal)
{
    BudgetItemDueIdentifier const unexpected{{BudgetItemTypes::Goal, BudgetSource()}, QDate()};

    EXPECT_EQ(unexpected, (BudgetItemDueIdentifier{BudgetItemIdentifier{BudgetItemTypes::Goal, {}}, QDate()}));
    EXPECT_NE(unexpected, BudgetItemDueIdentifier());
}

TEST(BudgetItemIdentifierTest, OrdersByTypeSourceDateAndAmount)
{
    EXPECT_LT((BudgetItemDueIdentifier{rent, day}), (BudgetItemDueIdentifier{rent, day.addDays(1)}));
    EXPECT_LT((BudgetItemDueIdentifier{rent, QDate()}), (BudgetItemDueIdentifier{rent, day}));
    EXPECT_LT(rent, (BudgetItemIdentifier{BudgetItemTypes::Debt, BudgetSource("Car")}));
    tlm::testing::expectStrongOrder(anyDue);
    tlm::testing::expectStrongOrder([] { return BudgetItemDueIdentifier(anyDue()); });
    tlm::testing::expectStrongOrder([] { return BudgetItemIdentifier(anyDue()); });
}

TEST(BudgetItemIdentifierTest, TellsTypeAndSource)
{
    EXPECT_EQ(presentationText(rent), "Bill: Rent");
    EXPECT_EQ(presentationText(BudgetItemIdentifier{BudgetItemTypes::Bill, BudgetSource("%1 %2")}), "Bill: %1 %2");
}

TEST(BudgetItemIdentifierTest, TellsOnlyWhatIsChosen)
{
    EXPECT_EQ(presentationText(BudgetItemIdentifier{BudgetItemTypes::Bill, BudgetSource()}), "Bill");
    EXPECT_EQ(presentationText(BudgetItemIdentifier{BudgetItemTypes::None, BudgetSource("Rent")}), "Rent");
    EXPECT_EQ(presentationText(BudgetItemIdentifier()), QString());
}

TEST(BudgetItemIdentifierTest, TellsTypeAndSourceInAnotherLanguage)
{
    tlm::testing::Translation const german({{"Bill", "Rechnung"}, {"%1: %2", "%2 (%1)"}});

    EXPECT_EQ(presentationText(rent), "Rent (Rechnung)");
}

TEST(BudgetItemIdentifierTest, IsLoggedWithAllItsFields)
{
    QString log;

    QDebug(&log) << rent << BudgetItemDueIdentifier{rent, day}
                 << BudgetItemAmountDue{{rent, day}, Money(Currency::EUR, 5, 0, 0)};

    EXPECT_EQ(log.count("BudgetItemTypes(Bill), BudgetSource(\"Rent\")"), 3) << log.toStdString();
    EXPECT_EQ(log.count("QDate(\"2024-02-29\")"), 2) << log.toStdString();
    EXPECT_TRUE(log.contains("EUR")) << log.toStdString();
}

TEST(BudgetTotalsTest, AreEqualFieldByField)
{
    Money const five(Currency::EUR, 5, 0, 0);

    EXPECT_EQ((BudgetTotals{five, {}, {}, {}, {}}), (BudgetTotals{five, {}, {}, {}, {}}));
    EXPECT_NE((BudgetTotals{five, {}, {}, {}, {}}), (BudgetTotals{{}, five, {}, {}, {}}));
}
