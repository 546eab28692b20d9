#include <engine/OpenBooks.h>
#include <engine/SampleHousehold.h>
#include <storage/Document.h>

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace tallymere;

/// A budget of \a count items, which are those of the sample under numbered names, each with an account of its own.
engine::NewBudget itemsOnly(std::int64_t count)
{
    auto content = engine::sampleHousehold(QDate(2026, 3, 31)).content;
    auto const pattern = content.items;
    content.items.clear();
    content.books = {};
    auto next = pattern.begin();
    for (std::int64_t number = 0; number < count; ++number) {
        auto item = next->second;
        item.identifier.source = tlm::budgeting::BudgetSource(item.identifier.source.name() + QString::number(number));
        item.account = {};
        content.items.emplace(item.identifier, item);
        next = std::next(next) == pattern.end() ? pattern.begin() : std::next(next);
    }
    auto postings = engine::openBooks(content);
    return {std::move(content), std::move(postings)};
}

/// The sample with \a count postings among fifty accounts of their own.
engine::NewBudget withPostings(std::int64_t count)
{
    using tlm::accounting::AccountNumber;
    engine::NewBudget budget{engine::sampleHousehold(QDate(2026, 3, 31)).content, {}};
    auto& books = budget.content.books;
    books.turnovers.clear();
    auto const currency = budget.content.settings.preferred;
    constexpr unsigned int first = 100'000;
    constexpr unsigned int accounts = 50;
    for (auto number = first; number < first + accounts; ++number) {
        books.accounts[AccountNumber(number)] = {
            .code = {AccountNumber(number), QStringLiteral("Ledger %1").arg(number), std::nullopt},
            .type = tlm::accounting::AccountTypes::Asset,
            .currency = currency};
    }
    for (auto number = 0U; number < count; ++number) {
        budget.postings.push_back({.occurredOn = QDate(2020, 1, 1).addDays(number % 2'000),
                                   .debiting = AccountNumber(first + number % accounts),
                                   .crediting = AccountNumber(first + (number + 1 + number % 7) % accounts),
                                   .amount = fiscora::Money::fromAmount(currency, 100 + number),
                                   .description = QStringLiteral("Groceries at the corner"),
                                   .madeFrom = {}});
    }
    return budget;
}

struct Folder
{
    QTemporaryDir folder;
    storage::Places places{folder.filePath(QStringLiteral("working")), folder.filePath(QStringLiteral("backups"))};
    QString file = folder.filePath(QStringLiteral("large.budget"));
};

using Maker = engine::NewBudget (*)(std::int64_t);

std::unique_ptr<storage::Document> make(Folder const& at, Maker maker, std::int64_t count)
{
    auto const budget = maker(count);
    auto document = storage::Document::create(at.places, budget.content, budget.postings);
    document->saveAs(at.file);
    return document;
}

void openBudget(benchmark::State& state, Maker maker)
{
    Folder const at;
    make(at, maker, state.range(0));
    for ([[maybe_unused]] auto const _ : state) {
        auto const document = storage::Document::open(at.places, at.file);
        benchmark::DoNotOptimize(document->content());
    }
    state.SetComplexityN(state.range(0));
}

void saveBudget(benchmark::State& state, Maker maker)
{
    Folder const at;
    auto const document = make(at, maker, state.range(0));
    auto settings = document->content().settings;
    for ([[maybe_unused]] auto const _ : state) {
        settings.dueWithin = std::chrono::days((settings.dueWithin.count() + 1) % 60);
        document->transact([&] { document->write(settings); });
        document->save();
    }
    state.SetComplexityN(state.range(0));
}

/// Posts, and asks whether the budget is dirty, as the window's title does after each change.
void postOnce(benchmark::State& state)
{
    Folder const at;
    auto const document = make(at, withPostings, state.range(0));
    auto const posting = withPostings(1).postings.front();
    for ([[maybe_unused]] auto const _ : state) {
        document->transact([&] { document->post(posting); });
        benchmark::DoNotOptimize(document->isDirty());
    }
}
}

BENCHMARK_CAPTURE(openBudget, items, itemsOnly)
    ->Arg(40)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(saveBudget, items, itemsOnly)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(openBudget, postings, withPostings)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(saveBudget, postings, withPostings)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK(postOnce)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
