#pragma once

#include "internal/BudgetedMoneyEntryWidget.h"
#include "internal/KnownAccounts.h"

#include <fiscora/Currency.h>
#include <fiscora/Money.h>
#include <tlm/accounting/AccountCode.h>
#include <tlm/banking/BankName.h>
#include <tlm/budgeting/BudgetedMoney.h>
#include <tlm/budgeting/BudgetedMoneyMap.h>
#include <tlm/foundation/QtPtr.h>
#include <tlm/navigation/BudgetBankAccount.h>
#include <tlm/navigation/CurrencyDisplayOptions.h>

#include <memory>
#include <set>

namespace tlm::desktop_ui::internal {

/// What tells the planning view of one kind of budget items from that of another: its rows and its records.
struct BudgetedMoneyCreator
{
    BudgetedMoneyCreator() = default;
    BudgetedMoneyCreator(BudgetedMoneyCreator const&) = delete;
    BudgetedMoneyCreator& operator=(BudgetedMoneyCreator const&) = delete;
    virtual ~BudgetedMoneyCreator();

    /// \return a row, not loaded yet; this creator must outlive it
    virtual std::unique_ptr<BudgetedMoneyEntryWidget>
    makeEntryWidget(std::set<fiscora::Currency> const& usable, navigation::CurrencyDisplayOptions const& displayAs,
                    foundation::QtPtr<QWidget> parent);

    /// \return what \a entry states, under the empty source if it names none
    /// \param entry a row that this creator made
    /// \throws DataEntryError when what is typed is no amount
    virtual std::unique_ptr<budgeting::BudgetedMoney> makeBudgetedMoney(BudgetedMoneyEntryWidget const& entry) = 0;

    virtual std::unique_ptr<budgeting::BudgetedMoney> makeEmptyBudgetedMoney() = 0;
};

/// \tparam Item the record of one kind
template <typename Item>
struct BudgetedMoneyCreatorOf : BudgetedMoneyCreator
{
    std::unique_ptr<budgeting::BudgetedMoney> makeEmptyBudgetedMoney() final { return std::make_unique<Item>(); }

protected:
    /// \param terms what this kind of item states beyond the values that all have
    template <typename... Terms>
    static std::unique_ptr<Item> make(BudgetedMoneyEntryWidget const& entry, Terms const&... terms)
    {
        return std::make_unique<Item>(entry.source().value_or(budgeting::BudgetSource()), entry.amount(),
                                      entry.period(), entry.nextOccurOn(), terms...);
    }
};

/// \tparam Item a record that states no more than the values that all have
template <typename Item>
struct PlainMoneyCreator : BudgetedMoneyCreatorOf<Item>
{
    std::unique_ptr<budgeting::BudgetedMoney> makeBudgetedMoney(BudgetedMoneyEntryWidget const& entry) final
    {
        return BudgetedMoneyCreatorOf<Item>::make(entry);
    }
};

struct BillCreator final : PlainMoneyCreator<budgeting::Bill>
{};

struct NontrackCreator final : PlainMoneyCreator<budgeting::Nontrack>
{};

struct WageCreator final : PlainMoneyCreator<budgeting::Wage>
{};

struct DebtCreator final : BudgetedMoneyCreatorOf<budgeting::Debt>
{
    /// \param codes of all accounts that \a accounts tell of
    /// \param accounts which account each stored debt was borrowed from
    DebtCreator(std::set<banking::BankName> banks, std::set<accounting::AccountCode> codes,
                std::set<navigation::BudgetBankAccount> accounts);

    std::unique_ptr<BudgetedMoneyEntryWidget> makeEntryWidget(std::set<fiscora::Currency> const& usable,
                                                              navigation::CurrencyDisplayOptions const& displayAs,
                                                              foundation::QtPtr<QWidget> parent) override;
    std::unique_ptr<budgeting::BudgetedMoney> makeBudgetedMoney(BudgetedMoneyEntryWidget const& entry) override;

private:
    KnownAccounts known_; ///< shared by all rows
    std::set<banking::BankName> banks_;
};

struct GoalCreator final : BudgetedMoneyCreatorOf<budgeting::Goal>
{
    /// \param accounts which account each stored goal lies in
    /// \param codes of all accounts that a look-up may tell of
    /// \param wagesTotal all wages per month, in the preferred currency
    GoalCreator(std::set<banking::BankName> banks, std::set<navigation::BudgetBankAccount> accounts,
                std::set<accounting::AccountCode> codes, fiscora::Money const& wagesTotal);

    std::unique_ptr<BudgetedMoneyEntryWidget> makeEntryWidget(std::set<fiscora::Currency> const& usable,
                                                              navigation::CurrencyDisplayOptions const& displayAs,
                                                              foundation::QtPtr<QWidget> parent) override;
    std::unique_ptr<budgeting::BudgetedMoney> makeBudgetedMoney(BudgetedMoneyEntryWidget const& entry) override;

private:
    KnownAccounts known_; ///< shared by all rows
    std::set<banking::BankName> banks_;
    fiscora::Money wagesTotal_;
};
}
