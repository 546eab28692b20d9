#include "SamplePostings.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <utility>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::Account;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountTypes;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::EventFrequency;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("SamplePostings", text);
}

/// How long it is from one occurrence to the next. What happens twice a month is told as two that happen once.
struct Step
{
    int days;
    int months;
};

Step stepOf(EventFrequency period)
{
    std::map<EventFrequency, Step> const steps{
        {EventFrequency::Weekly, {7, 0}},          {EventFrequency::Fortnightly, {14, 0}},
        {EventFrequency::EveryFourWeeks, {28, 0}}, {EventFrequency::TwiceMonthly, {0, 1}},
        {EventFrequency::Monthly, {0, 1}},         {EventFrequency::EveryTwoMonths, {0, 2}},
        {EventFrequency::Quarterly, {0, 3}},       {EventFrequency::HalfYearly, {0, 6}},
        {EventFrequency::EveryNineMonths, {0, 9}}, {EventFrequency::Yearly, {0, 12}}};
    auto const found = steps.find(period);
    return found == steps.end() ? Step{0, 120} : found->second;
}

/// \return \a percent of \a amount, in whole cents
Money part(Money const& amount, int percent)
{
    constexpr long long storedInCent = 100;
    return Money::fromAmount(amount.code(), amount.amount() * percent / 100 / storedInCent * storedInCent);
}

Money dollars(int units, int cents = 0)
{
    return {Currency::USD, units, static_cast<unsigned short>(cents), 0};
}
}

SamplePostings::SamplePostings(Household& household, SampleAccounts const& accounts, QDate const& today)
    : household_(household), accounts_(accounts), today_(today)
{}

void SamplePostings::post()
{
    for (auto const& [identifier, item] : household_.content().items) {
        tell(item);
    }
    for (auto const& habit : {Habit{tr("Fuel"), 5'101, 11, 38, 62}, Habit{tr("House and garden"), 5'102, 9, 22, 96},
                              Habit{tr("Clothes and shoes"), 5'103, 24, 35, 140}}) {
        tell(habit);
    }
    tellInterest();
    tellTransfers();
    for (auto const& [day, event] : events_) {
        event();
    }
}

/// \return the days on which \a item was paid, the latest first
SamplePostings::Days SamplePostings::daysOf(PlannedItem const& item) const
{
    auto const [days, months] = stepOf(item.period);
    auto found = every(days, months, item.nextOccurOn.addMonths(-months).addDays(-days));
    if (item.period == EventFrequency::TwiceMonthly) {
        auto const others = every(days, months, item.nextOccurOn.addDays(-15));
        found.insert(found.end(), others.begin(), others.end());
        std::ranges::sort(found, std::greater());
    }
    if (item.goalTotal) { // a goal that is all but reached would be none any more
        constexpr auto mostReached = 0.6;
        auto const most = static_cast<std::size_t>(*item.goalTotal / item.amount * mostReached);
        found.resize(std::min(found.size(), most));
    }
    return found;
}

SamplePostings::Days SamplePostings::every(int days, int months, QDate const& latest) const
{
    Days found;
    auto day = latest;
    for (auto times = 1; day > begin(today_); ++times) {
        if (day <= today_) {
            found.push_back(day);
        }
        day = latest.addMonths(-months * times).addDays(qint64{-days} * times); // months from the first, so none drift
    }
    return found;
}

void SamplePostings::tell(PlannedItem const& item)
{
    auto const& [type, source] = item.identifier;
    auto const isShopping = (type == BudgetItemTypes::Bill && item.period == EventFrequency::Weekly) ||
                            (type == BudgetItemTypes::Nontrack && item.period == EventFrequency::Fortnightly);
    auto const isMetered = item.period == EventFrequency::EveryTwoMonths ||
                           (type == BudgetItemTypes::Bill && item.period == EventFrequency::Quarterly);
    auto const payer = item.amount.code() == Currency::EUR ? accounts_.travels : accounts_.checking;
    for (auto const& day : daysOf(item)) {
        if (isShopping) {
            tellPurchases(item, day);
        } else {
            pay(item, day, isMetered ? part(item.amount, any(86, 114)) : item.amount, payer, source.name());
        }
    }
}

/// What is planned per week or two is spent in several shops, the larger sum by card.
void SamplePostings::tellPurchases(PlannedItem const& item, QDate const& day)
{
    std::array const shops{tr("Corner market"), tr("Greenway supermarket"), tr("Market hall"), tr("Bakery")};
    std::array const tables{tr("Pizzeria Lido"), tr("Noodle bar"), tr("Café on the square"), tr("Fish and chips")};
    auto const& places = item.identifier.type == BudgetItemTypes::Bill ? shops : tables;
    auto const place = [&] { return places.at(static_cast<std::size_t>(any(0, static_cast<int>(places.size()) - 1))); };
    pay(item, day, part(item.amount, any(50, 76)), accounts_.card, place());
    pay(item, std::max(day.addDays(-3), begin(today_)), part(item.amount, any(18, 42)), accounts_.checking, place());
}

void SamplePostings::tell(Habit const& habit)
{
    AccountNumber const number(habit.number);
    household_.addAccount(
        Account(AccountTypes::Expense, AccountCode(number, habit.name, std::nullopt), dollars(0), false), today_);
    for (auto const& day : every(habit.everyDays, 0, today_.addDays(-habit.everyDays / 2))) {
        Posting spent;
        spent.occurredOn = day;
        spent.debiting = number;
        spent.crediting = accounts_.card;
        spent.amount = dollars(any(habit.least, habit.most), any(0, 99));
        spent.description = habit.name;
        plan(spent);
    }
}

void SamplePostings::tellInterest()
{
    AccountNumber const interest(4'101);
    household_.addAccount(
        Account(AccountTypes::Income, AccountCode(interest, tr("Interest"), std::nullopt), dollars(0), false), today_);
    for (auto const& day : every(0, 3, today_.addDays(-33))) {
        Posting earned;
        earned.occurredOn = day;
        earned.debiting = accounts_.savings;
        earned.crediting = interest;
        earned.amount = dollars(any(13, 19), any(0, 99));
        earned.description = tr("Interest of the quarter");
        plan(earned);
    }
}

void SamplePostings::tellTransfers()
{
    for (auto const& day : every(0, 1, today_.addDays(-9))) {
        events_.emplace(day, [this, day] {
            household_.transfer(accounts_.checking, accounts_.card, household_.balance(accounts_.card),
                                tr("Card paid off"), day);
        });
    }
    for (auto const& day : every(0, 1, today_.addDays(-5))) {
        events_.emplace(day, [this, day] { moveRest(day); });
    }
    for (auto const& day : every(0, 3, today_.addDays(-20))) {
        events_.emplace(day, [this, day] {
            household_.transfer(accounts_.checking, accounts_.travels, dollars(300), tr("For Portugal"), day);
        });
    }
}

/// \param by which account; wages go to it
void SamplePostings::pay(PlannedItem const& item, QDate const& day, Money const& amount, AccountNumber const& by,
                         QString const& description)
{
    auto const isEarned = item.identifier.type == BudgetItemTypes::Wage;
    Posting paid;
    paid.occurredOn = day;
    paid.debiting = isEarned ? by : item.account;
    paid.crediting = isEarned ? item.account : by;
    paid.amount = amount;
    paid.description = description;
    paid.madeFrom = item.account;
    plan(paid);
}

void SamplePostings::plan(Posting const& posting)
{
    events_.emplace(posting.occurredOn, [this, posting] { household_.post(posting); });
}

/// Saves what checking holds beyond a cushion, in round sums.
void SamplePostings::moveRest(QDate const& day)
{
    constexpr auto cushion = 3'000;
    constexpr auto round = 50;
    auto const rest = (household_.balance(accounts_.checking).major() - cushion) / round * round;
    if (rest > 0) {
        household_.transfer(accounts_.checking, accounts_.savings, dollars(static_cast<int>(rest)), tr("Put aside"),
                            day);
    }
}

/// \return a number from \a least to \a most, thrown by a linear congruential generator
int SamplePostings::any(int least, int most)
{
    dice_ = dice_ * 1'664'525U + 1'013'904'223U;
    constexpr auto lowBits = 16U; // they repeat soon
    return least + static_cast<int>((dice_ >> lowBits) % static_cast<unsigned int>(most - least + 1));
}
}
