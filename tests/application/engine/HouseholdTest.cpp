#include "HouseholdFixture.h"

#include <tlm/foundation/Error.h>

using fiscora::Currency;
using fiscora::FloatingPoint;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::EventFrequency;
using tlm::foundation::Error;

namespace tallymere::engine {

namespace {

TEST_F(HouseholdTest, APlannedItemIsKeptAndStoredAlike)
{
    auto const rent = bill("Rent");

    add(rent);

    auto expected = rent;
    expected.account = item(BudgetItemTypes::Bill, "Rent").account;
    EXPECT_EQ(household.content().items.at(rent.identifier), expected);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(HouseholdTest, EachChangeIsOneTransaction)
{
    add(bill("Rent"));
    change(named(BudgetItemTypes::Bill, "Rent"), bill("Flat"));
    household.rename(named(BudgetItemTypes::Bill, "Flat"), tlm::budgeting::BudgetSource("House"));
    household.configure(household.content().settings);
    household.setRates({});
    household.remove(named(BudgetItemTypes::Bill, "House"));

    EXPECT_EQ(store.transactions(), 6);
}

TEST_F(HouseholdTest, SurroundingBlanksAreNoPartOfAName)
{
    add(bill("  Rent\t"));

    EXPECT_TRUE(household.content().items.contains(named(BudgetItemTypes::Bill, "Rent")));
}

TEST_F(HouseholdTest, LettersAreComposedSoThatTheyAreFoundAsTyped)
{
    add(bill(QString::fromUtf8("Cafe\xCC\x81")));

    EXPECT_TRUE(household.content().items.contains(named(BudgetItemTypes::Bill, QString::fromUtf8("Caf\xC3\xA9"))));
}

TEST_F(HouseholdTest, ANewItemsRhythmCountsFromItsNextOccurrence)
{
    auto rent = bill("Rent");
    rent.anchoredOn = {2020, 3, 15};

    add(rent);

    EXPECT_EQ(household.content().items.at(rent.identifier).anchoredOn, rent.nextOccurOn);
}

TEST_F(HouseholdTest, ARenamedItemKeepsItsRhythm)
{
    auto rent = bill("Rent");
    rent.nextOccurOn = {2025, 2, 28}; // January's is paid
    auto const budget = planning({rent});
    MemoryStore kept(budget);
    Household paid(budget.content, kept);
    auto flat = bill("Flat");
    flat.nextOccurOn = {2025, 2, 28};
    flat.anchoredOn = {2025, 2, 28};
    flat.amount = dollars(120);

    paid.change(rent.identifier, flat, std::nullopt);

    ASSERT_EQ(paid.content().items.size(), 1U);
    EXPECT_EQ(paid.content().items.at(flat.identifier).anchoredOn, QDate(2025, 1, 31));
    EXPECT_EQ(paid.content().items.at(flat.identifier).amount, dollars(120));
    EXPECT_EQ(kept.kept(), paid.content());
}

TEST_F(HouseholdTest, AnotherNextDateStartsTheRhythmAnew)
{
    add(bill("Rent"));
    auto later = bill("Rent");
    later.nextOccurOn = {2025, 2, 15};

    change(later.identifier, later);

    EXPECT_EQ(household.content().items.at(later.identifier).anchoredOn, QDate(2025, 2, 15));
}

TEST_F(HouseholdTest, AnotherPeriodStartsTheRhythmAnew)
{
    auto rent = bill("Rent");
    rent.nextOccurOn = {2025, 2, 28};
    auto const budget = planning({rent});
    MemoryStore kept(budget);
    Household paid(budget.content, kept);
    rent.period = EventFrequency::Quarterly;

    paid.change(rent.identifier, rent, std::nullopt);

    EXPECT_EQ(paid.content().items.at(rent.identifier).anchoredOn, QDate(2025, 2, 28));
}

TEST_F(HouseholdTest, AnItemIsFoundWhateverItsCaseAndBlanks)
{
    add(bill("Rent"));

    change(named(BudgetItemTypes::Bill, " rent "), bill("RENT"));
    household.remove(named(BudgetItemTypes::Bill, "rEnT"));

    EXPECT_TRUE(household.content().items.empty());
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(HouseholdTest, TypesMayShareAName)
{
    add(bill("Car"));
    add(planned(BudgetItemTypes::Debt, "Car"));

    EXPECT_EQ(household.content().items.size(), 2U);
}

TEST_F(HouseholdTest, SettingsAreTakenOverAndStored)
{
    auto settings = household.content().settings;
    settings.preferred = Currency::EUR;
    settings.dueWithin = std::chrono::days(60);
    settings.workingWeek = {std::chrono::hours(168), std::chrono::days(7)};

    household.configure(settings);

    EXPECT_EQ(household.content().settings, settings);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(HouseholdTest, EveryUsableCurrencyIsWorthItself)
{
    auto settings = household.content().settings;
    settings.usable.insert(Currency::GBP);
    tlm::conversion::ConversionMap odd;
    odd.updateConversion(Currency::GBP, Currency::GBP, FloatingPoint(2.0), {});

    household.configure(settings);
    auto const configured = household.content().rates;
    household.setRates(odd);

    EXPECT_EQ(configured.conversion(Currency::GBP, Currency::GBP), FloatingPoint(1.0));
    EXPECT_EQ(household.content().rates.conversion(Currency::GBP, Currency::GBP), FloatingPoint(1.0));
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(HouseholdTest, TheProcessTotalsByTheLastHouseholdsRatesAndWeek)
{
    auto content = dollarsAndEuros();
    content.rates.updateConversion(Currency::EUR, Currency::USD, FloatingPoint(1.5), {});
    content.settings.workingWeek = {std::chrono::hours(20), std::chrono::days(4)};

    Household const opened(content, store);

    EXPECT_EQ(fiscora::convert(euros(2), Currency::USD), dollars(3));
    EXPECT_EQ(tlm::budgeting::workingWeek().hours, std::chrono::hours(20));
}

/// The content must not run ahead of what is kept.
TEST_F(HouseholdTest, AFailingStoreLeavesTheContentAsItWas)
{
    add(bill("Rent"));
    auto const before = household.content();
    auto settings = before.settings;
    settings.dueWithin = std::chrono::days(3);
    store.setFull(true);

    EXPECT_THROW(add(bill("Water")), std::runtime_error);
    EXPECT_THROW(change(named(BudgetItemTypes::Bill, "Rent"), bill("Flat")), std::runtime_error);
    EXPECT_THROW(household.rename(named(BudgetItemTypes::Bill, "Rent"), tlm::budgeting::BudgetSource("Flat")),
                 std::runtime_error);
    EXPECT_THROW(household.remove(named(BudgetItemTypes::Bill, "Rent")), std::runtime_error);
    EXPECT_THROW(household.configure(settings), std::runtime_error);
    EXPECT_THROW(setRate(Currency::EUR, Currency::USD, 1.2), std::runtime_error);

    EXPECT_EQ(household.content(), before);
    EXPECT_EQ(fiscora::convert(euros(1), Currency::USD), std::nullopt);
}
}
}
