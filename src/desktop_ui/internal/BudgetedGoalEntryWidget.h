#pragma once

#include "internal/BudgetedMoneyEntryWidget.h"

#include <tlm/accounting/AccountCode.h>
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

/// The row of a goal: adds the sum to reach, the bank account that stores it, and its share of the wages.
class BudgetedGoalEntryWidget : public BudgetedMoneyEntryWidget
{
    Q_OBJECT

public:
    /// \param wagesTotal all wages per month; must outlive the row
    /// \param accounts which account each stored goal lies in
    /// \param codes of all accounts that a look-up may tell of
    BudgetedGoalEntryWidget(std::set<banking::BankName> const& banks, fiscora::Money const& wagesTotal,
                            std::set<navigation::BudgetBankAccount> const& accounts,
                            std::set<accounting::AccountCode> const& codes, std::set<fiscora::Currency> const& usable,
                            navigation::CurrencyDisplayOptions const& displayAs,
                            foundation::QtPtr<QWidget> const& parent);

    /// As above, for the rows of a view.
    BudgetedGoalEntryWidget(std::set<banking::BankName> const& banks, fiscora::Money const& wagesTotal,
                            KnownAccounts const& known, std::set<fiscora::Currency> const& usable,
                            navigation::CurrencyDisplayOptions const& displayAs,
                            foundation::QtPtr<QWidget> const& parent);

    /// \throws DataEntryError when what is typed is no amount
    fiscora::Money finalTotal() const;

    void onLookedUpBankAccounts(tlm::banking::BankName const& bn,
                                std::set<tlm::banking::AccountNumberBankType> const& accountTypes) override;
    std::optional<banking::BankAccount> bankAccount() const override;

    /// Asks for the accounts of the goal's bank while it loads.
    /// \param money a budgeting::Goal
    void setBudgetedMoney(budgeting::BudgetedMoney const& money) override;

private slots:
    void onLookUpBankAccountsRequested(tlm::banking::BankName const& bn);
    void calculateWagesPercentage();

private:
    void join();
    void selectAmong(std::set<banking::AccountNumberBankType> const& accountTypes,
                     banking::BankAccount const& requested);
    double percentageOfWages() const;

    std::shared_ptr<std::set<navigation::BudgetBankAccount> const> accounts_; ///< shared by all rows of a view
    fiscora::Money const& wagesTotal_;
    foundation::QtPtr<MoneyEntryWidget> finalTotalEntry_;
    foundation::QtPtr<BankAccountsWidget> bankAccounts_;
    foundation::QtPtr<QLabel> wagesPercentageLabel_;
    foundation::QtPtr<QDoubleSpinBox> wagesPercentage_;
    std::optional<banking::BankName> requestedBank_;
    std::optional<banking::BankAccount> requestedAccount_;
};
}
