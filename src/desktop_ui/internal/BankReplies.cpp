#include "internal/BankReplies.h"

#include "internal/AccountEntryWidget.h"
#include "internal/BankEntryWidget.h"

namespace tlm::desktop_ui::internal {

using accounting::AccountCode;
using accounting::AccountNumber;
using banking::BankName;

namespace {

/// \return 0 where the number or the whole text tells that it is this account
Distance distanceOfKnown(QString const& text, AccountEntryWidget const& form, AccountCode const& code)
{
    auto const isNumber = code.number() != AccountNumber() && form.code() && *form.code() == code.number();
    return isNumber || text == presentationText(code) ? Distance(0) : std::nullopt;
}

/// A presenter may have trimmed a name, which two names that differ in blanks alone make up for.
Distance distanceOfName(QString const& text, QString const& name)
{
    if (text == name) {
        return 0;
    }
    return !name.isEmpty() && text.simplified() == name.simplified() ? Distance(1) : std::nullopt;
}

/// \return how far what the row says, or is going to say, is from \a name
Distance distanceOfName(QString const& text, BankEntryWidget const& form, BankName const& name)
{
    auto const typed = form.tryBankName().value_or(BankName()).institution();
    return lesser(distanceOfName(text, name.institution()), distanceOfName(typed, name.institution()));
}

QString nameIn(QString const& text, QString const& name)
{
    auto const tail = AccountCode::separator_ + name;
    return text.endsWith(tail) ? name : text.section(AccountCode::separator_, 1);
}
}

Distance distance(QString const& text, AccountEntryWidget const& form, AccountCode const& code)
{
    if (auto const known = distanceOfKnown(text, form, code)) {
        return known;
    }
    auto const isNew = !form.code();
    if (isNew && code.name().isEmpty()) {
        return form.name().trimmed().isEmpty() ? 3 : 4;
    }
    auto const name =
        lesser(distanceOfName(nameIn(text, code.name()), code.name()), distanceOfName(form.name(), code.name()));
    if (isNew && name) {
        return 1 + *name;
    }
    return name == 0 ? Distance(5) : std::nullopt; // another account of this name
}

Distance distance(QString const& text, AccountEntryWidget const& form, std::optional<AccountCode> const& original,
                  std::optional<AccountCode> const& displayed)
{
    if (!original) {
        return distance(text, form, displayed.value_or(AccountCode()));
    }
    if (auto const known = distanceOfKnown(text, form, *original)) {
        return known;
    }
    return displayed && distanceOfKnown(text, form, *displayed) ? Distance(1) : std::nullopt;
}

Distance distance(QString const& text, BankEntryWidget const& form, BankName const& name)
{
    if (form.bank() && form.bank()->name == name) {
        return text == name.institution() ? 0 : 1;
    }
    auto const typed = distanceOfName(text, form, name);
    if (!typed) {
        return std::nullopt;
    }
    // What stands for a name that is missing may be the name of a bank, too.
    return form.tryBankName() ? 2 * *typed : 3;
}

Distance distance(QString const& text, BankEntryWidget const& form, std::optional<BankName> const& original,
                  std::optional<BankName> const& displayed)
{
    auto const saved = form.bank() ? std::optional(form.bank()->name) : std::nullopt;
    auto const typed = distanceOfName(text, form, displayed.value_or(original.value_or(BankName())));
    if (typed == 0) {
        return saved == original ? 0 : 1;
    }
    if (original && saved == original) {
        return 2;
    }
    return typed ? Distance(3) : std::nullopt;
}

bool isNamed(QString const& told, AccountCode const& code)
{
    auto const isNew = told.startsWith(presentationText(AccountNumber()) + AccountCode::separator_);
    return told == presentationText(code) ||
           (isNew && (code.name().isEmpty() || distanceOfName(nameIn(told, code.name()), code.name())));
}

bool isNamed(QString const& told, BankName const& name)
{
    return name.isEmpty() || distanceOfName(told, name.institution());
}
}
