#include "HouseholdFixture.h"

#include <engine/SampleHousehold.h>

#include <QDate>

#include <ctime>
#include <gmock/gmock.h>
#include <map>
#include <set>
#include <utility>

using ::testing::AllOf;
using ::testing::Ge;
using ::testing::Gt;
using ::testing::IsEmpty;
using ::testing::Le;
using ::testing::Lt;
using tlm::accounting::AccountTypes;
using tlm::accounting::TransactionStatuses;
using tlm::banking::BankAccountTypes;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::EventFrequency;
using tlm::navigation::AllowSubAccounts;

namespace tallymere::engine {

namespace {

class SampleHouseholdTest : public HouseholdTest, public ::testing::WithParamInterface<QDate>
{
protected:
    NewBudget budget = sampleHousehold(GetParam());
    BudgetContent const& content = budget.content;
    Household sample{content, store};
};

TEST_P(SampleHouseholdTest, PlansARealHousehold)
{
    std::map<BudgetItemTypes, int> counts;
    std::set<EventFrequency> periodsOfBills;
    std::set<fiscora::Currency> currencies;
    for (auto const& [identifier, item] : content.items) {
        ++counts[identifier.type];
        currencies.insert(item.amount.code());
        if (identifier.type == BudgetItemTypes::Bill) {
            periodsOfBills.insert(item.period);
        }
    }

    EXPECT_EQ(counts[BudgetItemTypes::Wage], 2);
    EXPECT_GE(counts[BudgetItemTypes::Bill], 9);
    EXPECT_EQ(counts[BudgetItemTypes::Debt], 2);
    EXPECT_EQ(counts[BudgetItemTypes::Goal], 4);
    EXPECT_EQ(counts[BudgetItemTypes::Nontrack], 2);
    EXPECT_GE(periodsOfBills.size(), 9U);
    EXPECT_EQ(currencies, content.settings.usable);
    EXPECT_EQ(currencies.size(), 2U);
}

TEST_P(SampleHouseholdTest, HasAccountsAtTwoBanks)
{
    std::map<BankAccountTypes, int> counts;
    for (auto const& bank : sample.openBanks()) {
        for (auto const& account : sample.bankAccounts(bank, AllowSubAccounts::No)) {
            ++counts[account.type];
            EXPECT_GT(sample.balance(account.number), 0);
        }
    }

    EXPECT_EQ(sample.openBanks().size(), 2U);
    EXPECT_EQ(counts, (std::map<BankAccountTypes, int>{{BankAccountTypes::Checking, 1},
                                                       {BankAccountTypes::Savings, 2},
                                                       {BankAccountTypes::CreditCard, 1},
                                                       {BankAccountTypes::Loan, 2}}));
}

TEST_P(SampleHouseholdTest, OwesItsDebtsToBanksAndStoresGoalsInAccountsThere)
{
    EXPECT_EQ(sample.keptAt(BudgetItemTypes::Debt).size(), 2U);
    EXPECT_EQ(sample.keptAt(BudgetItemTypes::Goal).size(), 3U);
}

/// What a document that keeps the postings would count must be what the books tell.
TEST_P(SampleHouseholdTest, BringsThePostingsThatItsTurnoversCount)
{
    std::map<tlm::accounting::AccountNumber, Turnover> counted;
    for (auto const& posting : budget.postings) {
        for (auto const& [number, amount] :
             {std::pair(posting.debiting, posting.amount), std::pair(posting.crediting, -posting.amount)}) {
            auto& turnover = counted.try_emplace(number, Turnover{fiscora::Money(amount.code()), 0}).first->second;
            turnover.debited += amount;
            ++turnover.postings;
        }
    }

    EXPECT_THAT(budget.postings.size(), AllOf(Gt(600U), Lt(900U)));
    EXPECT_EQ(counted, content.books.turnovers);
}

TEST_P(SampleHouseholdTest, HasLivedThroughEighteenMonths)
{
    std::set<std::pair<int, int>> months;
    for (auto const& posting : budget.postings) {
        EXPECT_THAT(posting.occurredOn, AllOf(Ge(GetParam().addMonths(-18)), Le(GetParam())));
        months.emplace(posting.occurredOn.year(), posting.occurredOn.month());
    }

    EXPECT_GE(months.size(), 18U);
}

TEST_P(SampleHouseholdTest, HasLookedAtWhatIsOlder)
{
    std::set<TransactionStatuses> statuses;
    for (auto const& posting : budget.postings) {
        auto const age = posting.occurredOn.daysTo(GetParam());
        auto const expected = age > 62   ? TransactionStatuses::Reconciled
                              : age < 59 ? (age > 14 ? TransactionStatuses::Cleared : TransactionStatuses::NotCleared)
                                         : posting.status;
        EXPECT_EQ(posting.status, expected) << posting.occurredOn.toString(Qt::ISODate).toStdString();
        statuses.insert(posting.status);
    }

    EXPECT_EQ(statuses.size(), 3U);
}

TEST_P(SampleHouseholdTest, RemembersTheItemsThatPostingsWereMadeFrom)
{
    std::map<tlm::accounting::AccountNumber, int> made;
    for (auto const& posting : budget.postings) {
        if (posting.madeFrom) {
            EXPECT_TRUE(*posting.madeFrom == posting.debiting || *posting.madeFrom == posting.crediting);
            ++made[*posting.madeFrom];
        }
    }

    for (auto const& [identifier, item] : content.items) {
        auto const isRare = item.period == EventFrequency::EveryTenYears;
        EXPECT_TRUE(isRare || made[item.account] > 0) << identifier.source.name().toStdString();
    }
}

TEST_P(SampleHouseholdTest, IsOnItsWayToItsGoalsAndOutOfItsDebts)
{
    for (auto const& [identifier, item] : content.items) {
        auto const balance = sample.balance(item.account);
        if (item.goalTotal) {
            EXPECT_THAT(balance, AllOf(Gt(item.amount), Lt(*item.goalTotal)));
        }
        if (item.debt) {
            EXPECT_THAT(balance, AllOf(Gt(item.amount), Lt(item.debt->borrowed)));
        }
    }
}

TEST_P(SampleHouseholdTest, HasMovedMoneyFromCurrencyToCurrency)
{
    auto exchanges = 0;
    for (auto const& [number, account] : content.books.accounts) {
        exchanges += account.purpose == AccountPurposes::Exchange && sample.balance(number) != 0 ? 1 : 0;
    }

    EXPECT_EQ(exchanges, 2);
}

TEST_P(SampleHouseholdTest, HasARateForEachPairOfItsCurrencies)
{
    for (auto const from : content.settings.usable) {
        for (auto const to : content.settings.usable) {
            EXPECT_TRUE(content.rates.hasConversion(from, to, {}));
        }
    }
}

TEST_P(SampleHouseholdTest, HasSomethingDueInEachColourOfTheDashboard)
{
    auto const notice = content.settings.dueWithin.count();
    auto overdue = 0;
    auto dueToday = 0;
    auto soon = 0;
    auto later = 0;
    auto last = 0;

    for (auto const& due : sample.due(GetParam())) {
        auto const days = GetParam().daysTo(due.dueOn);
        (days < 0 ? overdue : days == 0 ? dueToday : days <= notice / 4 ? soon : days <= notice / 2 ? later : last)++;
    }

    for (auto const count : {overdue, dueToday, soon, later, last}) {
        EXPECT_GE(count, 2);
    }
}

TEST_P(SampleHouseholdTest, HasMoreComingInThanGoingOut)
{
    auto const totals = sample.monthlyTotals();
    auto outgoing = totals.bills;
    outgoing += totals.debts;
    outgoing += totals.nontracks;
    outgoing += totals.goals;

    EXPECT_THAT(outgoing / totals.wages, AllOf(Gt(0.6), Lt(1.0)));
    EXPECT_THAT(sample.health().percent(), AllOf(Gt(40.0), Lt(100.0)));
    EXPECT_FALSE(sample.health().information().isEmpty());
}

TEST_P(SampleHouseholdTest, IsTheSameForTheSameDayInEveryTimeZone)
{
    auto const zoneBefore = qgetenv("TZ");

    for (auto const* const zone :
         {"UTC", "Pacific/Kiritimati", "Pacific/Pago_Pago", "America/Sao_Paulo", "Europe/Berlin", "Asia/Kathmandu"}) {
        qputenv("TZ", zone);
        tzset();

        EXPECT_EQ(sampleHousehold(GetParam()), budget) << zone;
        EXPECT_EQ(Household(content, store).due(GetParam()), sample.due(GetParam())) << zone;
    }

    zoneBefore.isNull() ? qunsetenv("TZ") : qputenv("TZ", zoneBefore);
    tzset();
}

/// \return the names of the accounts that \a budget has ever overdrawn
std::set<QString> overdrawn(NewBudget const& budget)
{
    std::map<tlm::accounting::AccountNumber, long long> balances;
    std::set<QString> found;
    for (auto const& posting : budget.postings) {
        balances[posting.debiting] += posting.amount.amount();
        auto const& account = budget.content.books.accounts.at(posting.crediting);
        if ((balances[posting.crediting] -= posting.amount.amount()) < 0 && account.type == AccountTypes::Asset) {
            found.insert(account.code.name());
        }
    }
    return found;
}

TEST(SampleHouseholdsTest, OverdrawNothingOnWhateverDayTheyAreMade)
{
    for (QDate day(2026, 1, 1); day < QDate(2027, 1, 1); day = day.addDays(5)) {
        auto const budget = sampleHousehold(day);

        EXPECT_THAT(overdrawn(budget), IsEmpty()) << day.toString(Qt::ISODate).toStdString();
        EXPECT_THAT(budget.postings.size(), AllOf(Gt(600U), Lt(900U)));
    }
}

INSTANTIATE_TEST_SUITE_P(Days, SampleHouseholdTest,
                         ::testing::Values(QDate(2024, 2, 29), QDate(2025, 12, 31), QDate(2026, 7, 1),
                                           QDate(2027, 3, 28)));
}
}
