#include "PlanningFixture.h"

namespace tallymere::presenter {
namespace {

/// What holds for bills, debts, goals, nontracks and wages alike.
class PlanningChangesTest : public PlanningTest, public ::testing::WithParamInterface<BudgetItemTypes>
{
protected:
    BudgetItemTypes const type = GetParam();
};

TEST_P(PlanningChangesTest, AnAddedItemIsPlannedAsTold)
{
    add(type, {"Rent", euros(75), EventFrequency::Quarterly, QDate(2026, 5, 31), euros(900), {3.25, 2}});

    expectAccepted("Rent");
    auto const& planned = item(type, "Rent");
    EXPECT_EQ(planned.amount, euros(75));
    EXPECT_EQ(planned.period, EventFrequency::Quarterly);
    EXPECT_EQ(planned.nextOccurOn, QDate(2026, 5, 31));
    EXPECT_EQ(planned.anchoredOn, QDate(2026, 5, 31));
    EXPECT_TRUE(content().books.accounts.contains(planned.account));
}

TEST_P(PlanningChangesTest, ARenamedItemKeepsItsValues)
{
    add(type, {"Rent"});
    auto const before = item(type, "Rent");
    forget();

    rename(type, "Rent", "Rent of the flat");

    expectAccepted("Rent of the flat");
    EXPECT_FALSE(isPlanned(type, "Rent"));
    auto expected = before;
    expected.identifier.source = BudgetSource("Rent of the flat");
    EXPECT_EQ(item(type, "Rent of the flat"), expected);
    EXPECT_EQ(content().books.accounts.at(before.account).code.name(), "Rent of the flat");
}

TEST_P(PlanningChangesTest, AnUpdatedItemTakesTheNewValuesOver)
{
    add(type, {"Rent"});
    forget();

    update(type, {"Rent", dollars(250), EventFrequency::Weekly, QDate(2026, 4, 1)});

    expectAccepted("Rent");
    EXPECT_EQ(item(type, "Rent").amount, dollars(250));
    EXPECT_EQ(item(type, "Rent").period, EventFrequency::Weekly);
    EXPECT_EQ(item(type, "Rent").nextOccurOn, QDate(2026, 4, 1));
}

TEST_P(PlanningChangesTest, ARemovedItemIsGoneWithItsAccount)
{
    auto const before = content();
    add(type, {"Rent"});
    auto const account = item(type, "Rent").account;
    forget();

    remove(type, "Rent");

    expectAccepted("Rent");
    EXPECT_EQ(content().items, before.items);
    EXPECT_FALSE(content().books.accounts.contains(account));
}

TEST_P(PlanningChangesTest, ANameIsFoundWithoutRegardToCaseAndSurroundingBlanks)
{
    add(type, {"Rent"});
    forget();

    update(type, {" rent ", dollars(250)});
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ(answers.front().refusal, std::nullopt);

    EXPECT_EQ(item(type, "rent").amount, dollars(250));
    EXPECT_EQ(content().items.size(), 1U);
}

TEST_P(PlanningChangesTest, TheSameNameIsFreeInEveryOtherKind)
{
    for (auto const kind : everyKind) {
        add(kind, {"Rent"});
    }

    EXPECT_EQ(content().items.size(), 5U);
    EXPECT_EQ(answers.size(), 5U);
}

TEST_P(PlanningChangesTest, WhatWasAcceptedIsInTheFileOnceSaved)
{
    add(type, {"Rent"});
    add(type, {"Water", euros(30)});
    rename(type, "Rent", "Flat");
    update(type, {"Flat", dollars(110)});
    remove(type, "Water");
    auto const expected = content();

    session.saveAs(home.path("family.budget"));
    session.beginEmpty();
    session.open(home.path("family.budget"));

    EXPECT_EQ(content(), expected);
    EXPECT_EQ(item(type, "Flat").amount, dollars(110));
}

std::string nameOf(::testing::TestParamInfo<BudgetItemTypes> const& kind)
{
    return presentationText(kind.param).toStdString();
}

INSTANTIATE_TEST_SUITE_P(EveryKind, PlanningChangesTest, ::testing::ValuesIn(everyKind), nameOf);

using PlanningTermsTest = PlanningTest;

TEST_F(PlanningTermsTest, ADebtBringsItsTermsAndItsBank)
{
    add(BudgetItemTypes::Debt, {.name = "Car loan", .further = dollars(9'000), .interest = {5.75, 2}},
        BankAccount{bank, {}, BankAccountTypes::Loan});

    expectAccepted("Car loan");
    auto const& debt = item(BudgetItemTypes::Debt, "Car loan");
    EXPECT_EQ(debt.debt, (engine::DebtTerms{dollars(9'000), {5.75, 2}}));
    EXPECT_EQ(session.household().keptAt(BudgetItemTypes::Debt),
              (std::set<tlm::navigation::BudgetBankAccount>{
                  {BudgetSource("Car loan"), {bank, debt.account, BankAccountTypes::Loan}}}));
    EXPECT_EQ(session.household().balance(debt.account), dollars(9'000)) << "what was borrowed is owed";
}

TEST_F(PlanningTermsTest, ADebtsInterestCanBeChanged)
{
    add(BudgetItemTypes::Debt, {"Car loan"});
    forget();

    update(BudgetItemTypes::Debt, {.name = "Car loan", .interest = {6.125, 3}});

    expectAccepted("Car loan");
    EXPECT_EQ(item(BudgetItemTypes::Debt, "Car loan").debt->interest, Percentage(6.125, 3));
}

TEST_F(PlanningTermsTest, AnInterestIsKeptWithTheDecimalsThatSaySomething)
{
    add(BudgetItemTypes::Debt, {.name = "Car loan", .interest = {5.75, 6}});
    add(BudgetItemTypes::Debt, {.name = "Student loan", .interest = {4.1255, 6}});
    add(BudgetItemTypes::Debt, {.name = "Family", .interest = {0.0, 6}});

    EXPECT_EQ(item(BudgetItemTypes::Debt, "Car loan").debt->interest, Percentage(5.75, 2));
    EXPECT_EQ(item(BudgetItemTypes::Debt, "Student loan").debt->interest, Percentage(4.1255, 4));
    EXPECT_EQ(item(BudgetItemTypes::Debt, "Family").debt->interest, Percentage(0.0, 2));
}

TEST_F(PlanningTermsTest, AGoalBringsItsFinalTotalAndWhereItIsStored)
{
    add(BudgetItemTypes::Goal, {.name = "Bicycle", .further = dollars(850)}, everyday);

    expectAccepted("Bicycle");
    EXPECT_EQ(item(BudgetItemTypes::Goal, "Bicycle").goalTotal, dollars(850));
    EXPECT_EQ(session.household().keptAt(BudgetItemTypes::Goal),
              (std::set<tlm::navigation::BudgetBankAccount>{{BudgetSource("Bicycle"), everyday}}));
}

TEST_F(PlanningTermsTest, AGoalsFinalTotalAndItsPlaceCanBeChanged)
{
    add(BudgetItemTypes::Goal, {.name = "Bicycle", .further = dollars(850)});
    forget();

    update(BudgetItemTypes::Goal, {.name = "Bicycle", .further = dollars(990)}, everyday);

    expectAccepted("Bicycle");
    EXPECT_EQ(item(BudgetItemTypes::Goal, "Bicycle").goalTotal, dollars(990));
    EXPECT_EQ(session.household().keptAt(BudgetItemTypes::Goal).size(), 1U);
}

TEST_F(PlanningTermsTest, AMonthEndStaysAMonthEndWhenOnlyTheAmountChanges)
{
    add(BudgetItemTypes::Bill, {.name = "Rent", .nextOccurOn = QDate(2026, 1, 31)});

    update(BudgetItemTypes::Bill, {.name = "Rent", .amount = dollars(110), .nextOccurOn = QDate(2026, 1, 31)});

    EXPECT_EQ(item(BudgetItemTypes::Bill, "Rent").anchoredOn, QDate(2026, 1, 31));
}
}
}
