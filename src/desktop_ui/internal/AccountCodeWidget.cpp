#include "internal/AccountCodeWidget.h"

#include "internal/Shared.h"
#include "internal/TextListModel.h"

#include <tlm/foundation/Error.h>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;

/// The texts of a list of codes, from the blank one on.
struct AccountCodeWidget::Offer
{
    explicit Offer(std::set<AccountCode> const& codes)
    {
        texts.append(QString());
        for (auto const& code : codes) {
            texts.append(presentationText(code));
        }
    }

    QStringList texts;
};

AccountCodeWidget::AccountCodeWidget(foundation::QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
}

void AccountCodeWidget::populate(std::set<AccountCode> const& codes)
{
    offer_ = shared<Offer>(codes);
    accountCmbbx->clear();
    appendTexts(*accountCmbbx, offer_->texts);
}

void AccountCodeWidget::selectCode(AccountCode const& code)
{
    auto const text = presentationText(code);
    auto const row = accountCmbbx->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row < 0) {
        throw foundation::Error(tr("Failed to locate the account code source '%1'.").arg(text));
    }
    accountCmbbx->setCurrentIndex(row);
}

std::optional<AccountCode> AccountCodeWidget::code() const
{
    auto const text = accountCmbbx->currentText();
    return text.isEmpty() ? std::nullopt : std::optional(accounting::toAccountCode(text));
}

void AccountCodeWidget::setLabel(QString const& text)
{
    accountLbl->setText(text);
}

void AccountCodeWidget::setReadOnly(bool isReadOnly)
{
    accountCmbbx->setEnabled(!isReadOnly);
}
}
