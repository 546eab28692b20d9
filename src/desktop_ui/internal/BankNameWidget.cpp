#include "internal/BankNameWidget.h"

#include "tlm/desktop_ui/DataEntryError.h"

#include <QLineEdit>

namespace tlm::desktop_ui::internal {

using banking::BankName;

BankNameWidget::BankNameWidget(foundation::QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
    nameLndt->setPlaceholderText(newBankText());
    connect(nameLndt, &QLineEdit::editingFinished, this, &BankNameWidget::editingFinished);
}

QString const& BankNameWidget::newBankText()
{
    static auto const text = tr("New Bank");
    return text;
}

void BankNameWidget::setBankName(BankName const& name)
{
    nameLndt->setText(name.institution());
}

std::optional<BankName> BankNameWidget::tryBankName() const
{
    auto const text = nameLndt->text();
    return text.isEmpty() ? std::nullopt : std::optional(BankName(text));
}

BankName BankNameWidget::bankName() const
{
    if (auto const name = tryBankName()) {
        return *name;
    }
    throw DataEntryError(tr("bank name"), QString(), tr("A valid bank name cannot be empty."), std::exception());
}
}
