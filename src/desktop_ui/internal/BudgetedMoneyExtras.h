#pragma once

#include <fiscora/Currency.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/accounting/AccountTypes.h>
#include <tlm/banking/BankName.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <QString>

#include <set>

class QBoxLayout;
class QDoubleSpinBox;
class QLabel;
class QWidget;

namespace tlm::desktop_ui {
class MoneyEntryWidget;
}

namespace tlm::desktop_ui::internal {

class BankAccountsWidget;
struct KnownAccounts;

/// Makes what a debt or a goal has to enter beyond other items, side by side, and leads Tab through it in that order.
class BudgetedMoneyExtras
{
public:
    /// \param line takes the entries; it belongs to the row
    /// \param last the entry of the row that Tab leaves for the first of them
    BudgetedMoneyExtras(QBoxLayout& line, QWidget& last) : line_(line), last_(&last) {}

    /// Adds an amount whose currency the person can't pick.
    foundation::QtPtr<MoneyEntryWidget> addMoney(QString const& label, QString const& toolTip,
                                                 std::set<fiscora::Currency> const& usable,
                                                 navigation::CurrencyDisplayOptions const& displayAs);

    /// Adds a percentage.
    foundation::QtPtr<QDoubleSpinBox> addPercentage(foundation::QtPtr<QLabel> const& label, QString const& toolTip);

    /// Adds the choice of a bank account of the types that the ledger keeps as \a keptAs.
    foundation::QtPtr<BankAccountsWidget> addBankAccounts(QString const& toolTip,
                                                          std::set<banking::BankName> const& banks,
                                                          KnownAccounts const& known, accounting::AccountTypes keptAs);

private:
    void leadTabTo(QWidget& entry);

    QBoxLayout& line_;
    QWidget* last_;
};
}
