#include "internal/BankEntryWidget.h"

#include <QCheckBox>
#include <QDebug>

#include <utility>

namespace tlm::desktop_ui::internal {

using banking::Bank;
using banking::BankName;

BankEntryWidget::BankEntryWidget(std::optional<Bank> bank, foundation::QtPtr<QWidget> const& parent)
    : QWidget(parent.get()), bank_(std::move(bank))
{
    setupUi(this);
    if (bank_) {
        bankNameWdgt->setBankName(bank_->name);
        closedChckbx->setChecked(bank_->isClosed());
    }
    connect(bankNameWdgt, &BankNameWidget::editingFinished, this, &BankEntryWidget::markDirty);
    connect(closedChckbx, &QCheckBox::stateChanged, this, &BankEntryWidget::markDirty);
    connect(removeChckbx, &QCheckBox::stateChanged, this, &BankEntryWidget::markDirty);
}

bool BankEntryWidget::isClosed() const
{
    return closedChckbx->isChecked();
}

bool BankEntryWidget::isRemoved() const
{
    return removeChckbx->isChecked();
}

std::optional<BankName> BankEntryWidget::tryBankName() const
{
    return bankNameWdgt->tryBankName();
}

BankName BankEntryWidget::bankName() const
{
    return bankNameWdgt->bankName();
}

void BankEntryWidget::saved(std::map<accounting::AccountNumber, banking::BankAccountTypes> accounts)
{
    bank_ = Bank(bankName(), std::move(accounts), isClosed());
    errorWdgt->showMessage(std::nullopt);
    isDirty_ = false;
}

void BankEntryWidget::showError(QString const& message)
{
    errorWdgt->showMessage(message);
    markDirty();
}

void BankEntryWidget::resetDirty()
{
    qInfo() << "Resetting the dirty flag of" << tryBankName().value_or(BankName());
    isDirty_ = false;
}

void BankEntryWidget::markDirty()
{
    isDirty_ = true;
}
}
