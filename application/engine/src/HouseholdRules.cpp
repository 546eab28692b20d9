#include "HouseholdRules.h"

#include "BookRules.h"
#include "PostingRules.h"
#include "Refuse.h"

#include <fiscora/Currency.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/budgeting/Accumulate.h>
#include <tlm/foundation/Error.h>
#include <tlm/foundation/PresentationText.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <stdexcept>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::budgeting::BudgetItemIdentifier;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::EventFrequency;
using tlm::conversion::ConversionMap;
using tlm::foundation::Error;
using tlm::foundation::Percentage;
using tlm::foundation::presentationText;

namespace tallymere::engine::rules {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("HouseholdRules", text);
}

void require(bool isMet, QString const& refusal)
{
    if (!isMet) {
        throw Error(refusal);
    }
}

bool isFrom(qint64 least, qint64 most, qint64 number)
{
    return least <= number && number <= most;
}

bool isPartOfHundred(Percentage const& percentage)
{
    return percentage.rate() >= 0.0 && percentage.rate() <= 100.0; // false for a NaN
}

void checkCurrencies(Settings const& settings)
{
    require(!settings.usable.contains(Currency::XXX),
            tr("XXX stands for no currency. Choose usable currencies without it."));
    require(settings.usable.contains(settings.preferred),
            tr("The preferred currency %1 isn't usable. Make it usable, or prefer another one.")
                .arg(presentationText(settings.preferred)));
}

void checkNumbers(Settings const& settings)
{
    auto const hours = settings.workingWeek.hours.count();
    auto const days = settings.workingWeek.days.count();
    auto const dueWithin = settings.dueWithin.count();
    require(isFrom(1, 168, hours), tr("A week of %1 working hours can't be. Enter 1 to 168 hours.").arg(hours));
    require(isFrom(1, 7, days), tr("A week of %1 working days can't be. Enter 1 to 7 days.").arg(days));
    require(isFrom(0, 60, dueWithin),
            tr("Items can't be announced %1 days before they are due. Enter 0 to 60 days.").arg(dueWithin));
    require(isPartOfHundred(settings.balanceWindow),
            tr("The balance window of a survey lies outside of 0% to 100%. Enter a percentage between them."));
}

void checkUsed(Settings const& settings, PlannedItems const& items)
{
    for (auto const& [identifier, item] : items) {
        require(settings.usable.contains(item.amount.code()),
                tr("%1 is planned in %2. Keep that currency usable, or plan %1 in another one first.")
                    .arg(identifier.source.name(), presentationText(item.amount.code())));
    }
}

/// \param terms of money that belongs to the item beside its amount
void checkFurther(Money const& terms, PlannedItem const& item, QString const& refusal)
{
    require(terms.code() == item.amount.code() && terms > 0, refusal.arg(item.identifier.source.name()));
}

void checkTerms(PlannedItem const& item)
{
    auto const type = item.identifier.type;
    if (item.debt.has_value() != (type == BudgetItemTypes::Debt) ||
        item.goalTotal.has_value() != (type == BudgetItemTypes::Goal)) {
        throw std::invalid_argument("Debts alone have terms, and goals alone a final total.");
    }
    if (item.debt) {
        checkFurther(
            item.debt->borrowed, item,
            tr("The sum borrowed for %1 isn't above zero in the currency of its payments. Enter one that is."));
        require(isPartOfHundred(item.debt->interest),
                tr("The interest on %1 lies outside of 0% to 100%. Enter a rate between them.")
                    .arg(item.identifier.source.name()));
    }
    if (item.goalTotal) {
        checkFurther(*item.goalTotal, item,
                     tr("The final total of %1 isn't above zero in the currency of its amount. Enter one that is."));
    }
}

/// \return \a name with plain blanks for all that can't stand in an account's name
QString tidiedForAccount(QString const& name)
{
    auto tidied = QString::fromUtf8(name.toUtf8()); // leaves no half of a character
    std::ranges::replace_if(
        tidied, [](QChar sign) { return !isAccountName(QStringLiteral("x") + sign); }, u' ');
    return tidied.simplified();
}
}

QString noun(BudgetItemTypes type)
{
    switch (type) {
    case BudgetItemTypes::Bill:
        return tr("bill");
    case BudgetItemTypes::Debt:
        return tr("debt");
    case BudgetItemTypes::Goal:
        return tr("goal");
    case BudgetItemTypes::Nontrack:
        return tr("nontrack");
    case BudgetItemTypes::Wage:
        return tr("wage");
    case BudgetItemTypes::None:
        break;
    }
    throw Error(tr("A budget item is a bill, a debt, a goal, a nontrack or a wage. Choose one of them."));
}

void check(Settings const& settings, PlannedItems const& items)
{
    checkCurrencies(settings);
    checkNumbers(settings);
    checkUsed(settings, items);
}

void check(ConversionMap const& rates)
{
    for (auto const& [from, row] : rates.rates()) {
        for (auto const& [to, rate] : row) {
            require(from != Currency::XXX && to != Currency::XXX,
                    tr("XXX stands for no currency, so it has no rate. Leave it out."));
            require(std::isfinite(rate.underlying()) && rate.underlying() > 0.0,
                    tr("The rate from %1 to %2 isn't a number above zero. Enter what one %1 is worth in %2.")
                        .arg(presentationText(from), presentationText(to)));
        }
    }
}

void check(PlannedItem const& item, Settings const& settings)
{
    checkNamed(item.identifier);
    auto const& name = item.identifier.source.name();
    require(settings.usable.contains(item.amount.code()),
            item.amount.code() == Currency::XXX
                ? tr("The amount of %1 has no currency. Choose one.").arg(name)
                : tr("%1 can't be planned in %2. Choose a usable currency, or make that one usable.")
                      .arg(name, presentationText(item.amount.code())));
    require(item.amount > 0, tr("The amount of %1 isn't above zero. Enter what it comes to each time.").arg(name));
    require(isCalendarDay(item.nextOccurOn), tr("%1 has no day on which it is due next. Enter one.").arg(name));
    checkTerms(item);
}

void checkSize(PlannedItem const& item)
{
    if (item.period == EventFrequency::None) {
        return;
    }
    try {
        accumulateOver(EventFrequency::Monthly, item.amount, item.period);
    } catch (std::overflow_error const& overflow) {
        throw Error(tr("What %1 comes to per month is too large to count. Enter a smaller amount.")
                        .arg(item.identifier.source.name()),
                    overflow);
    }
}

bool isAccountName(QString const& name)
{
    try {
        return !AccountCode(name, std::nullopt).name().isEmpty();
    } catch (Error const&) {
        return false;
    }
}

void checkNamed(BudgetItemIdentifier const& identifier)
{
    auto const kind = noun(identifier.type);
    require(!identifier.source.name().trimmed().isEmpty(),
            tr("This %1 has no name. Give it one by which you will know it.").arg(kind));
}

void checkName(BudgetItemIdentifier const& identifier)
{
    if (!isAccountName(identifier.source.name())) {
        refuse(tr("The name of this %1 holds signs that can't be shown, such as a line break, or a blank of unusual "
                  "width. Type the name anew.")
                   .arg(noun(identifier.type)));
    }
}

void checkRegular(PlannedItem const& item)
{
    if (item.period == EventFrequency::None) {
        refuse(tr("%1 has no frequency. Choose how often it happens.").arg(item.identifier.source.name()));
    }
}

QString accountName(BudgetItemIdentifier const& identifier)
{
    auto const& name = identifier.source.name();
    if (isAccountName(name)) {
        return name;
    }
    auto const tidied = tidiedForAccount(name);
    return tidied.isEmpty() ? noun(identifier.type) : tidied;
}

void check(BudgetContent const& content)
{
    check(content.settings, content.items);
    check(content.rates);
    std::set<BudgetItemIdentifier, ByName> names;
    for (auto const& [identifier, item] : content.items) {
        check(item, content.settings);
        require(isCalendarDay(item.anchoredOn) && item.anchoredOn <= item.nextOccurOn,
                tr("%1 is due before it began. Its dates are damaged.").arg(identifier.source.name()));
        if (!names.insert(tidied(identifier)).second) {
            refuseTwice(identifier);
        }
    }
    check(content.books);
    checkAccounts(content.items, content.books);
}

BudgetItemIdentifier tidied(BudgetItemIdentifier const& identifier)
{
    auto const name = identifier.source.name().trimmed().normalized(QString::NormalizationForm_C);
    return {identifier.type, BudgetSource(name)};
}

bool ByName::operator()(BudgetItemIdentifier const& left, BudgetItemIdentifier const& right) const
{
    return left.type != right.type ? left.type < right.type
                                   : left.source.name().compare(right.source.name(), Qt::CaseInsensitive) < 0;
}

void refuseTwice(BudgetItemIdentifier const& planned)
{
    throw Error(tr("%1 is planned already. Change that %2, or give this one another name.")
                    .arg(planned.source.name(), noun(planned.type)));
}

void refuseUnknown(BudgetItemIdentifier const& identifier)
{
    throw Error(tr("%1 isn't planned any more, so it can't be changed. Add it as a new %2.")
                    .arg(identifier.source.name(), noun(identifier.type)));
}
}
