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

    household.add(rent);

    EXPECT_EQ(household.content().items.at(rent.identifier), rent);
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(HouseholdTest, EachChangeIsOneTransaction)
{
    household.add(bill("Rent"));
    household.change(named(BudgetItemTypes::Bill, "Rent"), bill("Flat"));
    household.configure(household.content().settings);
    household.setRates({});
    household.remove(named(BudgetItemTypes::Bill, "Flat"));

    EXPECT_EQ(store.transactions(), 5);
}

TEST_F(HouseholdTest, SurroundingBlanksAreNoPartOfAName)
{
    household.add(bill("  Rent\t"));

    EXPECT_TRUE(household.content().items.contains(named(BudgetItemTypes::Bill, "Rent")));
}

TEST_F(HouseholdTest, LettersAreComposedSoThatTheyAreFoundAsTyped)
{
    household.add(bill(QString::fromUtf8("Cafe\xCC\x81")));

    EXPECT_TRUE(household.content().items.contains(named(BudgetItemTypes::Bill, QString::fromUtf8("Caf\xC3\xA9"))));
}

TEST_F(HouseholdTest, ANewItemsRhythmCountsFromItsNextOccurrence)
{
    auto rent = bill("Rent");
    rent.anchoredOn = {2020, 3, 15};

    household.add(rent);

    EXPECT_EQ(household.content().items.at(rent.identifier).anchoredOn, rent.nextOccurOn);
}

TEST_F(HouseholdTest, ARenamedItemKeepsItsRhythm)
{
    auto content = dollarsAndEuros();
    auto rent = bill("Rent");
    rent.nextOccurOn = {2025, 2, 28}; // January's is paid
    content.items.emplace(rent.identifier, rent);
    MemoryStore kept(content);
    Household paid(content, kept);
    auto flat = bill("Flat");
    flat.nextOccurOn = {2025, 2, 28};
    flat.anchoredOn = {2025, 2, 28};
    flat.amount = dollars(120);

    paid.change(rent.identifier, flat);

    ASSERT_EQ(paid.content().items.size(), 1U);
    EXPECT_EQ(paid.content().items.at(flat.identifier).anchoredOn, QDate(2025, 1, 31));
    EXPECT_EQ(paid.content().items.at(flat.identifier).amount, dollars(120));
    EXPECT_EQ(kept.kept(), paid.content());
}

TEST_F(HouseholdTest, AnotherNextDateStartsTheRhythmAnew)
{
    household.add(bill("Rent"));
    auto later = bill("Rent");
    later.nextOccurOn = {2025, 2, 15};

    household.change(later.identifier, later);

    EXPECT_EQ(household.content().items.at(later.identifier).anchoredOn, QDate(2025, 2, 15));
}

TEST_F(HouseholdTest, AnotherPeriodStartsTheRhythmAnew)
{
    auto content = dollarsAndEuros();
    auto rent = bill("Rent");
    rent.nextOccurOn = {2025, 2, 28};
    content.items.emplace(rent.identifier, rent);
    MemoryStore kept(content);
    Household paid(content, kept);
    rent.period = EventFrequency::Quarterly;

    paid.change(rent.identifier, rent);

    EXPECT_EQ(paid.content().items.at(rent.identifier).anchoredOn, QDate(2025, 2, 28));
}

TEST_F(HouseholdTest, AnItemIsFoundWhateverItsCaseAndBlanks)
{
    household.add(bill("Rent"));

    household.change(named(BudgetItemTypes::Bill, " rent "), bill("RENT"));
    household.remove(named(BudgetItemTypes::Bill, "rEnT"));

    EXPECT_TRUE(household.content().items.empty());
    EXPECT_EQ(store.kept(), household.content());
}

TEST_F(HouseholdTest, TypesMayShareAName)
{
    household.add(bill("Car"));
    household.add(planned(BudgetItemTypes::Debt, "Car"));

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
    household.add(bill("Rent"));
    auto const before = household.content();
    auto settings = before.settings;
    settings.dueWithin = std::chrono::days(3);
    store.setFull(true);

    EXPECT_THROW(household.add(bill("Water")), std::runtime_error);
    EXPECT_THROW(household.change(named(BudgetItemTypes::Bill, "Rent"), bill("Flat")), std::runtime_error);
    EXPECT_THROW(household.remove(named(BudgetItemTypes::Bill, "Rent")), std::runtime_error);
    EXPECT_THROW(household.configure(settings), std::runtime_error);
    EXPECT_THROW(setRate(Currency::EUR, Currency::USD, 1.2), std::runtime_error);

    EXPECT_EQ(household.content(), before);
    EXPECT_EQ(fiscora::convert(euros(1), Currency::USD), std::nullopt);
}
}
}
