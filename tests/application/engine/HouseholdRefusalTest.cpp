#include "HouseholdRefusalFixture.h"

#include <QDate>

#include <limits>

using fiscora::Currency;
using fiscora::FloatingPoint;
using fiscora::Money;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::EventFrequency;
using tlm::conversion::ConversionMap;
using tlm::foundation::Percentage;

namespace tallymere::engine {

namespace {

class ItemRefusalTest : public HouseholdRefusalTest
{
protected:
    void expectUnplannable(PlannedItem const& item, QString const& sentence)
    {
        expectRefused([&] { add(item); }, sentence);
        add(planned(item.identifier.type, "Something planned"));
        expectRefused([&] { change(named(item.identifier.type, "Something planned"), item); }, sentence);
        household.remove(named(item.identifier.type, "Something planned"));
    }
};

TEST_F(ItemRefusalTest, ANamelessItem)
{
    expectUnplannable(bill(""), "This bill has no name. Give it one by which you will know it.");
    expectUnplannable(planned(BudgetItemTypes::Wage, " \t "),
                      "This wage has no name. Give it one by which you will know it.");
}

TEST_F(ItemRefusalTest, AnItemOfNoType)
{
    expectRefused([&] { add(planned(BudgetItemTypes::None, "Rent")); },
                  "A budget item is a bill, a debt, a goal, a nontrack or a wage. Choose one of them.");
}

TEST_F(ItemRefusalTest, ANameThatNoAccountCanHave)
{
    auto const sentence = "The name of this bill holds signs that can't be shown, such as a line break, or a blank of "
                          "unusual width. Type the name anew.";

    expectUnplannable(bill("Rent\nof May"), sentence);
    expectUnplannable(bill("Rent\u2002of May"), sentence);
    add(bill("Rent"));
    expectRefused([&] { household.rename(named(BudgetItemTypes::Bill, "Rent"), BudgetSource("Re\tnt")); }, sentence);
}

TEST_F(ItemRefusalTest, ARenamingToNothingOrToAnotherItem)
{
    add(bill("Rent"));
    add(bill("Water"));

    expectRefused([&] { household.rename(named(BudgetItemTypes::Bill, "Water"), BudgetSource(" ")); },
                  "This bill has no name. Give it one by which you will know it.");
    expectRefused([&] { household.rename(named(BudgetItemTypes::Bill, "Water"), BudgetSource(" rent")); },
                  "Rent is planned already. Change that bill, or give this one another name.");
    expectRefused([&] { household.rename(named(BudgetItemTypes::Bill, "Gas"), BudgetSource("Heating")); },
                  "Gas isn't planned any more, so it can't be changed. Add it as a new bill.");
}

TEST_F(ItemRefusalTest, AnItemOfWhichItIsNotSaidHowOftenItHappens)
{
    auto once = bill("Rent");
    once.period = EventFrequency::None;

    expectUnplannable(once, "Rent has no frequency. Choose how often it happens.");
}

TEST_F(ItemRefusalTest, ANameThatIsPlannedAlready)
{
    add(bill("Rent"));
    add(bill("Water"));

    auto const sentence = "Rent is planned already. Change that bill, or give this one another name.";

    expectRefused([&] { add(bill("Rent")); }, sentence);
    expectRefused([&] { add(bill(" rENT ")); }, sentence);
    expectRefused([&] { change(named(BudgetItemTypes::Bill, "Water"), bill("rent")); }, sentence);
}

TEST_F(ItemRefusalTest, AnItemThatIsNotPlanned)
{
    add(planned(BudgetItemTypes::Wage, "Rent"));

    auto const sentence = "Rent isn't planned any more, so it can't be changed. Add it as a new bill.";

    expectRefused([&] { change(named(BudgetItemTypes::Bill, " Rent"), bill("Rent")); }, sentence);
    expectRefused([&] { household.remove(named(BudgetItemTypes::Bill, "Rent ")); }, sentence);
}

TEST_F(ItemRefusalTest, AnAmountOutsideOfTheUsableCurrencies)
{
    auto pounds = bill("Rent");
    pounds.amount = Money(Currency::GBP, 5, 0, 0);
    auto blank = bill("Rent");
    blank.amount = Money();

    expectUnplannable(pounds, "Rent can't be planned in GBP. Choose a usable currency, or make that one usable.");
    expectUnplannable(blank, "The amount of Rent has no currency. Choose one.");
}

TEST_F(ItemRefusalTest, AnAmountThatIsNotAboveZero)
{
    auto nothing = bill("Rent");
    nothing.amount = dollars(0);
    auto owed = bill("Rent");
    owed.amount = Money::fromAmount(Currency::USD, -1);

    auto const sentence = "The amount of Rent isn't above zero. Enter what it comes to each time.";

    expectUnplannable(nothing, sentence);
    expectUnplannable(owed, sentence);
}

TEST_F(ItemRefusalTest, AnAmountTooLargeForItsMonth)
{
    auto huge = bill("Rent");
    huge.amount = Money::fromAmount(Currency::USD, std::numeric_limits<long long>::max());
    huge.period = EventFrequency::Weekly;

    expectUnplannable(huge, "What Rent comes to per month is too large to count. Enter a smaller amount.");
}

TEST_F(ItemRefusalTest, ANextDateOutsideOfTheCalendar)
{
    for (auto const& day : {QDate(), QDate(10'000, 1, 1), QDate(-44, 3, 15)}) {
        auto undated = bill("Rent");
        undated.nextOccurOn = day;

        expectUnplannable(undated, "Rent has no day on which it is due next. Enter one.");
    }
}

TEST_F(ItemRefusalTest, ADebtOfNothingOrInAnotherCurrency)
{
    auto const sentence =
        "The sum borrowed for Car isn't above zero in the currency of its payments. Enter one that is.";

    for (auto const& borrowed : {dollars(0), dollars(-10), euros(5'000), Money()}) {
        auto debt = planned(BudgetItemTypes::Debt, "Car");
        debt.debt->borrowed = borrowed;

        expectUnplannable(debt, sentence);
    }
}

TEST_F(ItemRefusalTest, InterestThatIsNoPartOfAHundred)
{
    for (auto const rate : {-0.1, 100.1, std::numeric_limits<double>::quiet_NaN()}) {
        auto debt = planned(BudgetItemTypes::Debt, "Car");
        debt.debt->interest = Percentage(rate, 2);

        expectUnplannable(debt, "The interest on Car lies outside of 0% to 100%. Enter a rate between them.");
    }
}

TEST_F(ItemRefusalTest, AGoalOfNothingOrInAnotherCurrency)
{
    for (auto const& total : {dollars(0), dollars(-10), euros(5'000), Money()}) {
        auto goal = planned(BudgetItemTypes::Goal, "Bicycle");
        goal.goalTotal = total;

        expectUnplannable(goal,
                          "The final total of Bicycle isn't above zero in the currency of its amount. Enter one that "
                          "is.");
    }
}

TEST_F(ItemRefusalTest, TermsThatBelongToAnotherTypeAreAFaultOfTheProgram)
{
    auto bare = planned(BudgetItemTypes::Debt, "Car");
    bare.debt.reset();
    auto saved = bill("Rent");
    saved.goalTotal = dollars(5);

    EXPECT_THROW(add(bare), std::invalid_argument);
    EXPECT_THROW(add(saved), std::invalid_argument);

    EXPECT_TRUE(household.content().items.empty());
    EXPECT_EQ(store.transactions(), 0);
}

TEST_F(ItemRefusalTest, AnotherTypeIsAFaultOfTheProgram)
{
    add(bill("Rent"));
    auto const before = household.content();

    EXPECT_THROW(change(named(BudgetItemTypes::Bill, "Rent"), planned(BudgetItemTypes::Wage, "Rent")),
                 std::invalid_argument);

    EXPECT_EQ(household.content(), before);
}

TEST_F(ItemRefusalTest, APreferredCurrencyThatIsNotUsable)
{
    auto settings = household.content().settings;
    settings.preferred = Currency::GBP;

    expectRefused([&] { household.configure(settings); },
                  "The preferred currency GBP isn't usable. Make it usable, or prefer another one.");
}

TEST_F(ItemRefusalTest, NoCurrencyAmongTheUsableOnes)
{
    auto settings = household.content().settings;
    settings.usable.insert(Currency::XXX);

    expectRefused([&] { household.configure(settings); },
                  "XXX stands for no currency. Choose usable currencies without it.");
}

TEST_F(ItemRefusalTest, DroppingACurrencyThatAnItemIsPlannedIn)
{
    auto paper = bill("Newspaper");
    paper.amount = euros(12);
    add(paper);
    auto settings = household.content().settings;
    settings.usable = {Currency::USD};

    expectRefused([&] { household.configure(settings); },
                  "Newspaper is planned in EUR. Keep that currency usable, or plan Newspaper in another one first.");
}

TEST_F(ItemRefusalTest, NumbersOutsideOfTheirRanges)
{
    auto const refuse = [&](auto alter, QString const& sentence) {
        auto settings = household.content().settings;
        alter(settings);
        expectRefused([&] { household.configure(settings); }, sentence);
    };
    using std::chrono::days;
    using std::chrono::hours;

    refuse([](auto& settings) { settings.workingWeek.hours = hours(0); },
           "A week of 0 working hours can't be. Enter 1 to 168 hours.");
    refuse([](auto& settings) { settings.workingWeek.hours = hours(169); },
           "A week of 169 working hours can't be. Enter 1 to 168 hours.");
    refuse([](auto& settings) { settings.workingWeek.days = days(0); },
           "A week of 0 working days can't be. Enter 1 to 7 days.");
    refuse([](auto& settings) { settings.workingWeek.days = days(8); },
           "A week of 8 working days can't be. Enter 1 to 7 days.");
    refuse([](auto& settings) { settings.dueWithin = days(-1); },
           "Items can't be announced -1 days before they are due. Enter 0 to 60 days.");
    refuse([](auto& settings) { settings.dueWithin = days(61); },
           "Items can't be announced 61 days before they are due. Enter 0 to 60 days.");
    for (auto const rate : {-0.5, 100.5, std::numeric_limits<double>::quiet_NaN()}) {
        refuse([rate](auto& settings) { settings.balanceWindow = Percentage(rate, 2); },
               "The balance window of a survey lies outside of 0% to 100%. Enter a percentage between them.");
    }
}

TEST_F(ItemRefusalTest, RatesThatAreNone)
{
    for (auto const rate : {0.0, -1.0, std::numeric_limits<double>::infinity()}) {
        ConversionMap rates;
        rates.rates()[Currency::EUR].emplace(Currency::USD, FloatingPoint(rate));

        expectRefused([&] { household.setRates(rates); },
                      "The rate from EUR to USD isn't a number above zero. Enter what one EUR is worth in USD.");
    }
    ConversionMap none;
    none.rates()[Currency::XXX].emplace(Currency::USD, FloatingPoint(1.0));
    expectRefused([&] { household.setRates(none); }, "XXX stands for no currency, so it has no rate. Leave it out.");
}

using DamagedContentTest = HouseholdRefusalTest;

TEST_F(DamagedContentTest, NamesThatDifferInCaseOnly)
{
    auto const content = planning({bill("Rent"), bill(" rent")}).content;

    expectDamaged(content, "Rent is planned already. Change that bill, or give this one another name.");
}

TEST_F(DamagedContentTest, AnItemDueBeforeItsAnchor)
{
    auto rent = bill("Rent");
    rent.anchoredOn = rent.nextOccurOn.addDays(1);

    expectDamaged(planning({rent}).content, "Rent is due before it began. Its dates are damaged.");
}

TEST_F(DamagedContentTest, WhateverAChangeWouldBeRefusedFor)
{
    auto content = dollarsAndEuros();
    content.settings.workingWeek.days = std::chrono::days(0);

    expectDamaged(content, "A week of 0 working days can't be. Enter 1 to 7 days.");
    EXPECT_EQ(tlm::budgeting::workingWeek().days, std::chrono::days(5));
}
}
}
