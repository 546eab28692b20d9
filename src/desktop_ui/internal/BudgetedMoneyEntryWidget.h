#pragma once

#include "ui_BudgetedMoneyEntryWidget.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/banking/AccountNumberBankType.h>
#include <tlm/banking/BankAccount.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/budgeting/BudgetedMoney.h>
#include <tlm/budgeting/EventFrequency.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>
#include <tlm/navigation/GuiElementIdentifier.h>

#include <QDate>
#include <QString>
#include <QWidget>

#include <optional>
#include <set>

namespace tlm::desktop_ui::internal {

/// One row of a planning view: a form for a bill, a nontrack or a wage, and the base of the rows for debts and goals.
///
/// Knows what it was loaded from, whether the person has touched it, and how to show an error that belongs to it. It
/// sends nothing by itself: the view walks its rows when they are saved.
class BudgetedMoneyEntryWidget : public QWidget, private Ui::BudgetedMoneyEntryWidget
{
    Q_OBJECT

public:
    /// Shows an item that is due today and holds nothing else.
    BudgetedMoneyEntryWidget(std::set<fiscora::Currency> const& usable,
                             navigation::CurrencyDisplayOptions const& displayAs,
                             foundation::QtPtr<QWidget> const& parent);
    ~BudgetedMoneyEntryWidget() override;

    /// \return what the row is called now without surrounding blanks, none if that leaves nothing
    std::optional<budgeting::BudgetSource> source() const;

    /// \return the source under which the item is stored, none if it never was
    std::optional<budgeting::BudgetSource> const& originalSource() const noexcept { return originalSource_; }

    /// \throws DataEntryError when what is typed is no amount
    fiscora::Money amount() const;
    budgeting::EventFrequency period() const;
    QDate nextOccurOn() const;

    bool isDirty() const noexcept { return isDirty_; }
    navigation::GuiElementIdentifier const& identifier() const noexcept { return id_; }
    bool isMarkedForRemoval() const;
    std::optional<QString> errorMessage() const;

    /// Shows \a message and counts the row as not saved.
    void setErrorMessage(QString const& message);

    /// Takes what is shown for stored.
    void markSaved();

    void clearDirty() noexcept { isDirty_ = false; }

public slots:
    void markDirty();
    virtual void onLookedUpBankAccounts(tlm::banking::BankName const& bn,
                                        std::set<tlm::banking::AccountNumberBankType> const& accountTypes);

public:
    /// \return the account picked in the row, none in a row without a choice
    virtual std::optional<banking::BankAccount> bankAccount() const;

    /// Loads the row, which isn't dirty then.
    virtual void setBudgetedMoney(budgeting::BudgetedMoney const& money);

signals:
    /// Something changed that can move the view's total.
    void valueChanged();
    void lookUpBankAccounts(tlm::banking::BankName const& bn);

protected:
    // What the rows of debts and goals build on.
    using Ui::BudgetedMoneyEntryWidget::extrasHbxlyt;
    using Ui::BudgetedMoneyEntryWidget::nextOccurOnDtdt;
    using Ui::BudgetedMoneyEntryWidget::periodWdgt;
    using Ui::BudgetedMoneyEntryWidget::perPeriodWdgt;
    using Ui::BudgetedMoneyEntryWidget::sourceLndt;

    /// Joins \a signal of \a entry to what an edit does that can move the view's total.
    template <typename Entry, typename Signal>
    void joinToValue(Entry* entry, Signal signal)
    {
        connect(entry, signal, this, &BudgetedMoneyEntryWidget::markDirty);
        connect(entry, signal, this, &BudgetedMoneyEntryWidget::valueChanged);
    }

private:
    void join();

    navigation::GuiElementIdentifier id_;
    std::optional<budgeting::BudgetSource> originalSource_;
    bool isDirty_ = false;
};
}
