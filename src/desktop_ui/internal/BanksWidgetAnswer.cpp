#include "internal/AccountEntryWidget.h"
#include "internal/BankEntryWidget.h"
#include "internal/BankReplies.h"
#include "internal/BanksWidget.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/foundation/Error.h>

#include <QDebug>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using banking::BankName;
using foundation::Error;

namespace {

void paint(QTreeWidgetItem& row, QColor const& colour)
{
    constexpr auto nameColumn = 0;
    row.setBackground(nameColumn, QBrush(colour));
    row.setForeground(nameColumn, QBrush(Qt::black)); // which reads well on either colour, in a dark palette too
}

bool isNew(AccountEntryWidget const& form)
{
    return !form.code();
}

bool isNew(BankEntryWidget const& form)
{
    return !form.bank();
}

/// Takes an answer. What is new and just being sent is meant by an answer that fits nothing else: it may bear none of what
/// was typed.
/// \param failure ends the program when the answer fits nothing
/// \param names what the answer tells, as distance() and isNamed() take it
/// \return the row that the answer is about, nullptr when that has gone since
template <typename Form, typename... Names>
QTreeWidgetItem* answered(TreeRows<Form>& entries, char const* failure, Names const&... names)
{
    auto [row, found] =
        entries.nearest([&](QString const& text, Form const& form) { return distance(text, form, names...); });
    if (found != 0 && entries.answerGone([&](QString const& told) { return isNamed(told, names...); })) {
        return nullptr;
    }
    auto const* const sent = entries.sent();
    if (row == nullptr && sent != nullptr && isNew(*sent)) {
        row = entries.itemOf(sent);
    }
    if (row == nullptr) {
        qFatal("%s", failure);
    }
    entries.answer(row);
    return row;
}
}

void BanksWidget::onAccountSaveSucceeded(AccountCode const& ac)
{
    qInfo() << "Successfully saved account to ledger." << ac.name();
    auto* const row = answered(accountEntries_, "Failed to locate the account that saved successfully.", ac);
    if (row == nullptr) {
        return;
    }
    paint(*row, Qt::green);
    if (auto& form = *accountEntries_.formOf(row); form.isRemoved()) {
        removeRow(row);
    } else {
        form.saved(ac);
    }
    saveBanksOnceAccountsAreSaved();
}

void BanksWidget::onAccountSaveFailed(std::optional<AccountCode> const& original, QString const& errorMessage,
                                      std::optional<AccountCode> const& displayed)
{
    qWarning() << "Account entry failed to save,"
               << "Original Code" << original.value_or(AccountCode()).name() << "Displayed Code"
               << displayed.value_or(AccountCode()).name() << errorMessage;
    auto* const row = answered(accountEntries_, "Failed to locate the account whose save failed.", original, displayed);
    if (row != nullptr) {
        showError(row, errorMessage);
    }
}

void BanksWidget::onSaveSucceeded(BankName const& bn)
{
    qInfo() << "Successfully Saved Bank" << bn.institution();
    auto* const row = answered(bankEntries_, "Failed to locate the bank that saved successfully.", bn);
    if (row == nullptr) {
        return;
    }
    paint(*row, Qt::green);
    if (auto& form = *bankEntries_.formOf(row); form.isRemoved()) {
        removeRow(row);
    } else {
        try {
            form.saved(accountsOf(row));
        } catch (DataEntryError const& error) { // its name was cleared since it was sent
            showError(row, error.message());
        }
    }
    if (!anyDirty()) {
        close();
    }
}

void BanksWidget::onSaveFailed(std::optional<BankName> const& original, QString const& errorMessage,
                               std::optional<BankName> const& displayed)
{
    qCritical() << "Bank entry save error for" << original.value_or(BankName()).institution()
                << displayed.value_or(BankName()).institution() << errorMessage;
    auto* const row = answered(bankEntries_, "Failed to locate the bank whose save failed.", original, displayed);
    if (row != nullptr) {
        showError(row, errorMessage);
    }
}

void BanksWidget::showError(Row row, QString const& message)
{
    paint(*row, Qt::red);
    bankAndAccountsTrwdgt->setCurrentItem(row);
    if (auto* const account = accountEntries_.formOf(row)) {
        account->showError(message);
    } else if (auto* const bank = bankEntries_.formOf(row)) {
        bank->showError(message);
    } else {
        throw Error(tr("Failed to locate neither the account nor the bank widget entry to display the error."));
    }
}

/// Lets the form of \a row go.
void BanksWidget::removeEntry(Row row)
{
    if (auto* const account = accountEntries_.formOf(row)) {
        account->resetDirty();
        account->deleteLater();
        accountEntries_.remove(*account);
    } else if (auto* const bank = bankEntries_.formOf(row)) {
        bank->resetDirty();
        bank->deleteLater();
        bankEntries_.remove(*bank);
    } else {
        throw Error(tr("Failed to locate neither the account nor the bank widget entry to remove."));
    }
}

/// Lets \a row go with all rows below it. None of them may be current by then, since that would be told of a row without a
/// form.
void BanksWidget::removeRow(Row row)
{
    while (row->childCount() > 0) {
        removeRow(row->child(0));
    }
    if (row == bankAndAccountsTrwdgt->currentItem()) {
        bankAndAccountsTrwdgt->setCurrentItem(nullptr);
    }
    removeEntry(row);
    delete row;
}
}
