#include "Figures.h"
#include "ShownWindow.h"

#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetedMoneyMap.h>
#include <tlm/foundation/Percentage.h>
#include <tlm/navigation/BudgetBankAccount.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QDate>
#include <QDialogButtonBox>
#include <QPushButton>

#include <benchmark/benchmark.h>
#include <iterator>

namespace {

using namespace tlm;

constexpr auto currencies = 20;
constexpr auto accountsAtBank = 20U;

QDate const firstDue(2024, 1, 31);

fiscora::Money euros(long long whole)
{
    return {fiscora::Currency::EUR, whole, 50, 0};
}

/// \param item makes one under a source and with an amount
template <typename Map, typename MakeItem>
Map planned(benchmark::State const& state, MakeItem const& item)
{
    Map map;
    for (auto number = 1; number <= state.range(0); ++number) {
        budgeting::BudgetSource const source(QStringLiteral("Item %1").arg(number));
        map.emplace(source, item(source, euros(number)));
    }
    return map;
}

budgeting::BillMap monthlyBills(benchmark::State const& state)
{
    return planned<budgeting::BillMap>(state, [](auto const& source, auto const& amount) {
        return budgeting::Bill(source, amount, budgeting::EventFrequency::Monthly, firstDue);
    });
}

/// A window on screen and the budget that it shows.
struct Planning : ShownWindow
{
    explicit Planning(benchmark::State const& state) : ShownWindow({1'024, 576}), bills(monthlyBills(state)) {}

    void showBills()
    {
        window.onShowBills(bills, fiscora::Currency::EUR, usable, navigation::CurrencyDisplayOptions::Code);
    }

    QList<QWidget*> rows() const { return window.findChildren<QWidget*>(QStringLiteral("BudgetedMoneyEntryWidget")); }

    budgeting::BillMap const bills;
    std::set<fiscora::Currency> const usable = usableCurrencies(currencies);
};

/// The accounts of one bank, and in which of them each item is kept.
struct Kept
{
    template <typename Map>
    Kept(Map const& items, banking::BankAccountTypes type)
    {
        for (unsigned int number = 1; number <= accountsAtBank; ++number) {
            codes.emplace(accounting::AccountNumber(number), QStringLiteral("Account %1").arg(number), std::nullopt);
            accounts.emplace(accounting::AccountNumber(number), type);
        }
        auto account = codes.begin();
        for (auto const& [source, item] : items) {
            keptAt.insert({source, {bank, account->number(), type}});
            account = std::next(account) == codes.end() ? codes.begin() : std::next(account);
        }
    }

    banking::BankName const bank{QStringLiteral("Riverside Bank")};
    std::set<accounting::AccountCode> codes;
    std::set<banking::AccountNumberBankType> accounts;
    std::set<navigation::BudgetBankAccount> keptAt;
};

/// \param show has the window of \a planning show a view
template <typename Show>
void measureShowing(benchmark::State& state, Planning& planning, Show const& show)
{
    show(); // what is made once a process
    planning.end();
    auto grown = 0.0;
    for ([[maybe_unused]] auto const _ : state) {
        auto const before = usedKilobytes();
        show();
        planning.settle();
        grown = usedKilobytes() - before;
        state.PauseTiming();
        planning.end();
        state.ResumeTiming();
    }
    state.counters["per_row"] = timePer(state.range(0));
    state.counters["KB_per_row"] = grown / static_cast<double>(state.range(0));
}

void showBills(benchmark::State& state)
{
    Planning planning(state);
    measureShowing(state, planning, [&] { planning.showBills(); });
}

void showDebts(benchmark::State& state)
{
    Planning planning(state);
    auto const debts = planned<budgeting::DebtMap>(state, [](auto const& source, auto const& amount) {
        return budgeting::Debt(source, amount, budgeting::EventFrequency::Monthly, firstDue, euros(90'000),
                               foundation::Percentage(4.5, 2));
    });
    Kept const kept(debts, banking::BankAccountTypes::Loan);
    measureShowing(state, planning, [&] {
        planning.window.onShowDebts(debts, kept.keptAt, kept.codes, {kept.bank}, fiscora::Currency::EUR,
                                    planning.usable, navigation::CurrencyDisplayOptions::Code);
    });
}

/// Each row asks for the accounts of its bank while it loads.
void showGoals(benchmark::State& state)
{
    Planning planning(state);
    auto& window = planning.window;
    auto const goals = planned<budgeting::GoalMap>(state, [](auto const& source, auto const& amount) {
        return budgeting::Goal(source, amount, budgeting::EventFrequency::Monthly, firstDue, euros(90'000));
    });
    Kept const kept(goals, banking::BankAccountTypes::Savings);
    QObject::connect(&window, &desktop_ui::MainWindow::lookUpBankAccounts, &window,
                     [&](auto const& bank, auto) { emit window.lookedUpBankAccounts(bank, kept.accounts); });
    measureShowing(state, planning, [&] {
        window.onShowGoals(goals, kept.keptAt, kept.codes, {kept.bank}, fiscora::Currency::EUR, planning.usable,
                           navigation::CurrencyDisplayOptions::Code, euros(5'000));
    });
}

/// Saves when every row has changed, each answered inside the emission.
void saveBills(benchmark::State& state)
{
    Planning planning(state);
    auto& window = planning.window;
    long long answered = 0;
    QObject::connect(&window, &desktop_ui::MainWindow::updated, &window,
                     [&](auto const& id, auto, budgeting::BudgetedMoney const& item, auto const&) {
                         ++answered;
                         emit window.saveSucceeded(id, item.source());
                     });
    for ([[maybe_unused]] auto const _ : state) {
        state.PauseTiming();
        planning.showBills();
        planning.settle();
        for (auto* const row : planning.rows()) {
            QMetaObject::invokeMethod(row, "markDirty");
        }
        auto const* const buttons = window.findChild<QDialogButtonBox*>(QStringLiteral("saveDiscardBttnbx"));
        state.ResumeTiming();
        buttons->button(QDialogButtonBox::Save)->click();
        state.PauseTiming();
        planning.end();
        state.ResumeTiming();
    }
    if (answered != state.iterations() * state.range(0)) {
        state.SkipWithError("a row was not saved");
    }
    state.counters["per_row"] = timePer(state.range(0));
}
}

BENCHMARK(showBills)->Arg(500)->Arg(2'000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(showDebts)->Arg(500)->Arg(2'000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(showGoals)->Arg(500)->Arg(2'000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(saveBills)->Arg(500)->Arg(1'000)->Arg(2'000)->Iterations(5)->Unit(benchmark::kMillisecond);
