#include "engine/Household.h"

#include "Chart.h"
#include "HouseholdRules.h"
#include "ItemAccounts.h"
#include "Plan.h"

#include <fiscora/Conversions.h>
#include <tlm/budgeting/WorkingWeek.h>

#include <stdexcept>
#include <utility>

using fiscora::Currency;
using fiscora::FloatingPoint;
using tlm::banking::BankAccount;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::conversion::ConversionMap;

namespace tallymere::engine {

namespace {

/// One unit of a currency is worth itself: the table of rates is whole only with its diagonal.
ConversionMap withDiagonal(ConversionMap rates, std::set<Currency> const& usable)
{
    for (auto const code : usable) {
        rates.updateConversion(code, code, FloatingPoint(1.0), {});
    }
    return rates;
}

void checkKept(BudgetItemTypes type, std::optional<BankAccount> const& keptAt)
{
    if (keptAt && type != BudgetItemTypes::Debt && type != BudgetItemTypes::Goal) {
        throw std::invalid_argument("Debts and goals alone are kept at banks.");
    }
}
}

Household::Household(BudgetContent content, Store& store) : content_(std::move(content)), store_(store)
{
    rules::check(content_);
    chart_ = std::make_unique<Chart>(content_.books);
    plan_ = std::make_unique<Plan>(content_.items);
    countInProcess();
}

Household::~Household() = default;

BudgetContent const& Household::content() const
{
    return content_;
}

void Household::add(PlannedItem item, std::optional<BankAccount> const& keptAt, QDate const& openedOn)
{
    item.identifier = rules::tidied(item.identifier);
    item.anchoredOn = item.nextOccurOn;
    item.account = {};
    check(item);
    rules::checkName(item.identifier);
    checkUnused(item.identifier, nullptr);
    checkKept(item.identifier.type, keptAt);
    auto draft = chart_->draft();
    item.account = ItemAccounts(*chart_, *plan_).open(draft, item, keptAt, openedOn);
    Plan::Addition addition(item); // made first: nothing can fail any more once the item is stored

    store_.transact([&] { draft.store(store_, [&] { store_.add(item); }); });
    plan_->take(addition);
    chart_->take(draft);
}

void Household::change(BudgetItemIdentifier const& original, PlannedItem item, std::optional<BankAccount> const& keptAt)
{
    auto const& before = planned(original);
    auto const keepsRhythm = item.period == before.period && item.nextOccurOn == before.nextOccurOn;
    item.identifier = rules::tidied(item.identifier);
    item.anchoredOn = keepsRhythm ? before.anchoredOn : item.nextOccurOn;
    item.account = before.account;
    if (item.identifier.type != before.identifier.type) {
        throw std::invalid_argument("An item keeps its type.");
    }
    check(item);
    if (item.identifier != before.identifier) {
        rules::checkName(item.identifier);
        checkUnused(item.identifier, &before);
    }
    checkKept(item.identifier.type, keptAt);
    auto draft = chart_->draft();
    ItemAccounts(*chart_, *plan_).follow(draft, before, item, keptAt);
    replace(before, item, draft);
}

void Household::rename(BudgetItemIdentifier const& original, BudgetSource const& changed)
{
    auto const& before = planned(original);
    auto after = before;
    after.identifier = rules::tidied({before.identifier.type, changed});
    rules::checkNamed(after.identifier);
    rules::checkName(after.identifier);
    checkUnused(after.identifier, &before);
    auto draft = chart_->draft();
    ItemAccounts(*chart_, *plan_).follow(draft, before, after, std::nullopt);
    replace(before, after, draft);
}

void Household::remove(BudgetItemIdentifier const& identifier)
{
    auto const& item = planned(identifier);
    auto const account = item.account;
    auto draft = chart_->draft();
    ItemAccounts(*chart_, *plan_).drop(draft, item, store_);

    store_.transact([&] { draft.store(store_, [&] { store_.remove(item.identifier); }); });
    plan_->drop(account);
    chart_->take(draft);
}

void Household::configure(Settings settings)
{
    rules::check(settings, content_.items);
    auto rates = withDiagonal(content_.rates, settings.usable);

    store_.transact([&] {
        store_.write(settings);
        store_.write(rates);
    });
    content_.settings = std::move(settings);
    content_.rates = std::move(rates);
    countInProcess();
}

void Household::setRates(ConversionMap rates)
{
    rules::check(rates);
    rates = withDiagonal(std::move(rates), content_.settings.usable);

    store_.transact([&] { store_.write(rates); });
    content_.rates = std::move(rates);
    countInProcess();
}

/// \return the item of that name
/// \throws foundation::Error when nothing of that name is planned
PlannedItem const& Household::planned(BudgetItemIdentifier const& identifier) const
{
    auto const* const found = plan_->find(identifier);
    if (found == nullptr) {
        rules::refuseUnknown(rules::tidied(identifier));
    }
    return *found;
}

void Household::check(PlannedItem const& item) const
{
    rules::check(item, content_.settings);
    rules::checkRegular(item);
    rules::checkSize(item);
}

/// \param replaced the item that may have the name, none for none
void Household::checkUnused(BudgetItemIdentifier const& name, PlannedItem const* replaced) const
{
    auto const* const namesake = plan_->find(name);
    if (namesake != nullptr && namesake != replaced) {
        rules::refuseTwice(namesake->identifier);
    }
}

void Household::replace(PlannedItem const& before, PlannedItem const& after, BooksDraft& draft)
{
    Plan::Addition addition(after);

    store_.transact([&] { draft.store(store_, [&] { store_.change(before.identifier, after); }); });
    plan_->drop(after.account);
    plan_->take(addition);
    chart_->take(draft);
}

/// Views total by the process's rates and working week: makes them this budget's.
void Household::countInProcess() const
{
    setWorkingWeek(content_.settings.workingWeek);
    fiscora::clearConversions();
    for (auto const& [from, row] : content_.rates.rates()) {
        for (auto const& [to, rate] : row) {
            if (from != to) {
                fiscora::registerConversion(from, to, rate);
            }
        }
    }
}
}
