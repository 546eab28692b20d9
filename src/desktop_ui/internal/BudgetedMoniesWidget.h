#pragma once

#include "internal/BudgetedMoneyCreator.h"
#include "internal/BudgetedMoneyEntryWidget.h"
#include "ui_BudgetedMoniesWidget.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/budgeting/BudgetedMoney.h>
#include <tlm/budgeting/BudgetedMoneyMap.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QAbstractButton>
#include <QList>
#include <QString>
#include <QWidget>

#include <map>
#include <memory>
#include <optional>
#include <set>

class QPushButton;

namespace tlm::desktop_ui::internal {

/// Plans the budget items of one kind: a row for each, what they come to per month, and Add, Save and Discard.
///
/// Save sends each changed row on its own, and each is answered on its own, within the emission or later: a row that was
/// refused shows why, and the view closes once nothing is left to save. Whatever a receiver does meanwhile, even to end
/// the row or the view at once, is fine.
class BudgetedMoniesWidget : public QWidget, private Ui::BudgetedMoniesWidget
{
    Q_OBJECT

    using Entry = foundation::QtPtr<BudgetedMoneyEntryWidget>;

public:
    /// Shows no row yet: load() does.
    /// \param heading stands above the rows
    /// \param preferred the currency of the total
    /// \param usable currencies that amounts may be entered in
    BudgetedMoniesWidget(QString const& heading, std::unique_ptr<BudgetedMoneyCreator> creator,
                         fiscora::Currency const& preferred, std::set<fiscora::Currency> const& usable,
                         navigation::CurrencyDisplayOptions const& displayAs, foundation::QtPtr<QWidget> const& parent);
    ~BudgetedMoniesWidget() override;

    /// Adds a row for each of \a items in their order, or one empty row if there is none. The cursor stands in the
    /// first row then, and nothing is dirty.
    /// \param items of the kind that the creator makes
    template <typename Item>
    void load(budgeting::BudgetedMoneyMap<Item> const& items)
    {
        Entry first;
        for (auto const& [source, item] : items) {
            auto const entry = add(item, false);
            if (!first) {
                first = entry;
            }
        }
        if (first) {
            putCursorInto(first);
        } else {
            addEntryWidget();
        }
        updateTotal();
    }

signals:
    /// \param budgetedMoney ends after the emission
    void added(tlm::navigation::GuiElementIdentifier const& id,
               std::unique_ptr<tlm::budgeting::BudgetedMoney> const& budgetedMoney,
               std::optional<tlm::banking::BankAccount> const& ba);
    void renamed(tlm::navigation::GuiElementIdentifier const& id, tlm::budgeting::BudgetSource const& original,
                 tlm::budgeting::BudgetSource const& changed);
    /// \param budgetedMoney ends after the emission
    void updated(tlm::navigation::GuiElementIdentifier const& id,
                 std::unique_ptr<tlm::budgeting::BudgetedMoney> const& budgetedMoney,
                 std::optional<tlm::banking::BankAccount> const& ba);
    void removed(tlm::navigation::GuiElementIdentifier const& id, tlm::budgeting::BudgetSource const& source);
    /// May come twice: after the last answer, and after the walk in which it was given.
    void closing();

    /// A row wants to know the accounts of the bank \a bn; lookedUpBankAccounts() answers to all rows.
    void lookUpBankAccounts(tlm::banking::BankName const& bn);
    void lookedUpBankAccounts(tlm::banking::BankName const& bn,
                              std::set<tlm::banking::AccountNumberBankType> const& accountTypes);

public slots:
    /// Tells that it closes, and ends. It hides QWidget::close().
    bool close();

    /// \throws foundation::Error when no row is called \a id
    void onSaveSucceeded(tlm::navigation::GuiElementIdentifier const& id, tlm::budgeting::BudgetSource const& source);

    /// \param errorMessage is shown in the row
    /// \throws foundation::Error when no row is called \a id
    void onSaveFailed(tlm::navigation::GuiElementIdentifier const& id,
                      std::optional<tlm::budgeting::BudgetSource> const& original, QString const& errorMessage,
                      std::optional<tlm::budgeting::BudgetSource> const& displayed);

private slots:
    void addEntryWidget();
    void save();
    void updateTotal();
    void onClicked(tlm::foundation::QtPtr<QAbstractButton> const& button);
    void onFocusChanged(QWidget* before, QWidget* now);

private:
    Entry add(budgeting::BudgetedMoney const& item, bool isNew);
    void join(Entry const& entry);
    QList<BudgetedMoneyEntryWidget*> entries() const;
    bool hasDirtyEntry() const;
    Entry find(navigation::GuiElementIdentifier const& id);
    std::map<fiscora::Currency, fiscora::Money> monthlyTotals() const;

    void save(Entry const& entry);
    void sendRemoval(Entry const& entry);
    void sendUpdate(Entry const& entry);
    void sendAddition(Entry const& entry);

    void putCursorInto(Entry const& entry);
    void leadTabFirstTo(Entry const& entry);

    fiscora::Currency preferred_;
    std::set<fiscora::Currency> usable_;
    navigation::CurrencyDisplayOptions displayAs_;
    foundation::QtPtr<QPushButton> addButton_;
    std::unique_ptr<BudgetedMoneyCreator> creator_;
    bool isLoading_ = false;
    qsizetype lastFound_ = 0; ///< where find() looks first
};
}
