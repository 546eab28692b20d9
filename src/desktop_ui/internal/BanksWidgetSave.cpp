#include "internal/AccountEntryWidget.h"
#include "internal/BankEntryWidget.h"
#include "internal/BanksWidget.h"

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

/// \throws Error when there is none
template <typename Form>
Form& observed(Form* form)
{
    if (form == nullptr) {
        throw Error(BanksWidget::tr("Failed to locate the widget being observed."));
    }
    return *form;
}
}

void BanksWidget::saveAccounts()
{
    bankAndAccountsTrwdgt->setCurrentItem(nullptr);
    qInfo() << "Starting processing bank account widgets.";
    auto const unsaved = walk(accountEntries_, "Account entry save error for");
    if (!unsaved) {
        return;
    }
    for (auto const& form : *unsaved) {
        if (auto* const row = accountEntries_.itemOf(form.get())) {
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
    auto const unsaved = walk(bankEntries_, "Bank entry save error for");
    if (!unsaved) {
        return;
    }
    qInfo() << "Processing accounts.";
    for (auto const& form : *unsaved) {
        auto* const row = bankEntries_.itemOf(form.get());
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

/// Saves each form of \a entries, and shows why where that fails.
/// \return the forms to be removed that nobody else knows, none when the view has gone
template <typename Form>
std::optional<std::vector<QtPtr<Form>>> BanksWidget::walk(TreeRows<Form>& entries, char const* failure)
{
    std::vector<QtPtr<Form>> unsaved;
    QtPtr<BanksWidget> const self = this;
    for (auto const& form : entries.forms()) {
        auto* const row = entries.itemOf(form.get());
        if (row == nullptr) {
            continue; // gone by an answer to one before
        }
        auto const text = row->text(nameColumn);
        entries.setSent(form.get());
        try {
            if (save(*form, text)) {
                unsaved.push_back(form);
            }
        } catch (std::exception const& error) {
            qWarning() << failure << text << error.what();
            if (self && entries.itemOf(form.get()) == row) {
                showError(row, QString::fromUtf8(error.what()));
            }
        }
        if (!self) {
            return std::nullopt;
        }
    }
    entries.setSent(nullptr);
    return unsaved;
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
        accountEntries_.await(form, presentationText(*code));
        emit removedAccount(*code);
    } else if (!code) {
        qInfo() << "Adding New Account" << text;
        auto const balance = form.balance();
        accountEntries_.await(form, text);
        emit addedAccount(form.name(), form.bankType().value_or(BankAccountTypes::Unspecified), balance);
    } else if (auto const name = form.name(); name != code->name()) {
        qInfo() << "Renaming Account" << code->name() << "to" << name;
        AccountCode const changed(code->number(), name, code->parent());
        accountEntries_.await(form, presentationText(changed));
        emit renamedAccount(*code, changed);
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
        emit removed(await(form));
    } else if (!isSaved) {
        qInfo() << "Adding Bank:" << text;
        emit added(Bank(await(form), accountsOf(bankEntries_.itemOf(&form)), form.isClosed()));
    } else {
        modify(form, text);
    }
    return false;
}

/// Waits for one answer more.
/// \return the name that \a form sends
/// \throws DataEntryError when it has none
BankName BanksWidget::await(BankEntryWidget const& form)
{
    auto name = form.bankName();
    bankEntries_.await(form, name.institution());
    return name;
}

/// Goes on with what was typed when the walk came here, whatever is answered in between.
void BanksWidget::modify(BankEntryWidget& form, QString const& text)
{
    qInfo() << "Modifying Bank:" << text;
    QtPtr<BanksWidget> const self = this;
    auto const saved = *form.bank();
    auto const name = form.bankName();
    auto const isClosed = form.isClosed();
    auto const accounts = accountsOf(bankEntries_.itemOf(&form));
    if (saved.name != name) {
        qInfo() << "Renaming Bank from" << saved.name.institution() << "to" << text;
        bankEntries_.await(form, name.institution());
        emit rename(saved.name, name);
    }
    if (self && saved.isClosed() && !isClosed) {
        qInfo() << "Reopening Bank:" << text;
        bankEntries_.await(form, name.institution());
        emit opened(name);
    }
    if (!self) {
        return;
    }
    bankEntries_.await(form, name.institution());
    if (!saved.isClosed() && isClosed) {
        qInfo() << "Closing Bank:" << text;
        emit closed(name);
    } else {
        emit updated(Bank(name, accounts, false));
    }
}

std::map<AccountNumber, BankAccountTypes> BanksWidget::accountsOf(Row bank) const
{
    std::map<AccountNumber, BankAccountTypes> accounts;
    for (auto place = 0; place < bank->childCount(); ++place) {
        auto const& form = observed(accountEntries_.formOf(bank->child(place)));
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

bool BanksWidget::anyAccountDirty() const
{
    return accountEntries_.anyDirty();
}

bool BanksWidget::anyDirty() const
{
    return bankEntries_.anyDirty() || anyAccountDirty();
}
}
