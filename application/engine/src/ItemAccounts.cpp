#include "ItemAccounts.h"

#include "BankChanges.h"
#include "Openings.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::budgeting::BudgetItemTypes;
using tlm::foundation::presentationText;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("ItemAccounts", text);
}

void checkKind(PlannedItem const& debt, BankAccountTypes kind)
{
    auto const& name = debt.identifier.source.name();
    if (kind == BankAccountTypes::Unspecified) {
        refuse(
            tr("It isn't chosen as what %1 is borrowed from its bank. Choose %2 or %3.")
                .arg(name, presentationText(BankAccountTypes::CreditCard), presentationText(BankAccountTypes::Loan)));
    }
    if (toAccountTypes(kind) != AccountTypes::Liability) {
        refuse(tr("%1 is owed, and an account of the kind %2 holds what one has. Choose %3 or %4.")
                   .arg(name, presentationText(kind), presentationText(BankAccountTypes::CreditCard),
                        presentationText(BankAccountTypes::Loan)));
    }
}

void checkCurrency(PlannedItem const& goal, BookAccount const& storage)
{
    if (storage.currency != goal.amount.code()) {
        refuse(tr("%1 is kept in %2, so it can't hold the money of %3. Choose an account in %4.")
                   .arg(storage.code.name(), presentationText(storage.currency), goal.identifier.source.name(),
                        presentationText(goal.amount.code())));
    }
}
}

AccountTypes toAccountTypes(BudgetItemTypes type)
{
    switch (type) {
    case BudgetItemTypes::Bill:
    case BudgetItemTypes::Nontrack:
        return AccountTypes::Expense;
    case BudgetItemTypes::Debt:
        return AccountTypes::Liability;
    case BudgetItemTypes::Goal:
        return AccountTypes::Asset;
    case BudgetItemTypes::Wage:
        return AccountTypes::Income;
    case BudgetItemTypes::None:
        break;
    }
    return AccountTypes::Suspense;
}

AccountNumber ItemAccounts::open(BooksDraft& draft, PlannedItem const& item, std::optional<BankAccount> const& keptAt,
                                 QDate const& openedOn) const
{
    auto const type = item.identifier.type;
    auto const parent = type == BudgetItemTypes::Goal ? storage(item, keptAt) : std::nullopt;
    auto const number =
        draft.open(toAccountTypes(type), rules::accountName(item.identifier), item.amount.code(), parent);
    if (type == BudgetItemTypes::Debt) {
        if (keptAt) {
            list(draft, item, number, *keptAt);
        }
        draft.postOpening(number, item.debt->borrowed, openedOn);
    }
    return number;
}

void ItemAccounts::follow(BooksDraft& draft, PlannedItem const& before, PlannedItem const& after,
                          std::optional<BankAccount> const& keptAt) const
{
    checkTerms(before, after);
    auto const& account = *chart_.find(before.account);
    auto const isRenamed = before.identifier.source != after.identifier.source;
    auto parent = account.code.parent();
    if (after.identifier.type == BudgetItemTypes::Goal) {
        parent = storage(after, keptAt);
    } else if (after.identifier.type == BudgetItemTypes::Debt && keptAt) {
        moveDebt(draft, after, *keptAt);
    }

    auto followed = account;
    followed.currency = after.amount.code();
    followed.code =
        AccountCode(before.account, isRenamed ? after.identifier.source.name() : account.code.name(), parent);
    if (followed != account) {
        draft.change(before.account, followed);
    }
}

void ItemAccounts::drop(BooksDraft& draft, PlannedItem const& item, Store const& store) const
{
    auto const& number = item.account;
    if (auto const below = chart_.subAccounts(number); !below.empty()) {
        refuse(tr("%1 can't be removed, since the account %2 stands under its own. Move that account first.")
                   .arg(item.identifier.source.name(), chart_.find(below.front())->code.name()));
    }
    if (auto const opening = Openings(chart_, plan_).only(number, item.identifier.source.name(), store)) {
        draft.takeBack(opening->first, opening->second);
    }
    if (auto const* const bank = chart_.bankOf(number)) {
        draft.change(bank->name, listing(*bank, number, std::nullopt));
    }
    draft.drop(number);
}

/// Makes the account of \a debt one of its bank's.
void ItemAccounts::list(BooksDraft& draft, PlannedItem const& debt, AccountNumber const& number,
                        BankAccount const& keptAt) const
{
    auto const& bank = places_.openBank(keptAt.bank, debt.identifier.source.name());
    checkKind(debt, keptAt.type);
    draft.change(bank.name, listing(bank, number, keptAt.type));
}

/// Refuses to alter what is posted already.
void ItemAccounts::checkTerms(PlannedItem const& before, PlannedItem const& after) const
{
    auto const& name = after.identifier.source.name();
    auto const& currency = before.amount.code();
    if (after.amount.code() != currency && chart_.turnoverOf(before.account) != nullptr) {
        refuse(tr("%1 has postings in %2, so it stays in that currency. Plan another item in %3.")
                   .arg(name, presentationText(currency), presentationText(after.amount.code())));
    }
    if (auto const below = chart_.subAccounts(before.account); after.amount.code() != currency && !below.empty()) {
        refuse(tr("The account %1 stands under that of %2, so %2 stays in %3. Plan another item in %4.")
                   .arg(chart_.account(below.front()).code.name(), name, presentationText(currency),
                        presentationText(after.amount.code())));
    }
    if (after.debt && after.debt->borrowed != before.debt->borrowed) {
        refuse(tr("The sum borrowed for %1 is posted as %2 and stays. Plan what was borrowed since as another debt.")
                   .arg(name, presentationText(before.debt->borrowed, tlm::foundation::WithCurrency())));
    }
}

void ItemAccounts::moveDebt(BooksDraft& draft, PlannedItem const& debt, BankAccount const& keptAt) const
{
    auto const current = places_.keptAt(debt);
    auto const* const bank = chart_.find(keptAt.bank);
    if (!current) {
        list(draft, debt, debt.account, keptAt);
    } else if (bank == nullptr || current->bank != bank->name || current->type != keptAt.type) {
        refuse(tr("%1 is kept at %2 as %3 and stays there. Plan what is owed to another bank as another debt.")
                   .arg(debt.identifier.source.name(), current->bank.institution(), presentationText(current->type)));
    }
}

/// \return number of the account under which \a goal is stored from now on, none when it stands alone
std::optional<AccountNumber> ItemAccounts::storage(PlannedItem const& goal,
                                                   std::optional<BankAccount> const& keptAt) const
{
    auto const* const own = chart_.find(goal.account);
    auto const current = own == nullptr ? std::nullopt : own->code.parent();
    auto const stood = current ? places_.find(*current) : std::nullopt;
    auto const* const bank = keptAt ? chart_.find(keptAt->bank) : nullptr;
    auto const isMoved =
        keptAt && !(stood && bank != nullptr && stood->number == keptAt->number && stood->bank == bank->name);
    if (isMoved) {
        places_.checkStorage(goal, *keptAt);
    }
    auto const place = isMoved ? keptAt->number : current;
    auto const isOfNewCurrency = own != nullptr && own->currency != goal.amount.code();
    if (own != nullptr && isMoved && chart_.isAtOrBelow(*place, goal.account)) {
        refuse(tr("%1 stands under the account of %2, so it can't hold the money of %2. Choose another account.")
                   .arg(chart_.account(*place).code.name(), goal.identifier.source.name()));
    }
    if (place && (isMoved || isOfNewCurrency)) {
        checkCurrency(goal, *chart_.find(*place));
    }
    return place;
}
}
