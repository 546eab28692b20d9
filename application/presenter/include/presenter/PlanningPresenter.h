#pragma once

#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/navigation/AllowSubAccounts.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace fiscora {
class Money;
}
namespace tallymere::engine {
class Household;
}
namespace tlm::banking {
struct BankAccount;
class BankName;
}
namespace tlm::budgeting {
class BudgetedMoney;
}
namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere::presenter {

class Session;

/// Shows the bills, debts, goals, nontracks and wages of the open budget, and answers each change to them at once by exactly
/// one success or failure.
///
/// A view renames an item and updates it right afterwards under the new name. Where that name was refused, because another
/// item has it, the update would go to that other item, so it is refused too. Where the view went away over the accepted
/// name, and the update is refused or doesn't come since what was typed can't be read, a message box tells so over a fresh
/// view.
class PlanningPresenter : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the presenter.
    PlanningPresenter(tlm::desktop_ui::MainWindow& window, Session& session);

private:
    using Id = tlm::navigation::GuiElementIdentifier;
    using Types = tlm::budgeting::BudgetItemTypes;
    using Source = tlm::budgeting::BudgetSource;
    using Account = std::optional<tlm::banking::BankAccount>;

    /// The name that an entry of a view was given last, or was to be given.
    struct Rename
    {
        Id id;
        Source original;
        Source changed;
        std::optional<QString> refusal; ///< empty for a name that was accepted
        bool hasViewGone = false;
        bool isFollowed = false; ///< by an update
    };

    void joinViews();
    void joinChanges();
    void show(Types type);
    fiscora::Money wagesTotal() const;
    void onPrepareShowDashboard();
    void onLookUpBankAccounts(tlm::banking::BankName const& bn, tlm::navigation::AllowSubAccounts shouldAllow);

    void onAdded(Id const& id, Types type, tlm::budgeting::BudgetedMoney const& item, Account const& ba);
    void onRenamed(Id const& id, Types type, Source const& original, Source const& changed);
    void onUpdated(Id const& id, Types type, tlm::budgeting::BudgetedMoney const& item, Account const& ba);
    void onRemoved(Id const& id, Types type, Source const& source);

    /// \return why \a change was refused, empty when it was made
    std::optional<QString> refusalOf(std::function<void(engine::Household&)> const& change);
    void answer(Id const& id, std::optional<Source> const& original, Source const& displayed,
                std::optional<QString> const& refusal);
    bool isForAnotherItem(Id const& id, Source const& source);
    void expectUpdate(Id const& id, Types type);
    void tellHalfMade(Types type, QString const& rest);

    tlm::desktop_ui::MainWindow& window_;
    Session& session_;
    std::optional<Rename> rename_;
};
}
