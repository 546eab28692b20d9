#include "internal/BudgetedDebtEntryWidget.h"

#include "internal/BankAccountsWidget.h"
#include "internal/BudgetedMoneyExtras.h"
#include "internal/EntryForms.h"
#include "internal/KnownAccounts.h"
#include "internal/Wheel.h"

#include <tlm/budgeting/Debt.h>

#include <QDoubleSpinBox>

namespace tlm::desktop_ui::internal {

namespace {

// No rate that a person types is lost, however many decimals its own precision shows.
constexpr unsigned char interestPrecision = 6;
}

BudgetedDebtEntryWidget::BudgetedDebtEntryWidget(std::set<banking::BankName> const& banks,
                                                 std::set<navigation::BudgetBankAccount> const& accounts,
                                                 std::set<accounting::AccountCode> const& codes,
                                                 std::set<fiscora::Currency> const& usable,
                                                 navigation::CurrencyDisplayOptions const& displayAs,
                                                 foundation::QtPtr<QWidget> const& parent)
    : BudgetedDebtEntryWidget(banks, KnownAccounts(accounts, codes), usable, displayAs, parent)
{}

BudgetedDebtEntryWidget::BudgetedDebtEntryWidget(std::set<banking::BankName> const& banks, KnownAccounts const& known,
                                                 std::set<fiscora::Currency> const& usable,
                                                 navigation::CurrencyDisplayOptions const& displayAs,
                                                 foundation::QtPtr<QWidget> const& parent)
    : BudgetedMoneyEntryWidget(usable, displayAs, parent), accounts_(known.keptAt)
{
    perPeriodWdgt->setLabel(tr("Minimum Payment:"));
    perPeriodWdgt->setToolTip(tr("Minimum payment to be made on the debt per period"));
    BudgetedMoneyExtras extras(*extrasHbxlyt, *nextOccurOnDtdt);
    borrowedEntry_ =
        extras.addMoney(tr("Total Borrowed:"), tr("Total amount borrowed from the debt source"), usable, displayAs);
    interestLabel_ = new QLabel(tr("Interest Rate:"), this);
    interestRate_ = extras.addPercentage(interestLabel_, tr("Interest rate on the debt"));
    bankAccounts_ = extras.addBankAccounts(tr("Account from which the debt was borrowed"), banks, known,
                                           accounting::AccountTypes::Liability);
    bankAccounts_->hideAccount();
    putLabelsAbove(*this);
    leaveWheelToList(*this);
    join();
}

void BudgetedDebtEntryWidget::join()
{
    connect(perPeriodWdgt, &MoneyEntryWidget::currentIndexChanged, borrowedEntry_.get(),
            &MoneyEntryWidget::setCurrentIndex);
    connect(perPeriodWdgt, &MoneyEntryWidget::currentIndexChanged, this, &BudgetedDebtEntryWidget::valueChanged);
    connect(borrowedEntry_.get(), &MoneyEntryWidget::editingFinished, this, &BudgetedDebtEntryWidget::markDirty);
    connect(borrowedEntry_.get(), &MoneyEntryWidget::currentIndexChanged, this, &BudgetedDebtEntryWidget::markDirty);
    joinToValue(interestRate_.get(), &QDoubleSpinBox::valueChanged);
    joinToValue(bankAccounts_.get(), &BankAccountsWidget::changedBankName);
    joinToValue(bankAccounts_.get(), &BankAccountsWidget::changedBankAccountType);
}

fiscora::Money BudgetedDebtEntryWidget::borrowed() const
{
    return borrowedEntry_->amount();
}

foundation::Percentage BudgetedDebtEntryWidget::interest() const
{
    return {interestRate_->value(), interestPrecision};
}

std::optional<banking::BankAccount> BudgetedDebtEntryWidget::bankAccount() const
{
    return bankAccounts_->bankAccount();
}

void BudgetedDebtEntryWidget::setBudgetedMoney(budgeting::BudgetedMoney const& money)
{
    BudgetedMoneyEntryWidget::setBudgetedMoney(money);
    auto const& debt = dynamic_cast<budgeting::Debt const&>(money);
    borrowedEntry_->setAmount(debt.borrowed());
    if (originalSource()) {
        borrowedEntry_->setReadOnly(true);
    }
    interestRate_->setValue(debt.interest().rate());
    interestRate_->setDecimals(debt.interest().precision());
    if (auto const lender = navigation::lookUpBankAccount(debt.source(), *accounts_)) {
        bankAccounts_->select(*lender);
        bankAccounts_->setReadOnly(true);
    }
    clearDirty();
}
}
