#include <engine/OpenBooks.h>
#include <engine/SampleHousehold.h>
#include <storage/Document.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace tallymere;
using tlm::accounting::AccountNumber;

constexpr unsigned int first = 100'000; ///< number of the first ledger beside the sample's accounts

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

/// The sample with \a count postings among \a accounts accounts of their own.
engine::NewBudget withPostings(std::int64_t count, unsigned int accounts)
{
    engine::NewBudget budget{engine::sampleHousehold(QDate(2026, 3, 31)).content, {}};
    auto& books = budget.content.books;
    books.turnovers.clear();
    auto const currency = budget.content.settings.preferred;
    for (auto number = first; number < first + accounts; ++number) {
        books.accounts[AccountNumber(number)] = {
            .code = {AccountNumber(number), QStringLiteral("Ledger %1").arg(number), std::nullopt},
            .type = tlm::accounting::AccountTypes::Asset,
            .currency = currency};
    }
    for (auto number = 0U; number < count; ++number) {
        budget.postings.push_back(
            {.occurredOn = QDate(2020, 1, 1).addDays(number % 2'000),
             .debiting = AccountNumber(first + number % accounts),
             .crediting = AccountNumber(first + (number + 1 + number % (accounts - 1)) % accounts),
             .amount = fiscora::Money::fromAmount(currency, 100 + number),
             .description = QStringLiteral("Groceries at the corner"),
             .madeFrom = {}});
    }
    return budget;
}

engine::NewBudget manyLedgers(std::int64_t count)
{
    return withPostings(count, 50);
}

/// All postings touch both of two ledgers.
engine::NewBudget longLedger(std::int64_t count)
{
    return withPostings(count, 2);
}

/// The sample as it is.
engine::NewBudget sample(std::int64_t /*count*/)
{
    return engine::sampleHousehold(QDate(2026, 3, 31));
}

using Maker = engine::NewBudget (*)(std::int64_t);

/// A budget's file with all that goes with it.
class Folder
{
public:
    /// Has another process make the budget, so that this one's peak memory tells of what is measured alone.
    Folder(Maker maker, std::int64_t count)
    {
        if (auto const process = ::fork(); process == 0) {
            auto const budget = maker(count);
            storage::Document::create(places, budget.content, budget.postings)->saveAs(file);
            ::_exit(0);
        } else {
            ::waitpid(process, nullptr, 0);
        }
    }

    std::unique_ptr<storage::Document> open() const { return storage::Document::open(places, file); }

    /// Tells the size of the file, and restarts the count of peak memory.
    void describe(benchmark::State& state) const
    {
        state.counters["file_MiB"] = static_cast<double>(QFileInfo(file).size()) / (1 << 20);
        std::ofstream("/proc/self/clear_refs") << 5;
    }

    QTemporaryDir folder;
    storage::Places places{folder.filePath(QStringLiteral("working")), folder.filePath(QStringLiteral("backups"))};
    QString file = folder.filePath(QStringLiteral("large.budget"));
};

/// Tells the most memory that the process held at once since Folder::describe().
void tellPeak(benchmark::State& state)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmHWM:") {
            double kibibytes = 0;
            status >> kibibytes;
            state.counters["peak_MiB"] = kibibytes / 1024;
        }
    }
}

void openBudget(benchmark::State& state, Maker maker)
{
    Folder const at(maker, state.range(0));
    at.describe(state);
    for ([[maybe_unused]] auto const _ : state) {
        auto const document = at.open();
        benchmark::DoNotOptimize(document->content());
    }
    tellPeak(state);
}

void dueWithinAnotherDay(storage::Document& document)
{
    auto settings = document.content().settings;
    settings.dueWithin = std::chrono::days((settings.dueWithin.count() + 1) % 60);
    document.transact([&] { document.write(settings); });
}

void saveBudget(benchmark::State& state, Maker maker)
{
    Folder const at(maker, state.range(0));
    auto const document = at.open();
    at.describe(state);
    for ([[maybe_unused]] auto const _ : state) {
        state.PauseTiming();
        dueWithinAnotherDay(*document);
        state.ResumeTiming();
        document->save();
    }
    tellPeak(state);
}

/// Leaves a changed working copy in \a places, as a crash would.
void crash(Folder const& at, storage::Places const& places)
{
    auto const document = at.open();
    dueWithinAnotherDay(*document);
    QDir().mkpath(places.workingCopies);
    QDir const working(at.places.workingCopies);
    for (auto const& name : working.entryList({QStringLiteral("*.budget"), QStringLiteral("*.origin")}, QDir::Files)) {
        QFile::copy(working.filePath(name), places.workingCopies + QLatin1Char('/') + name);
    }
}

/// Looks for unsaved work at a start, and recovers it.
void recoverBudget(benchmark::State& state, Maker maker)
{
    Folder const at(maker, state.range(0));
    storage::Places const left{at.folder.filePath(QStringLiteral("left")), at.places.backups};
    at.describe(state);
    for ([[maybe_unused]] auto const _ : state) {
        state.PauseTiming();
        crash(at, left);
        state.ResumeTiming();
        benchmark::DoNotOptimize(storage::Document::recover(left, storage::Document::orphans(left).at(0))->content());
    }
    tellPeak(state);
}

/// Posts, and asks whether the budget is dirty, as the window's title does after each change.
void postOnce(benchmark::State& state)
{
    Folder const at(manyLedgers, state.range(0));
    auto const document = at.open();
    auto const posting = manyLedgers(1).postings.front();
    for ([[maybe_unused]] auto const _ : state) {
        document->transact([&] { document->post(posting); });
        benchmark::DoNotOptimize(document->isDirty());
    }
}

/// Gives a ledger another number, and asks likewise.
void recodeOnce(benchmark::State& state)
{
    Folder const at(longLedger, state.range(0));
    auto const document = at.open();
    auto account = document->content().books.accounts.at(AccountNumber(first));
    for ([[maybe_unused]] auto const _ : state) {
        auto const original = account.code;
        account.code = {AccountNumber(original.number().integer() + 10), original.name(), std::nullopt};
        document->transact([&] { document->change(original.number(), account); });
        benchmark::DoNotOptimize(document->isDirty());
    }
}

/// Reads the end of a ledger that all postings are in.
void latestPostings(benchmark::State& state)
{
    Folder const at(longLedger, 1'000'000);
    auto const document = at.open();
    for ([[maybe_unused]] auto const _ : state) {
        benchmark::DoNotOptimize(
            document->latestPostingsOf(AccountNumber(first), static_cast<std::size_t>(state.range(0))));
    }
}
}

BENCHMARK_CAPTURE(openBudget, sample, sample)->Arg(0)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
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
BENCHMARK_CAPTURE(openBudget, postings, manyLedgers)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(saveBudget, postings, manyLedgers)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK_CAPTURE(recoverBudget, postings, manyLedgers)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();
BENCHMARK(postOnce)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(recodeOnce)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(latestPostings)->Arg(100)->Arg(60'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
