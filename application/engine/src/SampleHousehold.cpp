#include "engine/SampleHousehold.h"

#include "OpenStore.h"
#include "SamplePostings.h"

#include <engine/Household.h>

#include <QCoreApplication>
#include <QDate>
#include <QLocale>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <optional>
#include <set>
#include <utility>
#include <vector>

using fiscora::Currency;
using fiscora::FloatingPoint;
using fiscora::Money;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;
using tlm::budgeting::EventFrequency;
using tlm::conversion::ConversionMap;
using tlm::conversion::RateLookedUp;
using tlm::foundation::Percentage;

namespace tallymere::engine {

namespace {

/// Plans the sample's items, with dates that count from one day.
class Planner
{
public:
    Planner(Household& household, QDate const& today) : household_(household), today_(today) {}

    void plan(BudgetItemTypes type, QString const& name, Money const& amount, EventFrequency period, int dueIn)
    {
        household_.add(item(type, name, amount, period, dueIn), std::nullopt, SamplePostings::begin(today_));
    }

    void owe(QString const& name, Money const& payment, EventFrequency period, int dueIn, DebtTerms const& terms,
             BankAccount const& keptAt)
    {
        auto debt = item(BudgetItemTypes::Debt, name, payment, period, dueIn);
        debt.debt = terms;
        household_.add(std::move(debt), keptAt, SamplePostings::begin(today_));
    }

    void saveFor(QString const& name, Money const& share, EventFrequency period, int dueIn, Money const& goalTotal,
                 std::optional<BankAccount> const& keptAt)
    {
        auto goal = item(BudgetItemTypes::Goal, name, share, period, dueIn);
        goal.goalTotal = goalTotal;
        household_.add(std::move(goal), keptAt, SamplePostings::begin(today_));
    }

private:
    PlannedItem item(BudgetItemTypes type, QString const& name, Money const& amount, EventFrequency period,
                     int dueIn) const
    {
        PlannedItem planned;
        planned.identifier = {type, BudgetSource(name)};
        planned.amount = amount;
        planned.period = period;
        planned.nextOccurOn = today_.addDays(dueIn);
        return planned;
    }

    Household& household_;
    QDate today_;
};

QString tr(char const* text)
{
    return QCoreApplication::translate("SampleHousehold", text);
}

Money dollars(long long units, unsigned short cents = 0)
{
    return {Currency::USD, units, cents, 0};
}

Money euros(long long units, unsigned short cents = 0)
{
    return {Currency::EUR, units, cents, 0};
}

ConversionMap rates(QDate const& today)
{
    using namespace std::chrono;
    ConversionMap rates;
    rates.updateConversion(Currency::EUR, Currency::USD, FloatingPoint(1.0850), RateLookedUp{false});
    rates.updateConversion(Currency::USD, Currency::EUR, FloatingPoint(0.9205), RateLookedUp{false});
    rates.setLastFetched(sys_days(year(1970) / 1 / 1) + days(QDate(1970, 1, 1).daysTo(today)));
    return rates;
}

void planWages(Planner& planner)
{
    planner.plan(BudgetItemTypes::Wage, tr("Robin's salary"), dollars(1'985), EventFrequency::Fortnightly, 5);
    planner.plan(BudgetItemTypes::Wage, tr("Alex's part-time job"), dollars(1'340), EventFrequency::Monthly, 11);
}

void planBills(Planner& planner)
{
    auto const bill = [&](QString const& name, Money const& amount, EventFrequency period, int dueIn) {
        planner.plan(BudgetItemTypes::Bill, name, amount, period, dueIn);
    };
    bill(tr("Rent"), dollars(1'425), EventFrequency::Monthly, 6);
    bill(tr("Groceries"), dollars(165), EventFrequency::Weekly, 1);
    bill(tr("Electricity"), dollars(148, 60), EventFrequency::EveryTwoMonths, -3);
    bill(tr("Internet and phones"), dollars(89, 90), EventFrequency::EveryFourWeeks, 0);
    bill(tr("Water"), dollars(112, 35), EventFrequency::Quarterly, 10);
    bill(tr("Music lessons"), dollars(45), EventFrequency::Fortnightly, 4);
    bill(tr("Bus passes"), dollars(32), EventFrequency::TwiceMonthly, 3);
    bill(tr("Car insurance"), dollars(486), EventFrequency::HalfYearly, 33);
    bill(tr("Contents insurance"), dollars(214, 50), EventFrequency::Yearly, 13);
    bill(tr("Newspaper from Lisbon"), euros(12, 99), EventFrequency::Monthly, 2);
    bill(tr("Dentist"), dollars(130), EventFrequency::EveryNineMonths, 74);
    bill(tr("Passports"), dollars(260), EventFrequency::EveryTenYears, 410);
}

/// The household's banks with the accounts in which its goals are stored.
struct Banks
{
    BankName main{tr("Riverside Bank")};
    BankName second{tr("Harbour Credit Union")};
    BankAccount checking;
    BankAccount savings;
    BankAccount travels;
    BankAccount card;
};

Banks openBanks(Household& household, QDate const& today)
{
    Banks banks;
    household.addBank(banks.main);
    household.addBank(banks.second);
    auto const open = [&](BankName const& bank, QString const& name, BankAccountTypes type, Money const& balance) {
        auto const number = household.addBankAccount(bank, name, type, balance, SamplePostings::begin(today));
        return BankAccount{bank, number, type};
    };
    banks.checking = open(banks.main, tr("Everyday checking"), BankAccountTypes::Checking, dollars(2'318, 45));
    banks.savings = open(banks.main, tr("Rainy day savings"), BankAccountTypes::Savings, dollars(4'150));
    banks.card = open(banks.main, tr("Credit card"), BankAccountTypes::CreditCard, dollars(386, 20));
    banks.travels = open(banks.second, tr("Travel savings"), BankAccountTypes::Savings, euros(640));
    return banks;
}

void planDebts(Planner& planner, Banks const& banks)
{
    auto const loanAt = [](BankName const& bank) { return BankAccount{bank, {}, BankAccountTypes::Loan}; };
    planner.owe(tr("Car loan"), dollars(268, 40), EventFrequency::Monthly, 8, {dollars(12'800), Percentage(5.9, 2)},
                loanAt(banks.main));
    planner.owe(tr("Student loan"), dollars(142), EventFrequency::Monthly, -1, {dollars(16'500), Percentage(3.75, 2)},
                loanAt(banks.second));
}

void planGoals(Planner& planner, Banks const& banks)
{
    planner.saveFor(tr("Emergency fund"), dollars(110), EventFrequency::Fortnightly, 5, dollars(9'000), banks.savings);
    planner.saveFor(tr("Summer in Portugal"), euros(135), EventFrequency::Monthly, 7, euros(2'400), banks.travels);
    planner.saveFor(tr("Bicycle"), dollars(30), EventFrequency::TwiceMonthly, 12, dollars(850), std::nullopt);
    planner.saveFor(tr("Next car"), dollars(360), EventFrequency::Quarterly, 27, dollars(11'000), banks.checking);
}

void planNontracks(Planner& planner)
{
    planner.plan(BudgetItemTypes::Nontrack, tr("Pocket money"), dollars(40), EventFrequency::Weekly, -8);
    planner.plan(BudgetItemTypes::Nontrack, tr("Eating out"), dollars(85), EventFrequency::Fortnightly, 0);
}

/// Lets what happened some time ago have been looked at since.
void markByAge(Household& household, OpenStore const& store, QDate const& today)
{
    std::set<PostingId> cleared;
    std::vector<PostingId> reconciled;
    for (auto const& [id, posting] : store.postings()) {
        if (posting.occurredOn < today.addMonths(-2)) {
            reconciled.push_back(id);
        } else if (posting.occurredOn < today.addDays(-14)) {
            cleared.insert(id);
        }
    }
    std::ranges::for_each(reconciled, [&](auto const& id) { household.markReconciled(id); });
    household.markCleared(cleared);
}

std::vector<Posting> postingsIn(OpenStore const& store)
{
    std::vector<Posting> found;
    std::ranges::transform(store.postings(), std::back_inserter(found), [](auto const& entry) { return entry.second; });
    return found;
}
}

NewBudget sampleHousehold(QDate const& today)
{
    OpenStore store;
    Household household(emptyContent(QLocale(QLocale::English, QLocale::UnitedStates)), store);
    auto settings = household.content().settings;
    settings.usable = {Currency::USD, Currency::EUR};
    household.configure(settings);
    household.setRates(rates(today));
    Planner planner(household, today);
    planWages(planner);
    planBills(planner);
    auto const banks = openBanks(household, today);
    planDebts(planner, banks);
    planGoals(planner, banks);
    planNontracks(planner);
    SampleAccounts const accounts{banks.checking.number, banks.savings.number, banks.card.number, banks.travels.number};
    SamplePostings(household, accounts, today).post();
    markByAge(household, store, today);
    return {household.content(), postingsIn(store)};
}
}
