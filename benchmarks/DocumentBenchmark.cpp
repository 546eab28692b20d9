#include <engine/SampleHousehold.h>
#include <storage/Document.h>

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace tallymere;

/// A budget of \a count items, which are those of the sample under numbered names.
engine::BudgetContent contentOf(std::int64_t count)
{
    auto content = engine::sampleHousehold(QDate(2026, 3, 31));
    auto const pattern = content.items;
    content.items.clear();
    auto next = pattern.begin();
    for (std::int64_t number = 0; number < count; ++number) {
        auto item = next->second;
        item.identifier.source = tlm::budgeting::BudgetSource(item.identifier.source.name() + QString::number(number));
        content.items.emplace(item.identifier, item);
        next = std::next(next) == pattern.end() ? pattern.begin() : std::next(next);
    }
    return content;
}

struct Folder
{
    QTemporaryDir folder;
    storage::Places places{folder.filePath(QStringLiteral("working")), folder.filePath(QStringLiteral("backups"))};
    QString file = folder.filePath(QStringLiteral("large.budget"));
};

void openBudget(benchmark::State& state)
{
    Folder const at;
    storage::Document::create(at.places, contentOf(state.range(0)))->saveAs(at.file);
    for ([[maybe_unused]] auto const _ : state) {
        auto const document = storage::Document::open(at.places, at.file);
        benchmark::DoNotOptimize(document->content());
    }
    state.SetComplexityN(state.range(0));
}

void saveBudget(benchmark::State& state)
{
    Folder const at;
    auto const document = storage::Document::create(at.places, contentOf(state.range(0)));
    document->saveAs(at.file);
    auto settings = document->content().settings;
    for ([[maybe_unused]] auto const _ : state) {
        settings.dueWithin = std::chrono::days((settings.dueWithin.count() + 1) % 60);
        document->transact([&] { document->write(settings); });
        document->save();
    }
    state.SetComplexityN(state.range(0));
}
}

BENCHMARK(openBudget)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(saveBudget)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
