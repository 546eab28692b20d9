#include <tlm/budgeting/BudgetedMoneyMap.h>

#include <memory>
#include <support/Properties.h>

using namespace tlm::budgeting;
using fiscora::Currency;
using fiscora::Money;
using tlm::foundation::Percentage;

namespace {

static_assert(std::has_virtual_destructor_v<BudgetedMoney>);
static_assert(!std::is_convertible_v<QString, BudgetSource>);
static_assert(std::is_nothrow_move_constructible_v<BudgetSource> && std::is_nothrow_move_assignable_v<BudgetSource>);
static_assert(std::is_nothrow_move_constructible_v<Bill> && std::is_nothrow_move_assignable_v<Bill>);
static_assert(std::is_nothrow_move_constructible_v<Debt> && std::is_nothrow_move_assignable_v<Debt>);
static_assert(std::is_nothrow_move_constructible_v<Goal> && std::is_nothrow_move_assignable_v<Goal>);
// Maps of different types don't mix, though each is a map of budgeted money.
static_assert(!std::is_convertible_v<BillMap, NontrackMap>);

Money const five(Currency::EUR, 5, 0, 0);
QDate const day(2024, 2, 29);
BudgetSource const rent("Rent");

template <typename T>
class BudgetItemRecordTest : public ::testing::Test
{};
using Records = ::testing::Types<BudgetedMoney, Bill, Debt, Goal, Nontrack, Wage>;
TYPED_TEST_SUITE(BudgetItemRecordTest, Records);

/// Compares as its item does, so that items of all types can be generated alike.
struct AnyItem
{
    std::shared_ptr<BudgetedMoney const> item;

    friend bool operator==(AnyItem const& left, AnyItem const& right) { return *left.item == *right.item; }
    friend std::strong_ordering operator<=>(AnyItem const& left, AnyItem const& right)
    {
        return *left.item <=> *right.item;
    }
};

AnyItem anyItem()
{
    BudgetSource const source(*rc::gen::element<QString>("a", "b"));
    auto const amount = Money::fromAmount(Currency::EUR, *rc::gen::inRange(0, 2));
    auto const period = static_cast<EventFrequency>(*rc::gen::inRange(5, 7));
    auto const next = day.addDays(*rc::gen::inRange(0, 2));
    auto const more = Money::fromAmount(Currency::EUR, *rc::gen::inRange(0, 2));
    switch (*rc::gen::inRange(0, 4)) {
    case 0:
        return {std::make_shared<Bill>(source, amount, period, next)};
    case 1:
        return {std::make_shared<Debt>(source, amount, period, next, more, Percentage(*rc::gen::inRange(0, 2), 6))};
    case 2:
        return {std::make_shared<Goal>(source, amount, period, next, more)};
    default:
        return {std::make_shared<BudgetedMoney>(source, amount, period, next)};
    }
}
}

TYPED_TEST(BudgetItemRecordTest, ADefaultOneHasNothingToShow)
{
    TypeParam const item;

    EXPECT_TRUE(item.source().isEmpty());
    EXPECT_EQ(item.amount(), Money());
    EXPECT_EQ(item.period(), EventFrequency::None);
    EXPECT_FALSE(item.nextOccurOn().isValid());
    EXPECT_EQ(item, TypeParam());
}

TYPED_TEST(BudgetItemRecordTest, IsACopyOfItself)
{
    TypeParam const item;
    std::unique_ptr<BudgetedMoney> const copy = std::make_unique<TypeParam>(item);

    EXPECT_EQ(*copy, item);
    EXPECT_NE(dynamic_cast<TypeParam const*>(copy.get()), nullptr);
}

TEST(BudgetedMoneyTest, KeepsWhatItIsMadeOf)
{
    Wage const wage(rent, five, EventFrequency::Weekly, day);

    EXPECT_EQ(wage.source(), rent);
    EXPECT_EQ(wage.amount(), five);
    EXPECT_EQ(wage.period(), EventFrequency::Weekly);
    EXPECT_EQ(wage.nextOccurOn(), day);
}

TEST(BudgetedMoneyTest, TheInterestOfANewDebtHasRoomForDecimals)
{
    EXPECT_EQ(Debt().interest(), tlm::foundation::Percentage(0.0, 2));
}

TEST(BudgetedMoneyTest, DebtsAndGoalsSurviveTheWayThroughTheBase)
{
    std::unique_ptr<BudgetedMoney> const debt = std::make_unique<Debt>(
        rent, five, EventFrequency::Monthly, day, Money(Currency::EUR, 90, 0, 0), Percentage(5.5, 6));
    std::unique_ptr<BudgetedMoney> const goal =
        std::make_unique<Goal>(rent, five, EventFrequency::Monthly, day, Money(Currency::EUR, 70, 0, 0));

    EXPECT_EQ(dynamic_cast<Debt const&>(*debt).borrowed(), Money(Currency::EUR, 90, 0, 0));
    EXPECT_EQ(dynamic_cast<Debt const&>(*debt).interest(), Percentage(5.5, 6));
    EXPECT_EQ(dynamic_cast<Goal const&>(*goal).final(), Money(Currency::EUR, 70, 0, 0));
}

TEST(BudgetedMoneyTest, DifferentTypesDifferWhateverTheyHold)
{
    Bill const bill(rent, five, EventFrequency::Monthly, day);
    Nontrack const nontrack(rent, five, EventFrequency::Monthly, day);
    BudgetedMoney const plain = bill;

    EXPECT_NE(bill, nontrack);
    EXPECT_NE(static_cast<BudgetedMoney const&>(bill), static_cast<BudgetedMoney const&>(nontrack));
    EXPECT_NE(plain, bill);
    EXPECT_LT(bill, nontrack);
}

TEST(BudgetedMoneyTest, TermsCountThroughTheBase)
{
    Goal const small(rent, five, EventFrequency::Monthly, day, Money(Currency::EUR, 70, 0, 0));
    Goal const large(rent, five, EventFrequency::Monthly, day, Money(Currency::EUR, 71, 0, 0));
    Debt const cheap(rent, five, EventFrequency::Monthly, day, five, Percentage(1.0, 6));
    Debt const dear(rent, five, EventFrequency::Monthly, day, five, Percentage(2.0, 6));

    EXPECT_LT(static_cast<BudgetedMoney const&>(small), static_cast<BudgetedMoney const&>(large));
    EXPECT_LT(static_cast<BudgetedMoney const&>(cheap), static_cast<BudgetedMoney const&>(dear));
}

TEST(BudgetedMoneyTest, IsStronglyOrderedAcrossTypes)
{
    tlm::testing::expectStrongOrder(anyItem);
}

TEST(BudgetedMoneyTest, CarriesWhatAFormHoldsHalfFilled)
{
    EXPECT_NO_THROW(Debt(BudgetSource(), -five, EventFrequency::None, QDate(), Money(), Percentage(-1.0, 6)));
}

TEST(BudgetedMoneyMapTest, ListsItemsBySource)
{
    BillMap const bills{{rent, Bill(rent, five, EventFrequency::Monthly, day)},
                        {BudgetSource("Power"), Bill(BudgetSource("Power"), five, EventFrequency::Monthly, day)}};

    EXPECT_TRUE(BillMap().empty());
    EXPECT_EQ(bills.begin()->first, BudgetSource("Power"));
    EXPECT_EQ(bills, BillMap(bills));
    EXPECT_LT(BillMap(), bills);
}

TEST(BudgetSourceTest, ComparesToTheLetter)
{
    EXPECT_TRUE(BudgetSource().isEmpty());
    EXPECT_FALSE(rent.isEmpty());
    EXPECT_NE(BudgetSource("rent"), rent);
    EXPECT_EQ(presentationText(rent), "Rent");
    tlm::testing::expectStrongOrder([] { return BudgetSource(*rc::gen::element<QString>("", "a", "B", "b")); });
}
