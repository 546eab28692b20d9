#include "PlannedRecords.h"

#include <presenter/PlanningPresenter.h>
#include <presenter/Session.h>
#include <tlm/desktop_ui/MainWindow.h>

#include <QDate>
#include <QDebug>
#include <QStatusBar>

#include <utility>

namespace tallymere::presenter {

using engine::Household;
using tlm::accounting::AccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetedMoney;
using tlm::desktop_ui::MainWindow;
using tlm::foundation::Error;
using tlm::navigation::AllowSubAccounts;

PlanningPresenter::PlanningPresenter(MainWindow& window, Session& session)
    : window_(window), session_(session), walk_(window, [this] { show(walking_); })
{
    joinViews();
    joinChanges();
    connect(&walk_, &SaveWalk::ended, this, &PlanningPresenter::expectUpdate);
}

void PlanningPresenter::joinViews()
{
    using Wish = std::pair<void (MainWindow::*)(), Types>;
    for (auto const& [wish, type] :
         {Wish(&MainWindow::prepareShowBills, Types::Bill), Wish(&MainWindow::prepareShowDebts, Types::Debt),
          Wish(&MainWindow::prepareShowGoals, Types::Goal), Wish(&MainWindow::prepareShowNontracks, Types::Nontrack),
          Wish(&MainWindow::prepareShowWages, Types::Wage)}) {
        connect(&window_, wish, this, [this, type = type] { show(type); });
    }
    connect(&window_, &MainWindow::lookUpBankAccounts, this, &PlanningPresenter::onLookUpBankAccounts);
}

void PlanningPresenter::joinChanges()
{
    connect(&window_, &MainWindow::added, this, &PlanningPresenter::onAdded);
    connect(&window_, &MainWindow::renamed, this, &PlanningPresenter::onRenamed);
    connect(&window_, &MainWindow::updated, this, &PlanningPresenter::onUpdated);
    connect(&window_, &MainWindow::removed, this, &PlanningPresenter::onRemoved);
}

void PlanningPresenter::show(Types type)
{
    auto const& household = session_.household();
    auto const& items = household.content().items;
    auto const& settings = household.content().settings;
    auto const& preferred = settings.preferred;
    auto const& usable = settings.usable;
    auto const& displayAs = settings.displayAs;
    switch (type) {
    case Types::Bill:
        window_.onShowBills(bills(items), preferred, usable, displayAs);
        break;
    case Types::Debt:
        window_.onShowDebts(debts(items), household.keptAt(type), household.codes(AccountTypes::Liability),
                            household.openBanks(), preferred, usable, displayAs);
        break;
    case Types::Goal:
        window_.onShowGoals(goals(items), household.keptAt(type), household.codes(AccountTypes::Asset),
                            household.openBanks(), preferred, usable, displayAs, wagesTotal());
        break;
    case Types::Nontrack:
        window_.onShowNontracks(nontracks(items), preferred, usable, displayAs);
        break;
    case Types::Wage:
        window_.onShowWages(wages(items), preferred, usable, displayAs);
        break;
    case Types::None:
        break;
    }
}

/// \return nothing where the budget is too large to count, so that the goals can be planned smaller all the same
fiscora::Money PlanningPresenter::wagesTotal() const
{
    auto const& household = session_.household();
    try {
        return household.monthlyTotals().wages;
    } catch (Error const& uncountable) {
        qWarning() << "Failed to compare goals with wages:" << uncountable.message();
        window_.statusBar()->showMessage(uncountable.message());
        return fiscora::Money(household.content().settings.preferred);
    }
}

void PlanningPresenter::onLookUpBankAccounts(BankName const& bn, AllowSubAccounts shouldAllow)
{
    emit window_.lookedUpBankAccounts(bn, session_.household().bankAccounts(bn, shouldAllow));
}

void PlanningPresenter::onAdded(Id const& id, Types type, BudgetedMoney const& item, Account const& ba)
{
    auto const refusal = refusalOf(
        session_, [&](Household& household) { household.add(planned(type, item), ba, QDate::currentDate()); });
    answer(id, {}, item.source(), refusal);
}

void PlanningPresenter::onRenamed(Id const& id, Types type, Source const& original, Source const& changed)
{
    walk_.goOn();
    walking_ = type;
    auto const refusal = refusalOf(session_, [&](Household& household) {
        household.rename({type, original}, changed);
    });
    refused_.keep({id, changed}, original, refusal);
    rename_ = refusal ? std::nullopt : std::optional(Rename{id, original, changed});
    answer(id, original, changed, refusal);
}

void PlanningPresenter::onUpdated(Id const& id, Types type, BudgetedMoney const& item, Account const& ba)
{
    auto const source = item.source();
    auto const before = refused_.before({id, source});
    refused_.forget();
    if (before) {
        answer(id, before->original, source, before->sentence);
        return;
    }
    auto const refusal = refusalOf(session_, [&](Household& household) {
        household.change({type, source}, planned(type, item), ba);
    });
    auto const rename = rename_ && rename_->id == id ? std::exchange(rename_, {}) : std::nullopt;
    answer(id, source, source, refusal);
    if (refusal && rename && walk_.hasViewGone()) {
        tellHalfMade(*rename, tr("What else was changed about it was refused: %1").arg(*refusal));
    }
}

void PlanningPresenter::onRemoved(Id const& id, Types type, Source const& source)
{
    auto const refusal = refusalOf(session_, [&](Household& household) { household.remove({type, source}); });
    answer(id, source, source, refusal);
}

void PlanningPresenter::answer(Id const& id, std::optional<Source> const& original, Source const& displayed,
                               Refusal const& refusal)
{
    if (refusal) {
        emit window_.saveFailed(id, original, *refusal, displayed);
    } else {
        emit window_.saveSucceeded(id, displayed);
    }
}

/// A view that went away over an accepted name has told what belongs to it by now, if that could be read.
void PlanningPresenter::expectUpdate()
{
    if (auto const rename = std::exchange(rename_, {}); rename && walk_.hasViewGone()) {
        tellHalfMade(*rename, tr("What else was typed for it can't be read, so it is as it was before."));
    }
}

void PlanningPresenter::tellHalfMade(Rename const& rename, QString const& rest)
{
    walk_.tellAtEnd(tr("%1 is called %2 now. %3").arg(rename.original.name(), rename.changed.name(), rest));
}
}
