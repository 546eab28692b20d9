#include "internal/AccountEntryWidget.h"
#include "internal/AccountsWidget.h"

#include <tlm/foundation/Error.h>
#include <tlm/foundation/ScopeExecutor.h>

#include <QDebug>
#include <QLayout>
#include <QLineEdit>

#include <utility>

namespace tlm::desktop_ui::internal {

using accounting::Account;
using accounting::AccountCode;
using accounting::AccountNumber;
using foundation::Error;
using foundation::QtPtr;
using foundation::ScopeExecutor;

/// What a form shows when it is sent. An answer changes the form, or ends it, while more of it is still to be sent.
struct AccountsWidget::Shown
{
    explicit Shown(AccountEntryWidget const& form)
        : number(form.number()), name(form.name()), text(form.displayText()), stored(form.code())
    {
        if (auto const typed = form.parent()) {
            parent = AccountNumber(*typed);
        }
    }

    /// \throws foundation::Error when the name is none of an account
    AccountCode code() const { return {number, name, parent}; }
    AccountCode codeWithoutParent() const { return {number, name, std::nullopt}; }

    /// \return what a refusal of the form tells to be shown, a default code where that makes none
    AccountCode refused() const
    {
        try {
            return number == AccountNumber() && !name.isEmpty() ? AccountCode(name, parent) : code();
        } catch (std::exception const&) {
            return {};
        }
    }

    AccountNumber number;
    QString name;
    std::optional<AccountNumber> parent;
    QString text;
    std::optional<AccountCode> stored;
};

bool AccountsWidget::anyAccountDirty() const
{
    return sending_.isUnderWay || rows_.anyDirty();
}

/// Save leaves the cursor where it is when no click brings it about, and a field tells of an edit only once it is left.
void AccountsWidget::finishEditing()
{
    auto* const field = qobject_cast<QLineEdit*>(focusWidget());
    if (field != nullptr && field->isModified()) {
        emit field->editingFinished();
    }
}

/// Each refusal shows its form. A layout goes over all its forms for that, which thousands of refusals can do without.
ScopeExecutor AccountsWidget::holdLayout()
{
    QtPtr<QLayout> const forms = layout();
    auto const wasEnabled = forms->isEnabled();
    forms->setEnabled(false);
    return ScopeExecutor([forms, wasEnabled] {
        if (forms) {
            forms->setEnabled(wasEnabled);
            forms->activate();
        }
    });
}

/// A receiver may answer inside the emission, and end forms, or this view, as it likes.
void AccountsWidget::save()
{
    qInfo() << "Saving all account modifications.";
    auto const over = holdLayout();
    finishEditing();
    if (accountCodesLstwdgt->currentItem() != nullptr) {
        accountCodesLstwdgt->setCurrentRow(-1);
    } else if (auto const form = displayed()) {
        followTyping(form);
    }
    QtPtr<AccountsWidget> const self = this;
    for (auto const& form : rows_.forms()) {
        if (rows_.contains(form.get()) && !trySave(form)) {
            return;
        }
    }
    qInfo() << "Processed all accounts.";
    if (self && !anyAccountDirty()) {
        close();
    }
}

/// \return whether the walk goes on
bool AccountsWidget::trySave(Form const& form)
{
    QtPtr<AccountsWidget> const self = this;
    Shown const shown(*form);
    auto const awaited = rows_.countAwaited(*form);
    auto const before = std::exchange(sending_, Sending{form, false, std::nullopt});
    ScopeExecutor const sent([&] {
        if (self) {
            sending_ = before;
        }
    });
    try {
        save(form, shown);
        return self != nullptr;
    } catch (std::exception const& failure) {
        auto const message = QString::fromUtf8(failure.what());
        qWarning() << "Account entry save error for" << shown.text << message;
        if (self && rows_.contains(form.get())) {
            sending_.isUnderWay = false;
            rows_.awaitAtMost(*form, awaited); // the fault stands for an answer
            logRefusal(form->code(), shown.refused(), message);
            refuse(form, message);
        }
        return false;
    }
}

void AccountsWidget::save(Form const& form, Shown const& shown)
{
    if (!form->isDirty()) {
        qInfo() << "Skipping saving non-dirty account" << shown.name;
        return;
    }
    if (!shown.stored && form->isRemoved()) {
        takeBack(form, shown);
        return;
    }
    if (auto const message = form->numberErrorMessage()) {
        throw Error(*message);
    }
    auto const changes = changesOf(form, shown);
    if (changes.empty()) { // a field that was only walked through makes its form dirty, too
        form->saved(*shown.stored);
        return;
    }
    QtPtr<AccountsWidget> const self = this;
    for (auto const change : changes) {
        sending_.isUnderWay = change != changes.back();
        send(form, shown, change);
        if (!self || !form) {
            return;
        }
    }
}

/// Nobody else knows of a new account, unless the answer to it is still to come.
void AccountsWidget::takeBack(Form const& form, Shown const& shown)
{
    if (rows_.countAwaited(*form) > 0) {
        return;
    }
    qInfo() << "Removing Account:" << shown.text;
    removeEntry(form);
    form->resetDirty();
}

/// \return what is to be told of the form, in this order; nothing where it shows what is stored
std::vector<AccountChange> AccountsWidget::changesOf(Form const& form, Shown const& shown) const
{
    using enum AccountChange;
    if (!shown.stored) {
        return {Add};
    }
    std::vector<AccountChange> changes;
    if (form->isClosed() != rows_.wasClosed(*form)) {
        changes.push_back(form->isClosed() ? Close : Open);
    }
    auto const& stored = *shown.stored;
    if (form->isRemoved()) {
        changes.push_back(Remove);
    } else if (shown.number != stored.number() || shown.name != stored.name() || shown.parent != stored.parent()) {
        changes.push_back(Recode);
    }
    return changes;
}

void AccountsWidget::send(Form const& form, Shown const& shown, AccountChange change)
{
    switch (change) {
    case AccountChange::Close:
        qInfo() << "Closing Account:" << shown.text;
        tell(form, shown, change, &AccountsWidget::closed, shown.codeWithoutParent());
        break;
    case AccountChange::Open:
        qInfo() << "Opening Account:" << shown.text;
        tell(form, shown, change, &AccountsWidget::opened, shown.codeWithoutParent());
        break;
    case AccountChange::Remove:
        qInfo() << "Removing Account:" << shown.text;
        tell(form, shown, change, &AccountsWidget::removed, shown.codeWithoutParent());
        break;
    case AccountChange::Add:
        qInfo() << "Adding Account:" << shown.text;
        tell(form, shown, change, &AccountsWidget::added,
             Account(accounting::toAccountTypes(form->ledgerType()), shown.code(), form->balance(), form->isClosed()));
        break;
    case AccountChange::Recode:
        qInfo() << "Recoding Account from" << presentationText(*shown.stored) << "to" << shown.text;
        tell(form, shown, change, &AccountsWidget::recoded, *shown.stored, shown.code());
        break;
    }
}

template <typename... Records>
void AccountsWidget::tell(Form const& form, Shown const& shown, AccountChange change,
                          void (AccountsWidget::*signal)(Records const&...), Records const&... records)
{
    rows_.await(*form, change, shown.codeWithoutParent());
    emit(this->*signal)(records...);
}
}
