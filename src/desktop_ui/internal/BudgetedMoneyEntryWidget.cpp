#include "internal/BudgetedMoneyEntryWidget.h"

#include "internal/EntryForms.h"
#include "internal/Wheel.h"

#include <QDebug>

namespace tlm::desktop_ui::internal {

using budgeting::BudgetedMoney;
using budgeting::BudgetSource;

BudgetedMoneyEntryWidget::BudgetedMoneyEntryWidget(std::set<fiscora::Currency> const& usable,
                                                   navigation::CurrencyDisplayOptions const& displayAs,
                                                   foundation::QtPtr<QWidget> const& parent)
    : QWidget(parent.get())
{
    setupUi(this);
    putLabelsAbove(*this);
    leaveWheelToList(*this);
    errorWdgt->showMessage(std::nullopt); // its form comes with a text
    perPeriodWdgt->setUsableCurrencies(usable, displayAs);
    nextOccurOnDtdt->setDate(QDate::currentDate());
    join();
}

BudgetedMoneyEntryWidget::~BudgetedMoneyEntryWidget()
{
    stopListening(*this);
}

void BudgetedMoneyEntryWidget::join()
{
    connect(sourceLndt, &QLineEdit::textEdited, this, &BudgetedMoneyEntryWidget::markDirty);
    joinToValue(perPeriodWdgt, &MoneyEntryWidget::editingFinished);
    joinToValue(perPeriodWdgt, &MoneyEntryWidget::currentIndexChanged);
    joinToValue(periodWdgt, &EventFrequencyEntryWidget::selectionChanged);
    joinToValue(removeChckbx, &QCheckBox::stateChanged);
    connect(nextOccurOnDtdt, &QDateEdit::dateChanged, this, &BudgetedMoneyEntryWidget::markDirty);
}

std::optional<BudgetSource> BudgetedMoneyEntryWidget::source() const
{
    auto const name = sourceLndt->text().trimmed();
    return name.isEmpty() ? std::nullopt : std::optional(BudgetSource(name));
}

fiscora::Money BudgetedMoneyEntryWidget::amount() const
{
    return perPeriodWdgt->amount();
}

budgeting::EventFrequency BudgetedMoneyEntryWidget::period() const
{
    return periodWdgt->period();
}

QDate BudgetedMoneyEntryWidget::nextOccurOn() const
{
    return nextOccurOnDtdt->date();
}

bool BudgetedMoneyEntryWidget::isMarkedForRemoval() const
{
    return removeChckbx->isChecked();
}

std::optional<QString> BudgetedMoneyEntryWidget::errorMessage() const
{
    return errorWdgt->message();
}

void BudgetedMoneyEntryWidget::setErrorMessage(QString const& message)
{
    errorWdgt->showMessage(message);
    isDirty_ = true;
}

void BudgetedMoneyEntryWidget::markSaved()
{
    originalSource_ = BudgetSource(sourceLndt->text());
    errorWdgt->showMessage(std::nullopt);
    isDirty_ = false;
}

void BudgetedMoneyEntryWidget::markDirty()
{
    isDirty_ = true;
    qInfo() << "Budgeted Money Entry Widget is Dirty:" << sourceLndt->text();
}

void BudgetedMoneyEntryWidget::onLookedUpBankAccounts(
    tlm::banking::BankName const& /*bn*/, std::set<tlm::banking::AccountNumberBankType> const& /*accountTypes*/)
{
    qWarning() << originalSource_.value_or(BudgetSource())
               << "Budgeted Money Entry Widget does not support processing bank account look-up operations.";
}

std::optional<banking::BankAccount> BudgetedMoneyEntryWidget::bankAccount() const
{
    return std::nullopt;
}

void BudgetedMoneyEntryWidget::setBudgetedMoney(BudgetedMoney const& money)
{
    auto const& source = money.source();
    originalSource_ = source.isEmpty() ? std::nullopt : std::optional(source);
    sourceLndt->setText(source.name());
    sourceLndt->setCursorPosition(0);
    perPeriodWdgt->setAmount(money.amount());
    periodWdgt->select(money.period());
    auto const dueOn = money.nextOccurOn();
    nextOccurOnDtdt->setDate(dueOn.isValid() ? dueOn : QDate::currentDate());
    isDirty_ = false;
}
}
