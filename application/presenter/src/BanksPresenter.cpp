#include "BankRecords.h"

#include <presenter/BanksPresenter.h>
#include <presenter/Messages.h>
#include <presenter/Session.h>
#include <tlm/desktop_ui/MainWindow.h>

#include <QDate>

#include <algorithm>
#include <utility>

namespace tallymere::presenter {

using engine::Household;
using tlm::banking::BankAccountTypes;
using tlm::desktop_ui::MainWindow;

BanksPresenter::BanksPresenter(MainWindow& window, Session& session)
    : window_(window), session_(session), walk_(window, [this] { onPrepareShowBanks(); })
{
    connect(&window_, &MainWindow::prepareShowBanks, this, &BanksPresenter::onPrepareShowBanks);
    connect(&session_, &Session::replaced, this, [this] { made_.clear(); });
    connect(&walk_, &SaveWalk::ended, this, [this] { refused_.forget(); });
    joinBanks();
    joinAccounts();
}

void BanksPresenter::joinBanks()
{
    connect(&window_, &MainWindow::bankAdded, this, &BanksPresenter::onAdded);
    connect(&window_, &MainWindow::bankUpdated, this, &BanksPresenter::onUpdated);
    connect(&window_, &MainWindow::bankRenamed, this, &BanksPresenter::onRenamed);
    connect(&window_, &MainWindow::bankClosed, this, &BanksPresenter::onClosed);
    connect(&window_, &MainWindow::bankOpened, this, &BanksPresenter::onOpened);
    connect(&window_, &MainWindow::bankRemoved, this, &BanksPresenter::onRemoved);
}

void BanksPresenter::joinAccounts()
{
    connect(&window_, &MainWindow::addedBankAccount, this, &BanksPresenter::onAddedAccount);
    connect(&window_, &MainWindow::renamedBankAccount, this, &BanksPresenter::onRenamedAccount);
    connect(&window_, &MainWindow::removedBankAccount, this, &BanksPresenter::onRemovedAccount);
}

void BanksPresenter::onPrepareShowBanks()
{
    auto const& settings = session_.household().content().settings;
    BankTree const tree(session_.household());
    window_.onShowBanks(tree.banks(), tree.accounts(), settings.usable, settings.displayAs);
    // However a view goes: it closes itself, or another one takes its place.
    connect(window_.centralWidget(), &QObject::destroyed, this, &BanksPresenter::takeBackUnlisted,
            Qt::QueuedConnection);
}

void BanksPresenter::onAdded(Bank const& b)
{
    walk_.goOn();
    answer({}, b.name, refusalOf(session_, [&](Household& household) { household.addBank(b); }));
}

void BanksPresenter::onRenamed(BankName const& original, BankName const& change)
{
    walk_.goOn();
    auto const refusal = refusalOf(session_, [&](Household& household) { household.renameBank(original, change); });
    refused_.keep(change, original, refusal);
    answer(original, change, refusal);
}

void BanksPresenter::onOpened(BankName const& bn)
{
    takeStep(bn, [&](Household& household) { household.reopenBank(bn); });
}

void BanksPresenter::onClosed(BankName const& bn)
{
    takeLastStep(bn, [&](Household& household) { household.closeBank(bn); });
}

/// The view always tells an open bank here, so a closed one stays closed.
void BanksPresenter::onUpdated(Bank const& b)
{
    takeLastStep(b.name, [&](Household& household) { household.listAccounts(b.name, BankTree(household).listed(b)); });
}

void BanksPresenter::takeStep(BankName const& bn, Change const& change)
{
    walk_.goOn();
    auto const before = refused_.before(bn);
    auto const original = before ? before->original : bn;
    auto const refusal = before ? before->sentence : refusalOf(session_, change);
    refused_.keep(bn, original, refusal);
    answer(original, bn, refusal);
    if (refusal && walk_.hasViewGone()) {
        walk_.tellAtEnd(tr("Not all that was changed about %1 could be saved: %2").arg(bn.institution(), *refusal));
    }
}

void BanksPresenter::takeLastStep(BankName const& bn, Change const& change)
{
    takeStep(bn, change);
    refused_.forget();
}

void BanksPresenter::onRemoved(BankName const& bn)
{
    walk_.goOn();
    answer(bn, bn, refusalOf(session_, [&](Household& household) { household.removeBank(bn); }));
}

void BanksPresenter::onAddedAccount(QString const& name, BankAccountTypes type, fiscora::Money const& openingBalance)
{
    walk_.goOn();
    std::optional<Code> added;
    auto const refusal = refusalOf(session_, [&](Household& household) {
        auto const number = household.addBankAccount(name, type, openingBalance, QDate::currentDate());
        made_.insert(number);
        added = Code(number, name, std::nullopt);
    });
    answerAccount({}, added ? *added : codeNamed(name), refusal);
}

/// The view may know the account under another parent than the books do.
void BanksPresenter::onRenamedAccount(Code const& original, Code const& changed)
{
    walk_.goOn();
    auto const refusal = refusalOf(session_, [&](Household& household) {
        auto const& accounts = household.content().books.accounts;
        auto const found = accounts.find(original.number());
        auto const parent = found == accounts.end() ? changed.parent() : found->second.code.parent();
        household.recode(original.number(), Code(original.number(), changed.name(), parent));
    });
    answerAccount(original, changed, refusal);
}

void BanksPresenter::onRemovedAccount(Code const& ac)
{
    walk_.goOn();
    answerAccount(ac, ac, refusalOf(session_, [&](Household& household) { household.removeAccount(ac.number()); }));
}

void BanksPresenter::answer(std::optional<BankName> const& original, BankName const& displayed, Refusal const& refusal)
{
    if (refusal) {
        emit window_.bankSaveFailed(original, *refusal, displayed);
    } else {
        emit window_.bankSaveSucceeded(displayed);
    }
}

void BanksPresenter::answerAccount(std::optional<Code> const& original, Code const& displayed, Refusal const& refusal)
{
    if (refusal) {
        emit window_.bankAccountSaveFailed(original, *refusal, displayed);
    } else {
        emit window_.bankAccountSaveSucceeded(displayed);
    }
}

void BanksPresenter::takeBackUnlisted()
{
    for (auto const& number : std::exchange(made_, {})) {
        auto const& books = session_.household().content().books;
        auto const isListed =
            std::ranges::any_of(books.banks, [&](auto const& each) { return each.second.accounts().contains(number); });
        auto const found = books.accounts.find(number);
        if (isListed || found == books.accounts.end()) {
            continue;
        }
        auto const name = found->second.code.name();
        auto const refusal = refusalOf(session_, [&](Household& household) { household.removeAccount(number); });
        tellFailure(window_, tr("Not Everything Was Changed"),
                    refusal
                        ? tr("No bank has the new account %1, and it could not be taken back: %2").arg(name, *refusal)
                        : tr("The new account %1 was taken back, since its bank wasn't saved. Add it to a bank again.")
                              .arg(name));
    }
}
}
