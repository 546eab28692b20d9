#include "BankChanges.h"

#include "BookRules.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <utility>

using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::foundation::presentationText;
using tlm::foundation::WithCurrency;
using tlm::navigation::AllowSubAccounts;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("BankChanges", text);
}

void checkKindChosen(QString const& name, BankAccountTypes kind)
{
    if (kind == BankAccountTypes::Unspecified) {
        refuse(tr("It isn't chosen what kind of account %1 is. Choose its kind.").arg(name));
    }
}

Bank withClosed(Bank const& bank, bool isClosed)
{
    return {bank.name, bank.accounts(), isClosed};
}
}

void BankChanges::add(Bank const& bank)
{
    Bank const added(tidied(bank.name, nullptr), bank.accounts(), bank.isClosed());
    checkListed(added, {});
    if (added.isClosed()) {
        checkHoldsNothing(added);
    }
    draft_.add(added);
}

void BankChanges::rename(BankName const& original, BankName const& changed)
{
    auto const& bank = known(original);
    auto const name = tidied(changed, &bank);
    if (name != bank.name) {
        draft_.change(bank.name, Bank(name, bank.accounts(), bank.isClosed()));
    }
}

void BankChanges::list(BankName const& bank, Accounts const& accounts)
{
    auto const& before = known(bank);
    if (before.accounts() == accounts) {
        return;
    }
    Bank const after(before.name, accounts, before.isClosed());
    checkDebtsStay(before, accounts);
    checkListed(after, before.accounts());
    draft_.change(before.name, after);
}

void BankChanges::close(BankName const& name)
{
    if (auto const& bank = known(name); !bank.isClosed()) {
        checkHoldsNothing(bank);
        draft_.change(bank.name, withClosed(bank, true));
    }
}

void BankChanges::reopen(BankName const& name)
{
    if (auto const& bank = known(name); bank.isClosed()) {
        draft_.change(bank.name, withClosed(bank, false));
    }
}

void BankChanges::drop(BankName const& name)
{
    auto const& bank = known(name);
    if (!bank.accounts().empty()) {
        refuse(tr("%1 can't be removed, since it has the account %2. Remove its accounts first, or close the bank.")
                   .arg(bank.name.institution(), chart_.account(bank.accounts().begin()->first).code.name()));
    }
    draft_.drop(bank.name);
}

AccountNumber BankChanges::open(NewBankAccount const& account, Settings const& settings)
{
    auto const name = AccountCode(rules::tidied(account.name), std::nullopt).name(); // refuses what can't be one
    auto const& currency = account.openingBalance.code();
    auto const* const bank = account.bank ? &places_.openBank(*account.bank, name) : nullptr;
    if (bank == nullptr) {
        checkKindChosen(name, account.type);
    } else {
        rules_.checkNameAt(*bank, name);
    }
    rules_.checkCurrency(name, currency, settings);
    auto const number = draft_.open(toAccountTypes(account.type), name, currency);
    if (bank != nullptr) {
        draft_.change(bank->name, listing(*bank, number, account.type));
    }
    draft_.postOpening(number, account.openingBalance, account.openedOn);
    return number;
}

Bank const& BankChanges::known(BankName const& name) const
{
    auto const* const bank = chart_.find(name);
    if (bank == nullptr) {
        refuse(tr("There is no bank called %1. Add it as a new one.").arg(name.institution()));
    }
    return *bank;
}

/// \param replaced the bank that is to have the name, none for a new one
/// \return the name as it is kept
BankName BankChanges::tidied(BankName const& name, Bank const* replaced) const
{
    BankName kept(rules::tidied(name.institution()));
    if (kept.isEmpty()) {
        refuse(tr("This bank has no name. Give it one by which you will know it."));
    }
    if (!rules::isAccountName(kept.institution())) {
        refuse(tr("The name of this bank holds signs that can't be shown, such as a line break, or a blank of unusual "
                  "width. Type the name anew."));
    }
    if (auto const* const namesake = chart_.find(kept); namesake != nullptr && namesake != replaced) {
        refuse(tr("There is a bank called %1 already. Use that one, or give this one another name.")
                   .arg(namesake->name.institution()));
    }
    return kept;
}

/// Looks at what \a bank lists otherwise than before. The rest stays, however it came there.
void BankChanges::checkListed(Bank const& bank, Accounts const& before) const
{
    for (auto const& [number, kind] : bank.accounts()) {
        auto const listed = before.find(number);
        if (listed != before.end() && listed->second == kind) {
            continue;
        }
        if (number == AccountNumber()) {
            refuse(
                tr("An account of %1 isn't in the books yet. Save that account first.").arg(bank.name.institution()));
        }
        auto const& account = chart_.account(number);
        checkKind(account, bank, kind);
        if (listed == before.end()) {
            checkFree(account, bank);
            checkNames(bank, number);
        }
    }
}

void BankChanges::checkKind(BookAccount const& account, Bank const& bank, BankAccountTypes kind) const
{
    checkKindChosen(account.code.name(), kind);
    if (toAccountTypes(kind) != account.type) {
        refuse(tr("%1 is an account of the type %2, so it can't be at %3 as %4. Choose another kind.")
                   .arg(account.code.name(), presentationText(account.type), bank.name.institution(),
                        presentationText(kind)));
    }
}

/// Refuses an account that has its place already.
void BankChanges::checkFree(BookAccount const& account, Bank const& bank) const
{
    auto const& number = account.code.number();
    auto const& name = account.code.name();
    auto const* const owner = plan_.ownerOf(number);
    if (bank.isClosed() && chart_.find(bank.name) != nullptr) {
        refuse(tr("%1 is closed. Open it again before you keep %2 there.").arg(bank.name.institution(), name));
    }
    if (auto const* const other = chart_.bankOf(number)) {
        refuse(tr("%1 is an account of %2 already, and an account is kept at one bank only. Leave it there.")
                   .arg(name, other->name.institution()));
    }
    if (owner != nullptr && !owner->debt) {
        refuse(tr("%1 belongs to the %2 of that name. Change the %2 to tell where its money is kept.")
                   .arg(owner->identifier.source.name(), rules::noun(owner->identifier.type)));
    }
    if (auto const& parent = account.code.parent()) {
        refuse(tr("%1 stands under %2, so no bank lists it by itself. Give it no parent first.")
                   .arg(name, chart_.account(*parent).code.name()));
    }
}

/// Refuses the account \a number where \a bank lists another one of that name.
void BankChanges::checkNames(Bank const& bank, AccountNumber const& number) const
{
    for (auto const& namesake : chart_.called(chart_.account(number).code.name())) {
        if (namesake != number && bank.accounts().contains(namesake)) {
            refuse(tr("%1 would have two accounts called %2. Give one of them another name.")
                       .arg(bank.name.institution(), chart_.account(namesake).code.name()));
        }
    }
}

/// Refuses to take the account of a debt off the bank that lent.
void BankChanges::checkDebtsStay(Bank const& bank, Accounts const& accounts) const
{
    for (auto const& [number, kind] : bank.accounts()) {
        auto const* const owner = accounts.contains(number) ? nullptr : plan_.ownerOf(number);
        if (owner != nullptr && owner->debt) {
            refuse(tr("%1 is owed to %2, so its account stays there. Remove the debt, and its account goes with it.")
                       .arg(owner->identifier.source.name(), bank.name.institution()));
        }
    }
}

void BankChanges::checkHoldsNothing(Bank const& bank) const
{
    for (auto const& account : places_.accounts(bank, AllowSubAccounts::Yes)) {
        if (auto const balance = chart_.balance(account.number); balance != 0) {
            refuse(tr("%1 has a balance of %2, so %3 can't be closed. Bring it to zero, and then close the bank.")
                       .arg(chart_.account(account.number).code.name(), presentationText(balance, WithCurrency()),
                            bank.name.institution()));
        }
    }
}

Bank listing(Bank const& bank, AccountNumber const& number, std::optional<BankAccountTypes> const& kind)
{
    auto accounts = bank.accounts();
    accounts.erase(number);
    if (kind) {
        accounts.emplace(number, *kind);
    }
    return {bank.name, std::move(accounts), bank.isClosed()};
}
}
