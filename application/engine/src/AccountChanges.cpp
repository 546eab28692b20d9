#include "AccountChanges.h"

#include "BankChanges.h"
#include "BookRules.h"
#include "Openings.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

using tlm::accounting::Account;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::foundation::presentationText;
using tlm::foundation::WithCurrency;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("AccountChanges", text);
}

/// \param sentence of the item's name and what an item of its type is called
[[noreturn]] void refuseOwned(PlannedItem const& owner, QString const& sentence)
{
    refuse(sentence.arg(owner.identifier.source.name(), rules::noun(owner.identifier.type)));
}

BookAccount withClosed(BookAccount account, bool isClosed)
{
    account.isClosed = isClosed;
    return account;
}

void checkEmpty(Account const& account)
{
    if (account.isClosed() && account.balance() != 0) {
        refuse(tr("%1 can't be closed from the start, since it opens with %2. Add it open, or without a balance.")
                   .arg(account.code().name(), presentationText(account.balance(), WithCurrency())));
    }
}
}

void AccountChanges::add(Account const& account, Settings const& settings, QDate const& openedOn)
{
    AccountCode const code(account.code().number(), rules::tidied(account.code().name()), account.code().parent());
    BookAccount const added{
        .code = code, .type = account.type(), .currency = account.balance().code(), .isClosed = account.isClosed()};
    rules_.checkNumber(code.number(), code.name());
    rules_.checkName(code.name(), AccountNumber());
    rules_.checkCurrency(code.name(), added.currency, settings);
    if (code.parent()) {
        rules_.checkParent(added, AccountNumber());
    }
    checkEmpty(account);
    draft_.add(added);
    draft_.postOpening(code.number(), account.balance(), openedOn);
}

void AccountChanges::recode(AccountNumber const& current, AccountCode const& changed)
{
    auto const& before = chart_.account(current);
    auto const name = rules::tidied(changed.name());
    auto const keepsName = changed.name() == before.code.name() || name == before.code.name();
    auto after = before;
    after.code = AccountCode(changed.number(), keepsName ? before.code.name() : name, changed.parent());
    if (after == before) {
        return;
    }
    checkFollows(before, after);
    if (changed.number() != current) {
        rules_.checkNumber(changed.number(), after.code.name());
    }
    if (!keepsName) {
        rules_.checkName(name, current);
    }
    if (changed.parent() && changed.parent() != before.code.parent()) {
        rules_.checkParent(after, current);
    }
    draft_.change(current, after);
}

void AccountChanges::close(AccountNumber const& number)
{
    auto const& account = chart_.account(number);
    if (!account.isClosed) {
        checkCanClose(account);
        draft_.change(number, withClosed(account, true));
    }
}

void AccountChanges::reopen(AccountNumber const& number)
{
    auto const& account = chart_.account(number);
    if (!account.isClosed) {
        return;
    }
    if (auto const& parent = account.code.parent(); parent && chart_.account(*parent).isClosed) {
        refuse(tr("%1 stands under %2, which is closed. Open %2 first.")
                   .arg(account.code.name(), chart_.account(*parent).code.name()));
    }
    draft_.change(number, withClosed(account, false));
}

void AccountChanges::drop(AccountNumber const& number, Store const& store)
{
    auto const& account = chart_.account(number);
    if (auto const* const owner = plan_.ownerOf(number)) {
        refuseOwned(*owner, tr("%1 belongs to the %2 of that name. Remove the %2, and its account goes with it."));
    }
    checkNoneBelow(account);
    if (auto const opening = Openings(chart_, plan_).only(number, account.code.name(), store)) {
        draft_.takeBack(opening->first, opening->second);
    }
    if (auto const* const bank = chart_.bankOf(number)) {
        draft_.change(bank->name, listing(*bank, number, std::nullopt));
    }
    draft_.drop(number);
}

/// Refuses to part an account from the budget item to which it belongs.
void AccountChanges::checkFollows(BookAccount const& before, BookAccount const& after) const
{
    auto const* const owner = plan_.ownerOf(before.code.number());
    if (owner == nullptr) {
        return;
    }
    if (before.code.name() != after.code.name()) {
        refuseOwned(*owner, tr("%1 belongs to the %2 of that name. Rename the %2, and its account follows."));
    }
    if (before.code.parent() != after.code.parent()) {
        refuseOwned(*owner, tr("%1 belongs to the %2 of that name, which tells where it stands. Change the %2, and its "
                               "account follows."));
    }
}

void AccountChanges::checkCanClose(BookAccount const& account) const
{
    auto const& number = account.code.number();
    auto const& name = account.code.name();
    if (auto const* const owner = plan_.ownerOf(number)) {
        refuseOwned(*owner, tr("%1 belongs to the %2 of that name, which needs it open. Remove the %2 instead."));
    }
    if (account.purpose == AccountPurposes::OpeningBalances) {
        refuse(tr("The balances of new accounts are posted against %1, so it stays open.").arg(name));
    }
    if (account.purpose == AccountPurposes::Exchange) {
        refuse(tr("Transfers between currencies go through %1, so it stays open.").arg(name));
    }
    if (auto const balance = chart_.balance(number); balance != 0) {
        refuse(tr("%1 has a balance of %2. Bring it to zero, and then close it.")
                   .arg(name, presentationText(balance, WithCurrency())));
    }
    for (auto const& below : chart_.subAccounts(number)) {
        if (auto const& open = chart_.account(below); !open.isClosed) {
            refuse(tr("%1 stands under %2 and is open. Close %1 first.").arg(open.code.name(), name));
        }
    }
}

void AccountChanges::checkNoneBelow(BookAccount const& account) const
{
    if (auto const below = chart_.subAccounts(account.code.number()); !below.empty()) {
        refuse(tr("%1 can't be removed, since the account %2 stands under it. Move that account first.")
                   .arg(account.code.name(), chart_.account(below.front()).code.name()));
    }
}
}
