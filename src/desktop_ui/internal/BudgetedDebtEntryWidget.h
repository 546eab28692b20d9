#pragma once

#include "internal/BudgetedMoneyEntryWidget.h"

#include <tlm/accounting/AccountCode.h>
#include <tlm/foundation/Percentage.h>
#include <tlm/navigation/BudgetBankAccount.h>

#include <memory>
#include <optional>
#include <set>

class QDoubleSpinBox;
class QLabel;

namespace tlm::desktop_ui {
class MoneyEntryWidget;
}

namespace tlm::desktop_ui::internal {

class BankAccountsWidget;
struct KnownAccounts;

/// The row of a debt: adds the sum borrowed, the interest, and the bank that lent it.
class BudgetedDebtEntryWidget : public BudgetedMoneyEntryWidget
{
    Q_OBJECT

public:
    /// \param accounts which account each stored debt was borrowed from
    /// \param codes of all accounts that \a accounts tell of
    BudgetedDebtEntryWidget(std::set<banking::BankName> const& banks,
                            std::set<navigation::BudgetBankAccount> const& accounts,
                            std::set<accounting::AccountCode> const& codes, std::set<fiscora::Currency> const& usable,
                            navigation::CurrencyDisplayOptions const& displayAs,
                            foundation::QtPtr<QWidget> const& parent);

    /// As above, for the rows of a view.
    BudgetedDebtEntryWidget(std::set<banking::BankName> const& banks, KnownAccounts const& known,
                            std::set<fiscora::Currency> const& usable,
                            navigation::CurrencyDisplayOptions const& displayAs,
                            foundation::QtPtr<QWidget> const& parent);

    /// \throws DataEntryError when what is typed is no amount
    fiscora::Money borrowed() const;
    foundation::Percentage interest() const;

    std::optional<banking::BankAccount> bankAccount() const override;

    /// \param money a budgeting::Debt
    void setBudgetedMoney(budgeting::BudgetedMoney const& money) override;

private:
    void join();

    std::shared_ptr<std::set<navigation::BudgetBankAccount> const> accounts_; ///< shared by all rows of a view
    foundation::QtPtr<MoneyEntryWidget> borrowedEntry_;
    foundation::QtPtr<QLabel> interestLabel_;
    foundation::QtPtr<QDoubleSpinBox> interestRate_;
    foundation::QtPtr<BankAccountsWidget> bankAccounts_;
};
}
