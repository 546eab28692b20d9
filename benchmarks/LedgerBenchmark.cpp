#include "Figures.h"
#include "ShownWindow.h"

#include <fiscora/Money.h>
#include <tlm/accounting/Account.h>
#include <tlm/accounting/LedgerAccount.h>
#include <tlm/accounting/Transaction.h>

#include <QCheckBox>
#include <QDate>
#include <QDialogButtonBox>
#include <QLoggingCategory>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeWidget>

#include <algorithm>
#include <benchmark/benchmark.h>

namespace {

using namespace tlm;

constexpr unsigned int cashNumber = 1'000;

accounting::AccountCode codeOf(unsigned int number)
{
    return {accounting::AccountNumber(number), QStringLiteral("Account %1").arg(number), std::nullopt};
}

/// A cash account with range(0) postings to the other ones, of range(1) accounts in all.
struct Books
{
    explicit Books(benchmark::State const& state)
    {
        auto const others = static_cast<unsigned int>(state.range(1)) - 1;
        for (unsigned int each = 0; each <= others; ++each) {
            accounts.emplace(accounting::AccountTypes::Asset, codeOf(cashNumber + each), fiscora::Money(), false);
        }
        ledger.account = *accounts.begin();
        for (unsigned short number = 1; number <= state.range(0); ++number) {
            accounting::TransactionNumber const txn(number);
            ledger.transactions.emplace(
                txn, accounting::Transaction(QDate(2024, 1, 1).addDays(number / 5),
                                             codeOf(cashNumber + 1 + number % others), ledger.account.code(),
                                             fiscora::Money(fiscora::Currency::EUR, number % 100 + 1, 50, 0),
                                             QStringLiteral("Groceries and more, %1").arg(number), txn,
                                             accounting::TransactionStatuses::NotCleared));
        }
    }

    std::set<accounting::Account> accounts;
    accounting::LedgerAccount ledger;
};

/// A window on screen with the view of ledgers, none of which is chosen; whatever is asked for or sent is answered at once.
struct Ledgers : ShownWindow
{
    explicit Ledgers(benchmark::State const& state) : ShownWindow({1'280, 800}, {.isAccounting = true}), books(state)
    {
        using Window = desktop_ui::MainWindow;
        using Number = accounting::TransactionNumber;
        auto const accept = [this](Number const& number) {
            ++answered;
            emit window.transactionSaveSucceeded(number, number);
        };
        QObject::connect(&window, &Window::selectedLedger, &window, [this] { emit window.showLedger(books.ledger); });
        QObject::connect(&window, &Window::updatedTransaction, &window, accept);
        QObject::connect(&window, &Window::markCleared, &window, [accept](auto const& all) { accept(*all.begin()); });
        open();
    }

    /// Opens the view anew.
    void open()
    {
        end();
        window.onShowLedgers(books.accounts, {fiscora::Currency::EUR, fiscora::Currency::USD},
                             navigation::CurrencyDisplayOptions::Code);
        settle();
    }

    /// Ends when the ledger has been painted.
    void choose()
    {
        auto* const tree = window.findChild<QTreeWidget*>(QStringLiteral("ledgersTrwdgt"));
        auto const code = presentationText(books.ledger.account.code());
        tree->setCurrentItem(tree->findItems(code, Qt::MatchExactly | Qt::MatchRecursive).constFirst());
        settle();
    }

    QList<QCheckBox*> marks() const { return window.findChildren<QCheckBox*>(QStringLiteral("reconciledChckbx")); }
    QScrollBar& bar() const
    {
        return *window.findChild<QScrollArea*>(QStringLiteral("transactionsScrllr"))->verticalScrollBar();
    }

    void save() const
    {
        window.findChild<QDialogButtonBox*>(QStringLiteral("saveDiscardDlgbttnbx"))
            ->button(QDialogButtonBox::Save)
            ->click();
    }

    Books books;
    long long answered = 0;
};

double usedMegabytes()
{
    return usedKilobytes() / 1'024;
}

/// The first time counts what is made once a process.
void warmUp(Ledgers& ledgers)
{
    ledgers.choose();
    ledgers.open();
}

void showLedger(benchmark::State& state)
{
    Ledgers ledgers(state);
    warmUp(ledgers);
    auto grown = 0.0;
    for ([[maybe_unused]] auto const _ : state) {
        auto const before = usedMegabytes();
        ledgers.choose();
        grown = usedMegabytes() - before;
        state.PauseTiming();
        ledgers.open();
        state.ResumeTiming();
    }
    state.counters["MB"] = grown;
}

/// Checks a box and waits until it has been painted.
void markOne(benchmark::State& state)
{
    Ledgers ledgers(state);
    ledgers.choose();
    auto* const mark = ledgers.marks().constLast();
    for ([[maybe_unused]] auto const _ : state) {
        mark->click();
        ledgers.settle();
    }
}

/// Saves one changed mark, upon which the view closes.
void saveOne(benchmark::State& state)
{
    Ledgers ledgers(state);
    for ([[maybe_unused]] auto const _ : state) {
        state.PauseTiming();
        ledgers.choose();
        ledgers.marks().constLast()->click();
        state.ResumeTiming();
        ledgers.save();
        state.PauseTiming();
        ledgers.open();
        state.ResumeTiming();
    }
    if (ledgers.answered != 2 * state.iterations()) {
        state.SkipWithError("a mark was not saved");
    }
}

/// Looks at a hundred places of the ledger.
void scroll(benchmark::State& state)
{
    constexpr auto places = 100;
    Ledgers ledgers(state);
    ledgers.choose();
    auto const before = usedMegabytes();
    for ([[maybe_unused]] auto const _ : state) {
        for (auto place = 0; place < places; ++place) {
            ledgers.bar().setValue(static_cast<int>(ledgers.bar().maximum() * static_cast<qint64>(place) / places));
            ledgers.settle();
        }
    }
    Ledgers::letGo();
    state.counters["MB"] = usedMegabytes() - before;
    state.counters["per_place"] = timePer(places);
}

/// Makes all entries wait to be saved: each is refused once, without a word.
void refuseAll(Ledgers& ledgers)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    for (auto const& [number, txn] : ledgers.books.ledger.transactions) {
        emit ledgers.window.transactionSaveFailed(number, QString());
    }
    QLoggingCategory::setFilterRules(QString());
    Ledgers::letGo();
}

/// Saves when every entry is to be saved, each answered inside the emission.
void saveAll(benchmark::State& state)
{
    Ledgers ledgers(state);
    for ([[maybe_unused]] auto const _ : state) {
        state.PauseTiming();
        ledgers.choose();
        refuseAll(ledgers);
        state.ResumeTiming();
        ledgers.save();
        state.PauseTiming();
        ledgers.open();
        state.ResumeTiming();
    }
    if (ledgers.answered != state.iterations() * state.range(0)) {
        state.SkipWithError("an entry was not saved");
    }
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgNames({"entries", "accounts"});
    for (auto const entries : {1'000, 5'000, 50'000}) {
        benchmark->Args({entries, 50})->Args({entries, 500});
    }
    benchmark->Unit(benchmark::kMillisecond);
}
}

BENCHMARK(showLedger)->Apply(sizes)->Iterations(5);
BENCHMARK(markOne)->Apply(sizes)->Iterations(20);
BENCHMARK(saveOne)->Apply(sizes)->Iterations(5);
BENCHMARK(scroll)->Apply(sizes)->Iterations(1);
BENCHMARK(saveAll)
    ->ArgNames({"entries", "accounts"})
    ->Args({1'000, 50})
    ->Args({5'000, 50})
    ->Args({5'000, 500})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
