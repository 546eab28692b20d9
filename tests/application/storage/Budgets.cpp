#include "Budgets.h"

using fiscora::Currency;
using fiscora::FloatingPoint;
using fiscora::Money;
using tallymere::engine::BudgetContent;
using tallymere::engine::DebtTerms;
using tallymere::engine::PlannedItem;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::EventFrequency;
using tlm::foundation::Percentage;

namespace tallymere::storage::testing {

namespace {

PlannedItem item(BudgetItemTypes type, QString const& source, Money const& amount, EventFrequency period)
{
    return {.identifier = {type, BudgetSource(source)},
            .amount = amount,
            .period = period,
            .anchoredOn = QDate(2026, 1, 31),
            .nextOccurOn = QDate(2026, 2, 28),
            .debt = {},
            .goalTotal = {}};
}

void plan(BudgetContent& content, PlannedItem const& planned)
{
    content.items.emplace(planned.identifier, planned);
}

engine::Settings settings()
{
    return {.preferred = Currency::EUR,
            .usable = {Currency::EUR, Currency::JPY, Currency::KWD},
            .displayAs = tlm::navigation::CurrencyDisplayOptions::NameAndCode,
            .balanceWindow = Percentage(2.5, 1),
            .dueWithin = std::chrono::days(14),
            .workingWeek = {.hours = std::chrono::hours(38), .days = std::chrono::days(4)}};
}
}

BudgetContent household()
{
    BudgetContent content{.settings = settings(), .rates = {}, .items = {}};
    content.rates.updateConversion(Currency::JPY, Currency::EUR, FloatingPoint(0.00613), {.value = true});
    content.rates.updateConversion(Currency::KWD, Currency::EUR, FloatingPoint(3.0 + 1.0 / 3.0), {.value = false});
    content.rates.setLastFetched(decltype(content.rates)::TimePoint(std::chrono::seconds(1'770'000'000)));
    plan(content, item(BudgetItemTypes::Bill, "Rent", Money(Currency::EUR, 950, 0, 0), EventFrequency::Monthly));
    plan(content,
         item(BudgetItemTypes::Nontrack, "Groceries", Money(Currency::JPY, 9'000, 0, 0), EventFrequency::Weekly));
    plan(content, item(BudgetItemTypes::Wage, "Café «Zur Straße»", Money(Currency::KWD, 812, 345, 67),
                       EventFrequency::EveryFourWeeks));
    auto debt = item(BudgetItemTypes::Debt, "Car", Money(Currency::EUR, 210, 50, 0), EventFrequency::Monthly);
    debt.debt = DebtTerms{.borrowed = Money(Currency::EUR, 12'000, 0, 0), .interest = Percentage(4.25, 2)};
    plan(content, debt);
    auto goal = item(BudgetItemTypes::Goal, "Rent", Money(Currency::EUR, 50, 0, 0), EventFrequency::None);
    goal.goalTotal = Money(Currency::EUR, 1'000, 0, 0);
    plan(content, goal);
    return content;
}

PlannedItem numberedBill(int number)
{
    return item(BudgetItemTypes::Bill, QStringLiteral("Bill %1").arg(number), Money(Currency::EUR, number + 1, 0, 0),
                EventFrequency::Monthly);
}

BudgetContent billsOnly(int count)
{
    BudgetContent content{.settings = settings(), .rates = {}, .items = {}};
    for (auto number = 0; number < count; ++number) {
        plan(content, numberedBill(number));
    }
    return content;
}

void plan(Document& document, PlannedItem const& item)
{
    document.transact([&] { document.add(item); });
}
}
