#include "internal/BudgetedGoalEntryWidget.h"

#include "internal/BankAccountsWidget.h"
#include "internal/BudgetedMoneyExtras.h"
#include "internal/DisableSignalsTemporarily.h"
#include "internal/EntryForms.h"
#include "internal/KnownAccounts.h"
#include "internal/Wheel.h"

#include <tlm/budgeting/Accumulate.h>
#include <tlm/budgeting/Goal.h>

#include <QDebug>
#include <QDoubleSpinBox>

#include <utility>

namespace tlm::desktop_ui::internal {

using banking::AccountNumberBankType;
using banking::BankAccount;
using banking::BankAccountTypes;
using banking::BankName;

namespace {

constexpr double wholePercentage = 100.0;

/// \return those of \a accounts in which the money of a goal can be kept
std::set<AccountNumberBankType> storing(std::set<AccountNumberBankType> accounts)
{
    std::erase_if(accounts, [](auto const& account) {
        return account.type != BankAccountTypes::Checking && account.type != BankAccountTypes::Savings;
    });
    return accounts;
}
}

BudgetedGoalEntryWidget::BudgetedGoalEntryWidget(std::set<BankName> const& banks, fiscora::Money const& wagesTotal,
                                                 std::set<navigation::BudgetBankAccount> const& accounts,
                                                 std::set<accounting::AccountCode> const& codes,
                                                 std::set<fiscora::Currency> const& usable,
                                                 navigation::CurrencyDisplayOptions const& displayAs,
                                                 foundation::QtPtr<QWidget> const& parent)
    : BudgetedGoalEntryWidget(banks, wagesTotal, KnownAccounts(accounts, codes), usable, displayAs, parent)
{}

BudgetedGoalEntryWidget::BudgetedGoalEntryWidget(std::set<BankName> const& banks, fiscora::Money const& wagesTotal,
                                                 KnownAccounts const& known, std::set<fiscora::Currency> const& usable,
                                                 navigation::CurrencyDisplayOptions const& displayAs,
                                                 foundation::QtPtr<QWidget> const& parent)
    : BudgetedMoneyEntryWidget(usable, displayAs, parent), accounts_(known.keptAt), wagesTotal_(wagesTotal)
{
    perPeriodWdgt->setLabel(tr("Setting Aside:"));
    BudgetedMoneyExtras extras(*extrasHbxlyt, *nextOccurOnDtdt);
    finalTotalEntry_ = extras.addMoney(tr("Final Total:"), tr("Final total amount of the goal"), usable, displayAs);
    bankAccounts_ = extras.addBankAccounts(tr("Store the goal money under this bank account"), banks, known,
                                           accounting::AccountTypes::Asset);
    bankAccounts_->setDescription(tr("Store Under"));
    bankAccounts_->disableType();
    wagesPercentageLabel_ = new QLabel(tr("Monthly Wages:"), this);
    wagesPercentage_ =
        extras.addPercentage(wagesPercentageLabel_, tr("Monthly goal amount as a percentage of total monthly wages"));
    wagesPercentage_->setSuffix(QStringLiteral("%"));
    putLabelsAbove(*this);
    leaveWheelToList(*this);
    join();
}

void BudgetedGoalEntryWidget::join()
{
    connect(perPeriodWdgt, &MoneyEntryWidget::currentIndexChanged, finalTotalEntry_.get(),
            &MoneyEntryWidget::setCurrentIndex);
    joinToValue(finalTotalEntry_.get(), &MoneyEntryWidget::editingFinished);
    joinToValue(bankAccounts_.get(), &BankAccountsWidget::changedBankName);
    joinToValue(bankAccounts_.get(), &BankAccountsWidget::changedAccountNumber);
    connect(bankAccounts_.get(), &BankAccountsWidget::lookUpBankAccounts, this,
            &BudgetedGoalEntryWidget::onLookUpBankAccountsRequested);
    joinToValue(wagesPercentage_.get(), &QDoubleSpinBox::valueChanged);
    connect(perPeriodWdgt, &MoneyEntryWidget::moneyChanged, this, &BudgetedGoalEntryWidget::calculateWagesPercentage);
    connect(periodWdgt, &EventFrequencyEntryWidget::selectionChanged, this,
            &BudgetedGoalEntryWidget::calculateWagesPercentage);
}

fiscora::Money BudgetedGoalEntryWidget::finalTotal() const
{
    return finalTotalEntry_->amount();
}

std::optional<BankAccount> BudgetedGoalEntryWidget::bankAccount() const
{
    return bankAccounts_->bankAccount();
}

void BudgetedGoalEntryWidget::setBudgetedMoney(budgeting::BudgetedMoney const& money)
{
    BudgetedMoneyEntryWidget::setBudgetedMoney(money);
    auto const& goal = dynamic_cast<budgeting::Goal const&>(money);
    finalTotalEntry_->setAmount(goal.final());
    if (auto const store = navigation::lookUpBankAccount(goal.source(), *accounts_)) {
        requestedAccount_ = store;
        onLookUpBankAccountsRequested(store->bank);
    }
    calculateWagesPercentage();
    clearDirty();
}

void BudgetedGoalEntryWidget::onLookUpBankAccountsRequested(BankName const& bn)
{
    requestedBank_ = bn;
    markDirty();
    emit lookUpBankAccounts(bn);
}

void BudgetedGoalEntryWidget::onLookedUpBankAccounts(BankName const& bn,
                                                     std::set<AccountNumberBankType> const& accountTypes)
{
    if (!requestedBank_ && !requestedAccount_) {
        return;
    }
    qInfo() << "Processing looked up bank accounts for" << bn << "in goal" << sourceLndt->text();
    // Taken on every way out: an answer that can't be shown must not leave the row waiting for that of another.
    auto const requested = std::exchange(requestedAccount_, std::nullopt);
    requestedBank_.reset();
    DisableSignalsTemporarily<BankAccountsWidget> const quiet(bankAccounts_);
    bankAccounts_->lookedUpBankAccounts(storing(accountTypes));
    if (requested) {
        selectAmong(accountTypes, *requested);
    }
}

void BudgetedGoalEntryWidget::selectAmong(std::set<AccountNumberBankType> const& accountTypes,
                                          BankAccount const& requested)
{
    if (accountTypes.contains(requested.numberBankType())) {
        bankAccounts_->select(requested);
    } else {
        qWarning() << "Requested bank account not found" << requested;
    }
}

void BudgetedGoalEntryWidget::calculateWagesPercentage()
{
    qInfo() << "Calculating Monthly Total Wages Percentage";
    wagesPercentage_->setValue(percentageOfWages());
}

double BudgetedGoalEntryWidget::percentageOfWages() const
{
    if (wagesTotal_ == 0) {
        return 0.0;
    }
    try {
        auto const monthly = budgeting::accumulateOver(budgeting::EventFrequency::Monthly, amount(), period());
        return monthly / wagesTotal_ * wholePercentage;
    } catch (std::exception const& failure) {
        qWarning() << failure.what();
        return 0.0;
    }
}
}
