#include "Figures.h"
#include "ShownWindow.h"

#include <fiscora/Money.h>
#include <tlm/accounting/Account.h>
#include <tlm/banking/BankMap.h>

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include <benchmark/benchmark.h>
#include <set>

namespace {

using namespace tlm;

constexpr auto accountsOfABank = 20;
constexpr auto currencies = 21;

/// A window on screen, and banks of twenty accounts each: range(0) accounts in all. Whatever is sent is accepted at once.
struct Banks : ShownWindow
{
    explicit Banks(benchmark::State const& state) : ShownWindow({1'280, 800})
    {
        using Window = desktop_ui::MainWindow;
        for (unsigned int number = 1; number <= state.range(0); ++number) {
            keep(number);
        }
        QObject::connect(&window, &Window::renamedBankAccount, &window,
                         [this](accounting::AccountCode const& /*original*/, accounting::AccountCode const& changed) {
                             ++answered;
                             emit window.bankAccountSaveSucceeded(changed);
                         });
    }

    /// Ends when the view has been painted.
    void show()
    {
        window.onShowBanks(banks, accounts, usable, navigation::CurrencyDisplayOptions::Code);
        settle();
    }

    banking::BankMap banks;
    std::set<accounting::Account> accounts;
    std::set<fiscora::Currency> const usable = usableCurrencies(currencies);
    long long answered = 0;

private:
    void keep(unsigned int number)
    {
        using namespace accounting;
        AccountCode const code(AccountNumber(number), QStringLiteral("Account %1").arg(number), std::nullopt);
        accounts.emplace(AccountTypes::Asset, code, fiscora::Money(fiscora::Currency::EUR, number, 50, 0), false);
        banking::BankName const name(QStringLiteral("Bank %1").arg((number - 1) / accountsOfABank));
        auto kept = banks[name].accounts();
        kept.emplace(code.number(), banking::BankAccountTypes::Savings);
        banks[name] = banking::Bank(name, kept, false);
    }
};

void showBanks(benchmark::State& state)
{
    Banks banks(state);
    banks.show(); // what is made once a process
    banks.end();
    auto grown = 0.0;
    for ([[maybe_unused]] auto const _ : state) {
        auto const before = usedKilobytes();
        banks.show();
        grown = usedKilobytes() - before;
        state.PauseTiming();
        banks.end();
        state.ResumeTiming();
    }
    state.counters["KB_per_account"] = grown / static_cast<double>(state.range(0));
    state.counters["per_account"] = timePer(state.range(0));
}

/// Goes through all accounts, each of which shows its form.
void chooseEach(benchmark::State& state)
{
    Banks banks(state);
    banks.show();
    auto& tree = *banks.window.findChild<QTreeWidget*>(QStringLiteral("bankAndAccountsTrwdgt"));
    for ([[maybe_unused]] auto const _ : state) {
        for (QTreeWidgetItemIterator row(&tree); *row != nullptr; ++row) {
            tree.setCurrentItem(*row);
        }
    }
    state.counters["per_account"] = timePer(state.range(0));
}

void endBanks(benchmark::State& state)
{
    Banks banks(state);
    for ([[maybe_unused]] auto const _ : state) {
        state.PauseTiming();
        banks.show();
        state.ResumeTiming();
        banks.end();
    }
    state.counters["per_account"] = timePer(state.range(0));
}

/// Saves a new name of each account, each answered inside the emission.
void renameAll(benchmark::State& state)
{
    Banks banks(state);
    for ([[maybe_unused]] auto const _ : state) {
        state.PauseTiming();
        banks.show();
        auto const& view = *banks.window.centralWidget();
        for (auto* const form : view.findChildren<QWidget*>(QStringLiteral("AccountEntryWdgt"))) {
            auto& name = *form->findChild<QLineEdit*>(QStringLiteral("nameLndt"));
            name.setText(name.text() + QStringLiteral(" anew"));
            emit name.editingFinished();
        }
        state.ResumeTiming();
        view.findChild<QDialogButtonBox*>(QStringLiteral("saveDiscardBttnbx"))->button(QDialogButtonBox::Save)->click();
        state.PauseTiming();
        banks.end();
        state.ResumeTiming();
    }
    if (banks.answered != state.iterations() * state.range(0)) {
        state.SkipWithError("an account was not saved");
    }
    state.counters["per_account"] = timePer(state.range(0));
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("accounts")->Arg(100)->Arg(1'000)->Arg(4'000)->Unit(benchmark::kMillisecond);
}
}

BENCHMARK(showBanks)->Apply(sizes)->Iterations(3);
BENCHMARK(endBanks)->Apply(sizes)->Iterations(3);
BENCHMARK(chooseEach)->Apply(sizes)->Iterations(1);
BENCHMARK(renameAll)->Apply(sizes)->Iterations(1);
