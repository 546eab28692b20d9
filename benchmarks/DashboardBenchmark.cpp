#include <tlm/adviser/Assess.h>
#include <tlm/budgeting/BudgetItemAmountDue.h>
#include <tlm/budgeting/BudgetTotals.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/navigation/ConfigurationOptions.h>

#include <QCoreApplication>
#include <QDate>

#include <benchmark/benchmark.h>

namespace {

/// Makes the dashboard of a budget with as many items due and paints it once.
void showDashboard(benchmark::State& state)
{
    using namespace tlm;
    navigation::ConfigurationOptions const wording{};
    desktop_ui::MainWindow window(wording);
    budgeting::BudgetItemIdentifier const rent{budgeting::BudgetItemTypes::Bill,
                                               budgeting::BudgetSource(QStringLiteral("Rent"))};
    std::vector const due(static_cast<std::size_t>(state.range(0)),
                          budgeting::BudgetItemAmountDue{{rent, QDate::currentDate()}, {}});
    auto const zero = fiscora::Money(fiscora::Currency::EUR);
    budgeting::BudgetTotals const totals{zero, zero, zero, zero, zero};
    auto const health = adviser::assess(totals, zero);
    for ([[maybe_unused]] auto const _ : state) {
        window.onShowDashboard(totals, due, health, std::chrono::days(14), fiscora::Currency::EUR,
                               navigation::CurrencyDisplayOptions::Code);
        benchmark::DoNotOptimize(window.grab());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the dashboard before
    }
}
}

BENCHMARK(showDashboard)->Arg(100)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);
