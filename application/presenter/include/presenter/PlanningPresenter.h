#pragma once

#include <presenter/Refusal.h>
#include <presenter/SaveWalk.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/navigation/AllowSubAccounts.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QObject>
#include <QString>

#include <optional>
#include <utility>

namespace fiscora {
class Money;
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

    /// An accepted name, which an update of the entry follows.
    struct Rename
    {
        Id id;
        Source original;
        Source changed;
    };

    void joinViews();
    void joinChanges();
    void show(Types type);
    fiscora::Money wagesTotal() const;
    void onLookUpBankAccounts(tlm::banking::BankName const& bn, tlm::navigation::AllowSubAccounts shouldAllow);

    void onAdded(Id const& id, Types type, tlm::budgeting::BudgetedMoney const& item, Account const& ba);
    void onRenamed(Id const& id, Types type, Source const& original, Source const& changed);
    void onUpdated(Id const& id, Types type, tlm::budgeting::BudgetedMoney const& item, Account const& ba);
    void onRemoved(Id const& id, Types type, Source const& source);

    void answer(Id const& id, std::optional<Source> const& original, Source const& displayed, Refusal const& refusal);
    void expectUpdate();
    void tellHalfMade(Rename const& rename, QString const& rest);

    tlm::desktop_ui::MainWindow& window_;
    Session& session_;
    SaveWalk walk_;
    Types walking_ = Types::None; ///< which view tells the present walk
    std::optional<Rename> rename_;
    RefusedStep<std::pair<Id, Source>, Source> refused_;
};
}
