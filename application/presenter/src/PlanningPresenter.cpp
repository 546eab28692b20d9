#include "PlannedRecords.h"

#include <presenter/Messages.h>
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

PlanningPresenter::PlanningPresenter(MainWindow& window, Session& session) : window_(window), session_(session)
{
    joinViews();
    joinChanges();
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
    connect(&window_, &MainWindow::prepareShowDashboard, this, &PlanningPresenter::onPrepareShowDashboard);
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

void PlanningPresenter::onPrepareShowDashboard()
{
    if (rename_) {
        rename_->hasViewGone = true;
    }
}

void PlanningPresenter::onLookUpBankAccounts(BankName const& bn, AllowSubAccounts shouldAllow)
{
    emit window_.lookedUpBankAccounts(bn, session_.household().bankAccounts(bn, shouldAllow));
}

void PlanningPresenter::onAdded(Id const& id, Types type, BudgetedMoney const& item, Account const& ba)
{
    auto const refusal =
        refusalOf([&](Household& household) { household.add(planned(type, item), ba, QDate::currentDate()); });
    answer(id, {}, item.source(), refusal);
}

void PlanningPresenter::onRenamed(Id const& id, Types type, Source const& original, Source const& changed)
{
    auto const refusal = refusalOf([&](Household& household) { household.rename({type, original}, changed); });
    rename_ = Rename{id, original, changed, refusal};
    answer(id, original, changed, refusal);
    if (!refusal && rename_->hasViewGone) {
        QMetaObject::invokeMethod(
            this, [this, id, type] { expectUpdate(id, type); }, Qt::QueuedConnection);
    }
}

void PlanningPresenter::onUpdated(Id const& id, Types type, BudgetedMoney const& item, Account const& ba)
{
    auto const source = item.source();
    if (isForAnotherItem(id, source)) {
        answer(id, rename_->original, source, rename_->refusal);
        return;
    }
    auto const refusal = refusalOf([&](Household& household) {
        household.change({type, source}, planned(type, item), ba);
    });
    auto const isSecondHalf = rename_ && rename_->id == id;
    if (isSecondHalf) {
        rename_->isFollowed = true;
    }
    answer(id, source, source, refusal);
    if (refusal && isSecondHalf && rename_->hasViewGone) {
        tellHalfMade(type, tr("What else was changed about it was refused: %1").arg(*refusal));
    }
}

void PlanningPresenter::onRemoved(Id const& id, Types type, Source const& source)
{
    auto const refusal = refusalOf([&](Household& household) { household.remove({type, source}); });
    answer(id, source, source, refusal);
}

/// An update of an entry whose new name was refused speaks of the item that has this name.
bool PlanningPresenter::isForAnotherItem(Id const& id, Source const& source)
{
    if (!rename_ || rename_->id != id || !rename_->refusal) {
        return false;
    }
    if (rename_->changed != source) {
        rename_.reset();
        return false;
    }
    return true;
}

std::optional<QString> PlanningPresenter::refusalOf(std::function<void(Household&)> const& change)
{
    try {
        session_.change(change);
    } catch (Error const& refusal) {
        return refusal.message();
    } catch (std::exception const& failure) {
        qWarning() << "Failed to change what is planned:" << failure.what();
        return tr("That didn't work, and your budget is as it was before. The cause: %1")
            .arg(QString::fromUtf8(failure.what()));
    }
    return {};
}

/// Outside of any `try`: a view that fails over the answer must not be told that its change failed.
void PlanningPresenter::answer(Id const& id, std::optional<Source> const& original, Source const& displayed,
                               std::optional<QString> const& refusal)
{
    if (refusal) {
        emit window_.saveFailed(id, original, *refusal, displayed);
    } else {
        emit window_.saveSucceeded(id, displayed);
    }
}

/// Comes when the walk of the view that sent the accepted name has ended.
void PlanningPresenter::expectUpdate(Id const& id, Types type)
{
    if (rename_ && rename_->id == id && !rename_->isFollowed) {
        tellHalfMade(type, tr("What else was typed for it can't be read, so it is as it was before."));
    }
}

void PlanningPresenter::tellHalfMade(Types type, QString const& rest)
{
    auto const rename = *std::exchange(rename_, {});
    show(type);
    tellFailure(window_, tr("Not Everything Was Changed"),
                tr("%1 is called %2 now. %3").arg(rename.original.name(), rename.changed.name(), rest));
}
}
