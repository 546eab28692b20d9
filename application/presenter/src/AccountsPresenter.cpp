#include <presenter/AccountsPresenter.h>
#include <presenter/Session.h>
#include <tlm/accounting/Account.h>
#include <tlm/desktop_ui/MainWindow.h>

#include <QDate>

namespace tallymere::presenter {

using engine::Household;
using tlm::accounting::Account;
using tlm::desktop_ui::MainWindow;

AccountsPresenter::AccountsPresenter(MainWindow& window, Session& session)
    : window_(window), session_(session), walk_(window, [this] { onPrepareShowAccounts(); })
{
    connect(&window_, &MainWindow::prepareShowAccounts, this, &AccountsPresenter::onPrepareShowAccounts);
    connect(&window_, &MainWindow::addedAct, this, &AccountsPresenter::onAdded);
    connect(&window_, &MainWindow::recoded, this, &AccountsPresenter::onRecoded);
    connect(&window_, &MainWindow::closed, this, &AccountsPresenter::onClosed);
    connect(&window_, &MainWindow::opened, this, &AccountsPresenter::onOpened);
    connect(&window_, &MainWindow::removedAct, this, &AccountsPresenter::onRemoved);
    connect(&walk_, &SaveWalk::ended, this, [this] { firstStep_.reset(); });
}

void AccountsPresenter::onPrepareShowAccounts()
{
    auto const& household = session_.household();
    auto const& settings = household.content().settings;
    window_.onShowAccounts(household.accounts(), settings.usable, settings.displayAs);
}

void AccountsPresenter::onAdded(Account const& a)
{
    walk_.goOn();
    answer({}, a.code(),
           refusalOf(session_, [&](Household& household) { household.addAccount(a, QDate::currentDate()); }));
}

void AccountsPresenter::onClosed(Code const& code)
{
    takeFirstStep(code, &Household::closeAccount);
}

void AccountsPresenter::onOpened(Code const& code)
{
    takeFirstStep(code, &Household::reopenAccount);
}

/// The view takes the code of the answer for the stored one: the name that it sends is the typed one, which isn't stored yet.
void AccountsPresenter::takeFirstStep(Code const& code, void (Household::*change)(Number const&))
{
    walk_.goOn();
    auto const refusal = refusalOf(session_, [&](Household& household) { (household.*change)(code.number()); });
    firstStep_ = FirstStep{code.number(), refusal};
    auto const stored = storedCode(code);
    answer(stored, refusal ? code : stored, refusal);
}

void AccountsPresenter::onRecoded(Code const& current, Code const& changed)
{
    walk_.goOn();
    auto const before = current; // what is told may be the very code that changes
    auto refusal = isAfterFirstStepOf(before.number()) ? firstStep_->refusal : Refusal();
    if (!refusal) {
        refusal = refusalOf(session_, [&](Household& household) { household.recode(before.number(), changed); });
    }
    answer(before, changed, refusal);
    tellIfUnseen(before.number(), refusal);
}

void AccountsPresenter::onRemoved(Code const& code)
{
    walk_.goOn();
    auto const stored = storedCode(code);
    auto const refusal = refusalOf(session_, [&](Household& household) { household.removeAccount(code.number()); });
    answer(stored, code, refusal);
    tellIfUnseen(code.number(), refusal);
}

/// \return the account's code in the books, \a told where they have none
AccountsPresenter::Code AccountsPresenter::storedCode(Code const& told) const
{
    auto const& accounts = session_.household().content().books.accounts;
    auto const found = accounts.find(told.number());
    return found == accounts.end() ? told : found->second.code;
}

void AccountsPresenter::answer(std::optional<Code> const& original, Code const& displayed, Refusal const& refusal)
{
    if (refusal) {
        emit window_.accountSaveFailed(original, *refusal, displayed);
    } else {
        emit window_.accountSaveSucceeded(displayed);
    }
}

void AccountsPresenter::tellIfUnseen(Number const& account, Refusal const& refusal)
{
    auto const wasFirstStepTaken = isAfterFirstStepOf(account) && !firstStep_->refusal;
    if (!refusal || !wasFirstStepTaken || !walk_.hasViewGone()) {
        return;
    }
    auto const& stored = session_.household().content().books.accounts.at(account);
    auto const sentence = stored.isClosed ? tr("%1 is closed now. What else was changed about it was refused: %2")
                                          : tr("%1 is open again. What else was changed about it was refused: %2");
    walk_.tellAtEnd(sentence.arg(stored.code.name(), *refusal));
}
}
