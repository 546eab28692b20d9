#include "LedgerRecords.h"

#include <presenter/LedgersPresenter.h>
#include <presenter/Messages.h>
#include <presenter/Session.h>
#include <tlm/desktop_ui/MainWindow.h>
#include <tlm/foundation/Error.h>

#include <QDate>
#include <QLocale>
#include <QStatusBar>

#include <algorithm>
#include <chrono>
#include <vector>

namespace tallymere::presenter {

using engine::Household;
using engine::Posting;
using engine::PostingId;
using tlm::accounting::AccountCode;
using tlm::accounting::presentationText;
using tlm::desktop_ui::MainWindow;
using tlm::foundation::Error;

LedgersPresenter::LedgersPresenter(MainWindow& window, Session& session)
    : window_(window), session_(session), walk_(window, [this] { onPrepareShowLedgers(); })
{
    connect(&window_, &MainWindow::prepareShowLedgers, this, &LedgersPresenter::onPrepareShowLedgers);
    connect(&window_, &MainWindow::prepareShowMoneyTransfer, this, &LedgersPresenter::onPrepareShowMoneyTransfer);
    connect(&window_, &MainWindow::selectedLedger, this, &LedgersPresenter::onSelectedLedger);
    connect(&walk_, &SaveWalk::ended, this, [this] { refused_.forget(); });
    connect(&session_, &Session::replaced, this, [this] { numbers_.clear(); });
    joinChanges();
}

void LedgersPresenter::joinChanges()
{
    connect(&window_, &MainWindow::addedTransaction, this, &LedgersPresenter::onAdded);
    connect(&window_, &MainWindow::updatedTransaction, this, &LedgersPresenter::onUpdated);
    connect(&window_, &MainWindow::markCleared, this, &LedgersPresenter::onMarkCleared);
    connect(&window_, &MainWindow::markUnreconciled, this, &LedgersPresenter::onMarkUnreconciled);
    connect(&window_, &MainWindow::markReconciled, this, &LedgersPresenter::onMarkReconciled);
    connect(&window_, &MainWindow::removedTransaction, this, &LedgersPresenter::onRemoved);
    connect(&window_, &MainWindow::transferRequested, this, &LedgersPresenter::onTransferRequested);
}

void LedgersPresenter::onPrepareShowLedgers()
{
    numbers_.clear();
    auto const& household = session_.household();
    auto const& content = household.content();
    window_.onShowLedgers(household.accounts(), currencies(content), content.settings.displayAs);
}

void LedgersPresenter::onPrepareShowMoneyTransfer()
{
    numbers_.clear();
    auto const& household = session_.household();
    auto const& settings = household.content().settings;
    auto const accounts = transferable(household);
    window_.onShowMoneyTransfer(accounts, accounts, settings.usable, settings.displayAs);
}

void LedgersPresenter::onSelectedLedger(AccountCode const& code)
{
    std::optional<LedgerAccount> found;
    try {
        found = ledger(code.number());
    } catch (std::exception const& failure) {
        tellFailure(window_, tr("Show Ledger"), QString::fromUtf8(failure.what()));
        return;
    }
    emit window_.showLedger(*found);
    tellLength(*found);
}

/// \return as many of the latest transactions as there are numbers for
LedgersPresenter::LedgerAccount LedgersPresenter::ledger(AccountNumber const& number)
{
    auto const& household = session_.household();
    LedgerAccount ledger{account(household, number), {}};
    auto const postings = household.latestPostingsOf(number, shownAtMost_);
    std::vector<std::pair<PostingId, Posting const*>> latestFirst;
    latestFirst.reserve(postings.size());
    std::ranges::transform(postings, std::back_inserter(latestFirst),
                           [](auto const& each) { return std::pair(each.first, &each.second); });
    std::ranges::sort(latestFirst, std::greater(),
                      [](auto const& each) { return std::pair(each.second->occurredOn, each.first); });
    for (auto const& [id, each] : latestFirst) {
        if (!numbers_.has(id) && numbers_.left() <= leftToNew_) {
            break;
        }
        auto const taken = numbers_.take(id);
        ledger.transactions.emplace(taken, transaction(*each, taken, household.content().books.accounts));
    }
    return ledger;
}

/// Numbers that other ledgers have taken are free again once the ledgers are opened anew.
void LedgersPresenter::tellLength(LedgerAccount const& ledger)
{
    auto const& turnovers = session_.household().content().books.turnovers;
    auto const& code = ledger.account.code();
    auto const shown = ledger.transactions.size();
    auto const turnover = turnovers.find(code.number());
    if (turnover == turnovers.end() || turnover->second.postings == shown) {
        return;
    }
    QLocale const locale;
    auto text = tr("%1 has %2 transactions, more than can be shown at once. These are the latest %3.")
                    .arg(code.name(), locale.toString(qulonglong(turnover->second.postings)),
                         locale.toString(qulonglong(shown)));
    if (shown < shownAtMost_) {
        text += QLatin1Char(' ') + tr("Open the ledgers anew to see more of them.");
    }
    using namespace std::chrono_literals;
    window_.statusBar()->showMessage(text, std::chrono::milliseconds(30s).count());
}

void LedgersPresenter::onAdded(Transaction const& txn)
{
    walk_.goOn();
    post([&](Household& household) { return household.post(posting(txn)); });
}

/// Answers for \a change, which makes one posting that gets a number.
void LedgersPresenter::post(std::function<PostingId(Household&)> const& change)
{
    std::optional<Number> posted;
    auto const refusal = refusalOf(session_, [&](Household& household) {
        if (numbers_.left() == 0) {
            throw Error(tr("No more transactions can be shown at once. Leave the ledgers, open them anew, and add "
                           "this one there."));
        }
        posted = numbers_.take(change(household));
    });
    answer({}, posted, refusal);
}

void LedgersPresenter::onUpdated(Number const& tn, Transaction const& txn)
{
    walk_.goOn();
    auto const refusal =
        refusalOf(session_, [&](Household& household) { household.changePosting(idOf(tn), posting(txn)); });
    refused_.keep(tn, tn, refusal);
    answer(tn, tn, refusal);
}

void LedgersPresenter::onMarkCleared(Numbers const& numbers)
{
    mark(numbers, [&](Household& household) { household.markCleared(idsOf(numbers)); });
}

void LedgersPresenter::onMarkUnreconciled(Numbers const& numbers)
{
    mark(numbers, [&](Household& household) { household.markUnreconciled(idsOf(numbers)); });
}

void LedgersPresenter::onMarkReconciled(Number const& number)
{
    mark({number}, [&](Household& household) { household.markReconciled(idOf(number)); });
}

void LedgersPresenter::mark(Numbers const& numbers, std::function<void(Household&)> const& change)
{
    walk_.goOn();
    auto refusal = refusedBefore(numbers);
    if (!refusal) {
        refusal = refusalOf(session_, change);
    }
    auto const least = numbers.empty() ? std::nullopt : std::optional(*numbers.begin());
    answer(least, least, refusal);
    if (refusal && walk_.hasViewGone()) {
        walk_.tellAtEnd(
            tr("%1 was changed, but it was not marked as cleared or reconciled: %2")
                .arg(tlm::accounting::transactionCaption().arg(presentationText(least.value_or(Number()))), *refusal));
    }
}

/// \return why the change of one of \a numbers was refused that the mark follows
Refusal LedgersPresenter::refusedBefore(Numbers const& numbers) const
{
    for (auto const& number : numbers) {
        if (auto const before = refused_.before(number)) {
            return before->sentence;
        }
    }
    return {};
}

void LedgersPresenter::onRemoved(Number const& number)
{
    walk_.goOn();
    auto const refusal = refusalOf(session_, [&](Household& household) { household.removePosting(idOf(number)); });
    answer(number, {}, refusal);
}

void LedgersPresenter::onTransferRequested(AccountNumber const& from, AccountNumber const& to,
                                           fiscora::Money const& amount, QString const& reason)
{
    post([&](Household& household) { return household.transfer(from, to, amount, reason, QDate::currentDate()); });
}

/// \throws foundation::Error for a number that means nothing
PostingId LedgersPresenter::idOf(Number const& number) const
{
    auto const id = numbers_.find(number);
    if (!id) {
        throw Error(tr("This transaction isn't shown any more. Open the ledgers anew, and change it there."));
    }
    return *id;
}

/// \throws foundation::Error as idOf(), and without any number
std::set<PostingId> LedgersPresenter::idsOf(Numbers const& numbers) const
{
    if (numbers.empty()) {
        throw Error(tr("No transaction is chosen. Choose those that are to be marked."));
    }
    std::set<PostingId> ids;
    std::ranges::transform(numbers, std::inserter(ids, ids.end()), [this](auto const& each) { return idOf(each); });
    return ids;
}

void LedgersPresenter::answer(std::optional<Number> const& displayed, std::optional<Number> const& posted,
                              Refusal const& refusal)
{
    if (refusal) {
        emit window_.transactionSaveFailed(displayed, *refusal);
    } else {
        emit window_.transactionSaveSucceeded(displayed, posted);
    }
}
}
