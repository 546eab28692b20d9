#include "AccountRules.h"

#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

using fiscora::Currency;
using tlm::banking::Bank;
using tlm::foundation::presentationText;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("AccountRules", text);
}
}

void AccountRules::checkNumber(AccountNumber const& number, QString const& name) const
{
    if (number == AccountNumber()) {
        refuse(tr("%1 has no number. Enter one above zero that no other account has.").arg(name));
    }
    if (auto const* const holder = chart_.find(number)) {
        refuse(tr("%1 is the number of %2 already. Enter another one for %3.")
                   .arg(presentationText(number), holder->code.name(), name));
    }
}

void AccountRules::checkName(QString const& name, AccountNumber const& own) const
{
    auto const* const bank = chart_.bankOf(own);
    for (auto const& number : chart_.called(name)) {
        auto const& holder = chart_.account(number).code.name();
        if (number == own || (bank != nullptr && chart_.bankOf(number) != bank)) {
            continue;
        }
        if (bank != nullptr) {
            refuse(tr("%1 has an account called %2 already. Give this one another name.")
                       .arg(bank->name.institution(), holder));
        }
        refuse(tr("Account %1 is called %2 already. Use that one, or give this one another name.")
                   .arg(presentationText(number), holder));
    }
}

void AccountRules::checkNameAt(Bank const& bank, QString const& name) const
{
    for (auto const& number : chart_.called(name)) {
        if (chart_.bankOf(number) == &bank) {
            refuse(tr("%1 has an account called %2 already. Give this one another name.")
                       .arg(bank.name.institution(), chart_.account(number).code.name()));
        }
    }
}

void AccountRules::checkCurrency(QString const& name, Currency currency, Settings const& settings) const
{
    if (currency == Currency::XXX) {
        refuse(tr("The opening balance of %1 has no currency. Choose one.").arg(name));
    }
    if (!settings.usable.contains(currency)) {
        refuse(tr("%1 can't be kept in %2. Choose a usable currency, or make that one usable.")
                   .arg(name, presentationText(currency)));
    }
}

void AccountRules::checkParent(BookAccount const& account, AccountNumber const& current) const
{
    auto const& name = account.code.name();
    auto const& number = *account.code.parent();
    if (number == account.code.number() || number == current) {
        refuse(tr("%1 can't stand under itself. Choose another parent, or none.").arg(name));
    }
    auto const* const parent = chart_.find(number);
    if (parent == nullptr) {
        refuse(tr("There is no account %1 under which %2 could stand. Choose another parent, or none.")
                   .arg(presentationText(number), name));
    }
    auto const& above = parent->code.name();
    if (chart_.isAtOrBelow(number, current)) {
        refuse(tr("%1 stands under %2 itself. Choose another parent, or none.").arg(above, name));
    }
    if (parent->isClosed) {
        refuse(
            tr("%1 is closed, so %2 can't stand under it. Open it again, or choose another parent.").arg(above, name));
    }
    if (parent->type != account.type) {
        refuse(tr("%1 is an account of the type %2, and %3 is of the type %4. Choose a parent of the same type.")
                   .arg(above, presentationText(parent->type), name, presentationText(account.type)));
    }
    if (parent->currency != account.currency) {
        refuse(tr("%1 is kept in %2, and %3 is in %4. Choose a parent in the same currency.")
                   .arg(above, presentationText(parent->currency), name, presentationText(account.currency)));
    }
    if (auto const* const bank = chart_.bankOf(current)) {
        refuse(tr("%1 is an account of %2 itself, so it stands under no other one. Choose no parent.")
                   .arg(name, bank->name.institution()));
    }
}
}
