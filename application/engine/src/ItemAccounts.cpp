#include "ItemAccounts.h"

#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <algorithm>

using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::accounting::TransactionStatuses;
using tlm::banking::Bank;
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

/// \return \a bank with another account, or without it where \a kind is none
Bank changed(Bank const& bank, AccountNumber const& number, std::optional<BankAccountTypes> const& kind)
{
    auto accounts = bank.accounts();
    accounts.erase(number);
    if (kind) {
        accounts.emplace(number, *kind);
    }
    return {bank.name, std::move(accounts), bank.isClosed()};
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
        draft.change(followed);
    }
}

void ItemAccounts::drop(BooksDraft& draft, PlannedItem const& item, Store const& store) const
{
    auto const& number = item.account;
    if (auto const below = chart_.subAccounts(number); !below.empty()) {
        refuse(tr("%1 can't be removed, since the account %2 stands under its own. Move that account first.")
                   .arg(item.identifier.source.name(), chart_.find(below.front())->code.name()));
    }
    if (chart_.turnoverOf(number) != nullptr) {
        auto const [id, opening] = onlyOpening(item, store.postingsOf(number));
        draft.takeBack(id, opening);
    }
    if (auto const* const bank = chart_.bankOf(number)) {
        draft.put(changed(*bank, number, std::nullopt));
    }
    draft.drop(number);
}

/// Makes the account of \a debt one of its bank's.
void ItemAccounts::list(BooksDraft& draft, PlannedItem const& debt, AccountNumber const& number,
                        BankAccount const& keptAt) const
{
    auto const& bank = places_.openBank(keptAt.bank, debt.identifier.source.name());
    checkKind(debt, keptAt.type);
    draft.put(changed(bank, number, keptAt.type));
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
    if (after.debt && after.debt->borrowed != before.debt->borrowed) {
        refuse(tr("The sum borrowed for %1 is posted as %2 and stays. Plan what was borrowed since as another debt.")
                   .arg(name, presentationText(before.debt->borrowed, tlm::foundation::WithCurrency())));
    }
}

void ItemAccounts::moveDebt(BooksDraft& draft, PlannedItem const& debt, BankAccount const& keptAt) const
{
    auto const current = places_.keptAt(debt);
    if (!current) {
        list(draft, debt, debt.account, keptAt);
    } else if (current->bank != keptAt.bank || current->type != keptAt.type) {
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
    auto const isMoved = keptAt && !(stood && stood->number == keptAt->number && stood->bank == keptAt->bank);
    if (isMoved) {
        places_.checkStorage(goal, *keptAt);
    }
    auto const place = isMoved ? keptAt->number : current;
    auto const isOfNewCurrency = own != nullptr && own->currency != goal.amount.code();
    if (place && (isMoved || isOfNewCurrency)) {
        checkCurrency(goal, *chart_.find(*place));
    }
    return place;
}

/// \param postings of the account of \a item, one at least
/// \return the posting that \a item opened with
/// \throws foundation::Error when there is any other
std::pair<PostingId, Posting> ItemAccounts::onlyOpening(PlannedItem const& item,
                                                        std::map<PostingId, Posting> const& postings) const
{
    auto const opening =
        std::ranges::find_if(postings, [&](auto const& entry) { return isOpening(item, entry.second); });
    auto const others = postings.size() - (opening == postings.end() ? 0 : 1);
    if (others == 0) {
        return *opening;
    }
    QDate latest;
    for (auto place = postings.begin(); place != postings.end(); ++place) {
        latest = place == opening ? latest : std::max(latest, place->second.occurredOn);
    }
    auto const& name = item.identifier.source.name();
    auto const day = presentationText(latest);
    refuse(others == 1
               ? tr("%1 can't be removed, since a posting of %2 needs it. Delete that posting first, or keep %1.")
                     .arg(name, day)
               : tr("%1 can't be removed, since %2 postings need it, the latest of %3. Delete them first, or "
                    "keep %1.")
                     .arg(name, QString::number(others), day));
}

bool ItemAccounts::isOpening(PlannedItem const& item, Posting const& posting) const
{
    return item.debt && posting.crediting == item.account && posting.amount == item.debt->borrowed &&
           !posting.madeFrom && posting.status != TransactionStatuses::Reconciled &&
           chart_.find(posting.debiting)->purpose == AccountPurposes::OpeningBalances;
}
}
