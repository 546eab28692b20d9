#include "AccountChanges.h"
#include "BankChanges.h"
#include "Chart.h"
#include "Plan.h"
#include "PostingChanges.h"
#include "Transfers.h"
#include "engine/Household.h"

#include <algorithm>
#include <optional>
#include <utility>

using fiscora::Money;
using tlm::accounting::Account;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::TransactionStatuses;
using tlm::banking::Bank;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;

namespace tallymere::engine {

/// Drafts a change of the books alone, stores it unless nothing changes, and takes it over.
/// \param change tells an object of the class Changes what to draft
/// \return the identifier of the first posting made, none without one
template <typename Changes, typename Change>
PostingId Household::make(Change const& change)
{
    auto draft = chart_->draft();
    Changes changes(*chart_, *plan_, draft);
    change(changes);
    return keep(draft);
}

void Household::addAccount(Account const& account, QDate const& openedOn)
{
    make<AccountChanges>([&](auto& accounts) { accounts.add(account, content_.settings, openedOn); });
}

void Household::recode(AccountNumber const& current, AccountCode const& changed)
{
    std::optional<Plan::Addition> follower; // made first: nothing can fail any more once the number is stored
    make<AccountChanges>([&](auto& accounts) {
        accounts.recode(current, changed);
        if (auto const* const owner = plan_->ownerOf(current)) {
            auto item = *owner;
            item.account = changed.number();
            follower.emplace(item);
        }
    });
    if (follower) {
        plan_->drop(current);
        plan_->take(*follower);
    }
}

void Household::closeAccount(AccountNumber const& number)
{
    make<AccountChanges>([&](auto& accounts) { accounts.close(number); });
}

void Household::reopenAccount(AccountNumber const& number)
{
    make<AccountChanges>([&](auto& accounts) { accounts.reopen(number); });
}

void Household::removeAccount(AccountNumber const& number)
{
    make<AccountChanges>([&](auto& accounts) { accounts.drop(number, store_); });
}

void Household::addBank(BankName const& name)
{
    addBank(Bank(name, {}, false));
}

void Household::addBank(Bank const& bank)
{
    make<BankChanges>([&](auto& banks) { banks.add(bank); });
}

void Household::renameBank(BankName const& original, BankName const& changed)
{
    make<BankChanges>([&](auto& banks) { banks.rename(original, changed); });
}

void Household::listAccounts(BankName const& bank, std::map<AccountNumber, BankAccountTypes> const& accounts)
{
    make<BankChanges>([&](auto& banks) { banks.list(bank, accounts); });
}

void Household::closeBank(BankName const& name)
{
    make<BankChanges>([&](auto& banks) { banks.close(name); });
}

void Household::reopenBank(BankName const& name)
{
    make<BankChanges>([&](auto& banks) { banks.reopen(name); });
}

void Household::removeBank(BankName const& name)
{
    make<BankChanges>([&](auto& banks) { banks.drop(name); });
}

AccountNumber Household::addBankAccount(QString const& name, BankAccountTypes type, Money const& openingBalance,
                                        QDate const& openedOn)
{
    return addBankAccount(NewBankAccount{std::nullopt, name, type, openingBalance, openedOn});
}

AccountNumber Household::addBankAccount(BankName const& bank, QString const& name, BankAccountTypes type,
                                        Money const& openingBalance, QDate const& openedOn)
{
    return addBankAccount(NewBankAccount{bank, name, type, openingBalance, openedOn});
}

AccountNumber Household::addBankAccount(NewBankAccount const& account)
{
    AccountNumber number;
    make<BankChanges>([&](auto& banks) { number = banks.open(account, content_.settings); });
    return number;
}

PostingId Household::post(Posting const& posting)
{
    return make<PostingChanges>([&](auto& postings) { postings.add(posting); });
}

void Household::changePosting(PostingId const& id, Posting posting)
{
    make<PostingChanges>([&](auto& postings) { postings.change(store_, id, std::move(posting)); });
}

void Household::removePosting(PostingId const& id)
{
    make<PostingChanges>([&](auto& postings) { postings.drop(store_, id); });
}

void Household::markCleared(std::set<PostingId> const& ids)
{
    auto const atLeastCleared = [](auto const& status) { return std::max(status, TransactionStatuses::Cleared); };
    make<PostingChanges>([&](auto& postings) { postings.mark(store_, ids, atLeastCleared); });
}

void Household::markReconciled(PostingId const& id)
{
    auto const reconciled = [](auto const& /*status*/) { return TransactionStatuses::Reconciled; };
    make<PostingChanges>([&](auto& postings) { postings.mark(store_, {id}, reconciled); });
}

void Household::markUnreconciled(std::set<PostingId> const& ids)
{
    auto const atMostCleared = [](auto const& status) { return std::min(status, TransactionStatuses::Cleared); };
    make<PostingChanges>([&](auto& postings) { postings.mark(store_, ids, atMostCleared); });
}

PostingId Household::transfer(AccountNumber const& from, AccountNumber const& to, Money const& amount,
                              QString const& reason, QDate const& transferredOn)
{
    return make<Transfers>([&](auto& transfers) {
        transfers.add({from, to, amount, reason, transferredOn}, content_.rates);
    });
}

std::map<PostingId, Posting> Household::latestPostingsOf(AccountNumber const& number, std::size_t most) const
{
    chart_->account(number); // refuses an unknown one
    return store_.latestPostingsOf(number, most);
}

PostingId Household::keep(BooksDraft& draft)
{
    if (draft.isEmpty()) {
        return {};
    }
    PostingId id;
    store_.transact([&] { id = draft.store(store_, [] {}); });
    chart_->take(draft);
    return id;
}
}
