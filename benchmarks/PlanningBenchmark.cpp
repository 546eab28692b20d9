#include <fiscora/CurrencyCodes.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetedMoneyMap.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/BudgetBankAccount.h>
#include <tlm/navigation/ConfigurationOptions.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QApplication>
#include <QDate>
#include <QDialogButtonBox>
#include <QPushButton>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <malloc.h>

namespace {

using namespace tlm;

constexpr auto currencies = 20;
constexpr auto bytesInKilobyte = 1'024.0;

std::set<fiscora::Currency> usableCurrencies()
{
    std::set<fiscora::Currency> usable{fiscora::Currency::EUR};
    for (auto const code : fiscora::allCurrencies) {
        if (usable.size() < currencies && code != fiscora::Currency::XXX) {
            usable.insert(code);
        }
    }
    return usable;
}

budgeting::BillMap monthlyBills(benchmark::State const& state)
{
    budgeting::BillMap bills;
    for (auto number = 1; number <= state.range(0); ++number) {
        budgeting::BudgetSource const source(QStringLiteral("Bill %1").arg(number));
        bills.emplace(source, budgeting::Bill(source, fiscora::Money(fiscora::Currency::EUR, number, 50, 0),
                                              budgeting::EventFrequency::Monthly, QDate(2024, 1, 31)));
    }
    return bills;
}

/// A window on screen and the budget that it shows.
struct Planning
{
    explicit Planning(benchmark::State const& state) : bills(monthlyBills(state))
    {
        window.resize(1'024, 576);
        window.show();
        QCoreApplication::processEvents();
    }

    /// Ends when the view has been painted.
    void show()
    {
        window.onShowBills(bills, fiscora::Currency::EUR, usable, navigation::CurrencyDisplayOptions::Code);
        QCoreApplication::processEvents();
        window.repaint();
    }

    /// Leaves an empty window.
    void end()
    {
        window.setCentralWidget(new QWidget);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QList<QWidget*> rows() const { return window.findChildren<QWidget*>(QStringLiteral("BudgetedMoneyEntryWidget")); }

    navigation::ConfigurationOptions const wording{};
    desktop_ui::MainWindow window{wording};
    budgeting::BillMap const bills;
    std::set<fiscora::Currency> const usable = usableCurrencies();
};

/// Goals that each lie in an account of their own, all at one bank.
struct StoredGoals
{
    explicit StoredGoals(benchmark::State const& state)
    {
        for (unsigned int number = 1; number <= state.range(0); ++number) {
            budgeting::BudgetSource const source(QStringLiteral("Goal %1").arg(number));
            fiscora::Money const amount(fiscora::Currency::EUR, number, 50, 0);
            goals.emplace(source, budgeting::Goal(source, amount, budgeting::EventFrequency::Monthly,
                                                  QDate(2024, 1, 31), fiscora::Money(amount.code(), 90'000, 0, 0)));
            banking::BankAccount const account{bank, accounting::AccountNumber(number),
                                               banking::BankAccountTypes::Savings};
            keptAt.insert({source, account});
            codes.emplace(account.number, source.name(), std::nullopt);
        }
    }

    banking::BankName const bank{QStringLiteral("Riverside Bank")};
    budgeting::GoalMap goals;
    std::set<navigation::BudgetBankAccount> keptAt;
    std::set<accounting::AccountCode> codes;
};

void countPerRow(benchmark::State& state)
{
    state.counters["per_row"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void showBills(benchmark::State& state)
{
    Planning planning(state);
    planning.show(); // what is made once a process
    planning.end();
    std::size_t grown = 0;
    for ([[maybe_unused]] auto const _ : state) {
        auto const before = mallinfo2().uordblks;
        planning.show();
        grown = mallinfo2().uordblks - before;
        state.PauseTiming();
        planning.end();
        state.ResumeTiming();
    }
    countPerRow(state);
    state.counters["KB_per_row"] = static_cast<double>(grown) / bytesInKilobyte / static_cast<double>(state.range(0));
}

/// Each row asks for the accounts of its bank while it loads, which nobody answers here.
void showGoals(benchmark::State& state)
{
    Planning planning(state);
    StoredGoals const stored(state);
    auto& window = planning.window;
    for ([[maybe_unused]] auto const _ : state) {
        window.onShowGoals(stored.goals, stored.keptAt, stored.codes, {stored.bank}, fiscora::Currency::EUR,
                           planning.usable, navigation::CurrencyDisplayOptions::Code,
                           fiscora::Money(fiscora::Currency::EUR, 5'000, 0, 0));
        QCoreApplication::processEvents();
        window.repaint();
        state.PauseTiming();
        planning.end();
        state.ResumeTiming();
    }
    countPerRow(state);
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
        planning.show();
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
    countPerRow(state);
}
}

BENCHMARK(showBills)->Arg(500)->Arg(2'000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(showGoals)->Arg(500)->Arg(2'000)->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(saveBills)->Arg(500)->Arg(1'000)->Arg(2'000)->Iterations(5)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
