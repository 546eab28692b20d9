#include "HouseholdFixture.h"
#include "Picks.h"

#include <QDate>

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <functional>
#include <optional>
#include <rapidcheck/gtest.h>
#include <set>
#include <vector>

using fiscora::Currency;
using fiscora::FloatingPoint;
using fiscora::Money;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::EventFrequency;
using tlm::conversion::ConversionMap;

namespace tallymere::engine {

namespace {

/// A way to spell a name, and which names are one and the same.
struct Spelling
{
    QString typed;
    QString kept;
    int name; ///< 0 is no name
};

std::vector<Spelling> const spellings{{"", "", 0},
                                      {" \t", "", 0},
                                      {"Rent", "Rent", 1},
                                      {" rent ", "rent", 1},
                                      {"RENT\n", "RENT", 1},
                                      {"Water", "Water", 2},
                                      {"wATER", "wATER", 2},
                                      {"\u00C4rzte", "\u00C4rzte", 3},
                                      {"\u00E4rzte", "\u00E4rzte", 3}};

/// What a person typed for one item.
struct Typed
{
    BudgetItemTypes type;
    Spelling spelling;
    PlannedItem item;

    BudgetItemIdentifier kept() const { return {type, BudgetSource(spelling.kept)}; }
};

Typed anyItem()
{
    auto const type = static_cast<BudgetItemTypes>(pick(1, 4));
    auto const spelling = anyOf(spellings);
    auto item = planned(type, spelling.typed);
    item.amount = anyOf<Money>({dollars(100), dollars(3, 50), dollars(20), euros(7), dollars(0), -dollars(1), Money()});
    item.period = static_cast<EventFrequency>(pick(0, 22));
    item.nextOccurOn = anyOf<QDate>({QDate(2025, 1, 31), QDate(2025, 2, 28), QDate(2024, 2, 29), QDate()});
    item.anchoredOn = anyOf<QDate>({QDate(2020, 5, 5), QDate()});
    if (item.debt) {
        item.debt->borrowed = anyOf<Money>({dollars(500), euros(20), euros(0)});
    }
    if (item.goalTotal) {
        item.goalTotal = anyOf<Money>({dollars(500), euros(20), euros(0)});
    }
    return {type, spelling, item};
}

Settings anySettings()
{
    auto settings = dollarsAndEuros().settings;
    settings.usable = anyOf<std::set<Currency>>(
        {{Currency::USD}, {Currency::EUR}, {Currency::USD, Currency::EUR}, {Currency::USD, Currency::XXX}});
    settings.preferred = anyOf<Currency>({Currency::USD, Currency::USD, Currency::EUR});
    settings.workingWeek.hours = std::chrono::hours(anyOf<int>({0, 1, 40, 168, 169}));
    settings.workingWeek.days = std::chrono::days(anyOf<int>({0, 1, 5, 7, 8}));
    settings.dueWithin = std::chrono::days(anyOf<int>({-1, 0, 14, 60, 61}));
    return settings;
}

ConversionMap ratesOf(double rate)
{
    ConversionMap rates;
    rates.rates()[Currency::EUR].emplace(Currency::USD, FloatingPoint(rate));
    return rates;
}

/// The rules as a list of conditions; a change that is refused makes nothing.
class Model
{
public:
    std::optional<BudgetContent> add(Typed const& typed) const
    {
        if (!isPlannable(typed) || find(typed.type, typed.spelling.name)) {
            return std::nullopt;
        }
        auto changed = content;
        place(changed, typed, typed.item.nextOccurOn);
        return changed;
    }

    std::optional<BudgetContent> change(Typed const& original, Typed const& typed) const
    {
        auto const before = find(original.type, original.spelling.name);
        auto const namesake = find(typed.type, typed.spelling.name);
        if (!before || original.type != typed.type || !isPlannable(typed) || (namesake && namesake != before)) {
            return std::nullopt;
        }
        if (typed.item.debt && typed.item.debt->borrowed != content.items.at(*before).debt->borrowed) {
            return std::nullopt;
        }
        auto changed = content;
        changed.items.erase(*before);
        auto const& stood = content.items.at(*before);
        auto const isSameRhythm = stood.period == typed.item.period && stood.nextOccurOn == typed.item.nextOccurOn;
        place(changed, typed, isSameRhythm ? stood.anchoredOn : typed.item.nextOccurOn);
        return changed;
    }

    std::optional<BudgetContent> remove(Typed const& typed) const
    {
        auto const found = find(typed.type, typed.spelling.name);
        if (!found) {
            return std::nullopt;
        }
        auto changed = content;
        changed.items.erase(*found);
        return changed;
    }

    std::optional<BudgetContent> configure(Settings const& settings) const
    {
        auto const hours = settings.workingWeek.hours.count();
        auto const days = settings.workingWeek.days.count();
        auto const notice = settings.dueWithin.count();
        auto const isUsed = [&](auto const& entry) { return settings.usable.count(entry.second.amount.code()) == 1; };
        if (hours < 1 || hours > 168 || days < 1 || days > 7 || notice < 0 || notice > 60 ||
            settings.usable.count(Currency::XXX) == 1 || settings.usable.count(settings.preferred) == 0 ||
            !std::all_of(content.items.begin(), content.items.end(), isUsed)) {
            return std::nullopt;
        }
        auto changed = content;
        changed.settings = settings;
        completeRates(changed);
        return changed;
    }

    std::optional<BudgetContent> setRates(double rate) const
    {
        if (rate <= 0.0) {
            return std::nullopt;
        }
        auto changed = content;
        changed.rates = ratesOf(rate);
        completeRates(changed);
        return changed;
    }

    BudgetContent content = dollarsAndEuros();

private:
    bool isPlannable(Typed const& typed) const
    {
        auto const& item = typed.item;
        auto const isFine = [&](Money const& money) { return money.code() == item.amount.code() && money > 0; };
        return typed.spelling.name != 0 && content.settings.usable.count(item.amount.code()) == 1 && item.amount > 0 &&
               item.period != EventFrequency::None && item.nextOccurOn.isValid() &&
               (!item.debt || isFine(item.debt->borrowed)) && (!item.goalTotal || isFine(*item.goalTotal));
    }

    std::optional<BudgetItemIdentifier> find(BudgetItemTypes type, int name) const
    {
        for (auto const& spelling : spellings) {
            BudgetItemIdentifier const identifier{type, BudgetSource(spelling.kept)};
            if (spelling.name == name && content.items.count(identifier) == 1) {
                return identifier;
            }
        }
        return std::nullopt;
    }

    static void completeRates(BudgetContent& changed)
    {
        for (auto const code : changed.settings.usable) {
            changed.rates.rates()[code].insert_or_assign(code, FloatingPoint(1.0));
        }
    }

    static void place(BudgetContent& changed, Typed const& typed, QDate const& anchor)
    {
        auto item = typed.item;
        item.identifier = typed.kept();
        item.anchoredOn = anchor;
        changed.items.emplace(item.identifier, item);
    }
};

/// A change, and what the model makes of it: nothing when it has to be refused.
struct Step
{
    std::function<void(Household&)> change;
    std::optional<BudgetContent> expected;
};

Step anyStep(Model const& model)
{
    auto const typed = anyItem();
    auto const other = anyItem();
    auto const settings = anySettings();
    auto const rate = anyOf<double>({1.25, 0.5, 0.0, -2.0});
    switch (pick(0, 8)) {
    case 0:
    case 1:
        return {[=](Household& household) { household.change(other.item.identifier, typed.item, std::nullopt); },
                model.change(other, typed)};
    case 2:
        return {[=](Household& household) { household.setRates(ratesOf(rate)); }, model.setRates(rate)};
    case 3:
        return {[=](Household& household) { household.configure(settings); }, model.configure(settings)};
    case 4:
        return {[=](Household& household) { household.remove(typed.item.identifier); }, model.remove(typed)};
    default:
        return {[=](Household& household) { household.add(typed.item, std::nullopt, QDate(2025, 5, 1)); },
                model.add(typed)};
    }
}

bool isAccepted(Household& household, Step const& step)
{
    try {
        step.change(household);
        return true;
    } catch (std::exception const&) {
        return false;
    }
}

/// \return \a content without its books
BudgetContent plan(BudgetContent content)
{
    content.books = {};
    for (auto& [identifier, item] : content.items) {
        item.account = {};
    }
    return content;
}

class HouseholdProperty : public HouseholdTest
{};

RC_GTEST_FIXTURE_PROP(HouseholdProperty, AnyChangesLeaveWhatTheModelTellsInMemoryAndInTheStore, ())
{
    Model model;
    model.content = dollarsAndEuros();
    model.content.rates.updateConversion(Currency::EUR, Currency::EUR, FloatingPoint(1.0), {});
    MemoryStore kept(model.content);
    Household lived(model.content, kept);
    auto const steps = pick(1, 60);

    for (auto count = 0; count < steps; ++count) {
        auto const step = anyStep(model);
        auto const isFull = pick(0, 8) == 0;
        auto const transactions = kept.transactions();
        kept.setFull(isFull);

        auto const accepted = isAccepted(lived, step);

        RC_ASSERT(accepted == (step.expected.has_value() && !isFull));
        RC_ASSERT(kept.transactions() - transactions == (step.expected ? 1 : 0));
        model.content = accepted ? *step.expected : model.content;
        RC_ASSERT(plan(lived.content()) == model.content);
        RC_ASSERT(kept.kept() == lived.content());
    }
}
}
}
