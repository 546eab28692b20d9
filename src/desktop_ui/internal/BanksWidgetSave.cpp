#include "internal/AccountEntryWidget.h"
#include "internal/BankEntryWidget.h"
#include "internal/BankReplies.h"
#include "internal/BanksWidget.h"
#include "tlm/desktop_ui/DataEntryError.h"

#include <tlm/foundation/Error.h>

#include <QDebug>
#include <QTimer>

#include <chrono>
#include <vector>

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::AccountNumber;
using banking::Bank;
using banking::BankAccountTypes;
using banking::BankName;
using foundation::Error;
using foundation::QtPtr;

namespace {

constexpr int nameColumn = 0;

void paint(QTreeWidgetItem& row, QColor const& colour)
{
    row.setBackground(nameColumn, QBrush(colour));
    row.setForeground(nameColumn, QBrush(Qt::black)); // which reads well on either colour, in a dark palette too
}

/// \throws Error when there is none
template <typename Form>
Form& observed(Form* form)
{
    if (form == nullptr) {
        throw Error(BanksWidget::tr("Failed to locate the widget being observed."));
    }
    return *form;
}

bool isNew(AccountEntryWidget const& form)
{
    return !form.code();
}

bool isNew(BankEntryWidget const& form)
{
    return !form.bank();
}

/// \return the row of \a entries that a reply is about, nullptr when there is none
/// \param distance as RowForms::nearest() has it. What is new and just being sent is meant by a reply that fits nothing
///        else: it may bear none of what was typed.
template <typename Form, typename Measure>
QTreeWidgetItem* locate(RowForms<Form> const& entries, Measure const& distance)
{
    if (auto* const row = entries.nearest(distance)) {
        return row;
    }
    auto const* const sent = entries.sent();
    return sent != nullptr && isNew(*sent) ? entries.find(sent) : nullptr;
}
}

void BanksWidget::saveAccounts()
{
    bankAndAccountsTrwdgt->setCurrentItem(nullptr);
    qInfo() << "Starting processing bank account widgets.";
    std::vector<QtPtr<AccountEntryWidget>> unsaved; // to be removed
    auto const isThere = walk(accountEntries_, "Account entry save error for", [&](auto& form, QString const& text) {
        if (save(form, text)) {
            unsaved.emplace_back(&form);
        }
    });
    if (!isThere) {
        return;
    }
    for (auto const& form : unsaved) {
        if (auto* const row = accountEntries_.find(form.get())) {
            removeRow(row);
        }
    }
    qInfo() << "Processed all bank accounts.";
    saveBanksOnceAccountsAreSaved();
}

void BanksWidget::saveBanks()
{
    bankAndAccountsTrwdgt->setCurrentItem(nullptr);
    qInfo() << "Starting processing bank widgets.";
    std::vector<QtPtr<BankEntryWidget>> unsaved; // to be removed
    auto const isThere = walk(bankEntries_, "Bank entry save error for", [&](auto& form, QString const& text) {
        if (save(form, text)) {
            unsaved.emplace_back(&form);
        }
    });
    if (!isThere) {
        return;
    }
    qInfo() << "Processing accounts.";
    for (auto const& form : unsaved) {
        auto* const row = bankEntries_.find(form.get());
        if (row != nullptr && row->childCount() == 0) {
            removeRow(row);
        } else if (row != nullptr) {
            showError(row, tr("Cannot remove a bank that has bank accounts."));
        }
    }
    if (!anyDirty()) {
        close();
    }
}

/// Hands each form of \a entries to \a save, with what its row says, and shows why where that fails.
/// \return whether the view is still there
template <typename Form, typename Save>
bool BanksWidget::walk(RowForms<Form>& entries, char const* failure, Save const& save)
{
    QtPtr<BanksWidget> const self = this;
    for (auto const& form : entries.forms()) {
        auto* const row = entries.find(form.get());
        if (row == nullptr) {
            continue; // gone by an answer to one before
        }
        auto const text = row->text(nameColumn);
        entries.setSent(form.get());
        try {
            save(*form, text);
        } catch (std::exception const& error) {
            qWarning() << failure << text << error.what();
            if (self && entries.find(form.get()) == row) {
                showError(row, QString::fromUtf8(error.what()));
            }
        }
        if (!self) {
            return false;
        }
    }
    entries.setSent(nullptr);
    return true;
}

// What is sent is copied out of the form first: an answer changes the form, or ends it, while others still listen.

/// \return whether the account is to be removed, and nobody else knows it
bool BanksWidget::save(AccountEntryWidget& form, QString const& text)
{
    auto const code = std::optional(form.code()); // a copy, which an answer leaves alone
    if (!form.isDirty()) {
        qInfo() << "No Changes to Account:" << text;
    } else if (form.isRemoved()) {
        qInfo() << "Removing Account:" << text;
        if (!code) {
            return true;
        }
        emit removedAccount(*code);
    } else if (!code) {
        qInfo() << "Adding New Account" << text;
        emit addedAccount(form.name(), form.bankType().value_or(BankAccountTypes::Unspecified), form.balance());
    } else if (auto const name = form.name(); name != code->name()) {
        qInfo() << "Renaming Account" << code->name() << "to" << name;
        emit renamedAccount(*code, AccountCode(code->number(), name, code->parent()));
    } else {
        onAccountSaveSucceeded(*code); // nothing that anyone else would know
    }
    return false;
}

/// \return whether the bank is to be removed, and nobody else knows it
bool BanksWidget::save(BankEntryWidget& form, QString const& text)
{
    auto const isSaved = form.bank().has_value();
    if (!form.isDirty()) {
        qInfo() << "No Changes to Bank:" << text;
    } else if (form.isRemoved()) {
        qInfo() << "Removing Account:" << text;
        if (!isSaved) {
            return true;
        }
        emit removed(form.bankName());
    } else if (!isSaved) {
        qInfo() << "Adding Bank:" << text;
        emit added(Bank(form.bankName(), accountsOf(bankEntries_.find(&form)), form.isClosed()));
    } else {
        modify(form, text);
    }
    return false;
}

/// Goes on with what was typed when the walk came here, whatever is answered in between.
void BanksWidget::modify(BankEntryWidget& form, QString const& text)
{
    qInfo() << "Modifying Bank:" << text;
    QtPtr<BanksWidget> const self = this;
    auto const saved = *form.bank();
    auto const name = form.bankName();
    auto const isClosed = form.isClosed();
    auto const accounts = accountsOf(bankEntries_.find(&form));
    if (saved.name != name) {
        qInfo() << "Renaming Bank from" << saved.name.institution() << "to" << text;
        emit rename(saved.name, name);
    }
    if (self && saved.isClosed() && !isClosed) {
        qInfo() << "Reopening Bank:" << text;
        emit opened(name);
    }
    if (self && !saved.isClosed() && isClosed) {
        qInfo() << "Closing Bank:" << text;
        emit closed(name);
    } else if (self) {
        emit updated(Bank(name, accounts, false));
    }
}

std::map<AccountNumber, BankAccountTypes> BanksWidget::accountsOf(Row bank) const
{
    std::map<AccountNumber, BankAccountTypes> accounts;
    for (auto place = 0; place < bank->childCount(); ++place) {
        auto const& form = observed(accountEntries_.find(bank->child(place)));
        accounts.emplace(AccountNumber(form.number()), form.bankType().value_or(BankAccountTypes::Unspecified));
    }
    return accounts;
}

void BanksWidget::saveBanksOnceAccountsAreSaved()
{
    using namespace std::chrono_literals;
    if (!anyAccountDirty()) {
        QTimer::singleShot(1500ms, this, &BanksWidget::saveBanks);
    }
}

void BanksWidget::onAccountSaveSucceeded(AccountCode const& ac)
{
    qInfo() << "Successfully saved account to ledger." << ac.name();
    auto* const row =
        locate(accountEntries_, [&](auto const& text, auto const& form) { return distance(text, form, ac); });
    if (row == nullptr) {
        qFatal("Failed to locate the account that saved successfully.");
    }
    paint(*row, Qt::green);
    if (auto& form = observed(accountEntries_.find(row)); form.isRemoved()) {
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
    auto* const row = locate(
        accountEntries_, [&](auto const& text, auto const& form) { return distance(text, form, original, displayed); });
    if (row == nullptr) {
        qFatal("Failed to locate the account whose save failed.");
    }
    showError(row, errorMessage);
}

void BanksWidget::onSaveSucceeded(BankName const& bn)
{
    qInfo() << "Successfully Saved Bank" << bn.institution();
    auto* const row =
        locate(bankEntries_, [&](auto const& text, auto const& form) { return distance(text, form, bn); });
    if (row == nullptr) {
        qFatal("Failed to locate the bank that saved successfully.");
    }
    paint(*row, Qt::green);
    if (auto& form = observed(bankEntries_.find(row)); form.isRemoved()) {
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
    auto* const row = locate(
        bankEntries_, [&](auto const& text, auto const& form) { return distance(text, form, original, displayed); });
    if (row == nullptr) {
        qFatal("Failed to locate the bank whose save failed.");
    }
    showError(row, errorMessage);
}

void BanksWidget::showError(Row row, QString const& message)
{
    paint(*row, Qt::red);
    bankAndAccountsTrwdgt->setCurrentItem(row);
    if (auto* const account = accountEntries_.find(row)) {
        account->showError(message);
    } else if (auto* const bank = bankEntries_.find(row)) {
        bank->showError(message);
    } else {
        throw Error(tr("Failed to locate neither the account nor the bank widget entry to display the error."));
    }
}

/// Lets the form of \a row go.
void BanksWidget::removeEntry(Row row)
{
    if (auto* const account = accountEntries_.find(row)) {
        account->resetDirty();
        account->deleteLater();
        accountEntries_.remove(row);
    } else if (auto* const bank = bankEntries_.find(row)) {
        bank->resetDirty();
        bank->deleteLater();
        bankEntries_.remove(row);
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

bool BanksWidget::anyAccountDirty() const
{
    return accountEntries_.anyDirty();
}

bool BanksWidget::anyDirty() const
{
    return bankEntries_.anyDirty() || anyAccountDirty();
}
}
