#include "BooksDraft.h"

#include "AccountNumbering.h"
#include "BookRules.h"
#include "PostingRules.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <algorithm>
#include <utility>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::Bank;
using tlm::banking::BankName;
using tlm::foundation::presentationText;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("BooksDraft", text);
}

/// Moves what \a changed holds to \a kept, in the place of what stands there under the same keys.
template <typename Map>
void take(Map& kept, Map& changed) noexcept
{
    for (auto& [key, value] : changed) {
        if (auto const place = kept.find(key); place != kept.end()) {
            std::swap(place->second, value);
        }
    }
    kept.merge(changed);
}

template <typename Container, typename Keys>
void erase(Container& kept, Keys const& keys) noexcept
{
    for (auto const& key : keys) {
        kept.erase(key);
    }
}
}

BooksDraft::BooksDraft(Books const& books, BookIndex const& index) : books_(books), index_(index) {}

BookAccount const* BooksDraft::find(AccountNumber const& number) const
{
    if (auto const changed = changed_.accounts.find(number); changed != changed_.accounts.end()) {
        return &changed->second;
    }
    auto const found = books_.accounts.find(number);
    return found == books_.accounts.end() || droppedAccounts_.contains(number) ? nullptr : &found->second;
}

AccountNumber BooksDraft::open(AccountTypes type, QString const& name, Currency currency,
                               std::optional<AccountNumber> const& parent, AccountPurposes purpose)
{
    auto const number = nextNumber(type, {&books_.accounts, &changed_.accounts});
    add(BookAccount{.code = AccountCode(number, name, parent),
                    .type = type,
                    .currency = currency,
                    .isClosed = false,
                    .purpose = purpose});
    return number;
}

void BooksDraft::add(BookAccount const& account)
{
    put(account);
    steps_.emplace_back([account](Store& store) { store.add(account); });
}

void BooksDraft::change(AccountNumber const& original, BookAccount const& account)
{
    replace(original, account);
    if (account.code.number() != original) {
        renumber(original, account.code.number());
    }
    steps_.emplace_back([original, account](Store& store) { store.change(original, account); });
}

void BooksDraft::drop(AccountNumber const& number)
{
    droppedAccounts_.insert(number);
    removed_.list(books_.accounts.at(number));
    lastSteps_.emplace_back([number](Store& store) { store.remove(number); });
}

void BooksDraft::add(Bank const& bank)
{
    changed_.banks.insert_or_assign(bank.name, bank);
    added_.list(bank);
    steps_.emplace_back([bank](Store& store) { store.add(bank); });
}

void BooksDraft::change(BankName const& original, Bank const& bank)
{
    replace(original, bank);
    steps_.emplace_back([original, bank](Store& store) { store.change(original, bank); });
}

void BooksDraft::drop(BankName const& name)
{
    droppedBanks_.insert(name);
    removed_.list(books_.banks.at(name));
    steps_.emplace_back([name](Store& store) { store.remove(name); });
}

void BooksDraft::post(Posting const& posting)
{
    rules::check(posting, find(posting.debiting), find(posting.crediting));
    count(posting, turnover(posting.debiting), turnover(posting.crediting));
    posted_.push_back(posting);
}

void BooksDraft::change(PostingId const& id, Posting const& before, Posting const& after)
{
    rules::check(after, find(after.debiting), find(after.crediting));
    if (!rules::tellTheSame(before, after)) {
        uncount(before, turnover(before.debiting), turnover(before.crediting));
        count(after, turnover(after.debiting), turnover(after.crediting));
    }
    note(id, after);
}

void BooksDraft::note(PostingId const& id, Posting const& posting)
{
    steps_.emplace_back([id, posting](Store& store) { store.change(id, posting); });
}

void BooksDraft::takeBack(PostingId const& id, Posting const& posting)
{
    uncount(posting, turnover(posting.debiting), turnover(posting.crediting));
    steps_.emplace_back([id](Store& store) { store.remove(id); });
}

void BooksDraft::postOpening(AccountNumber const& number, Money const& balance, QDate const& openedOn)
{
    if (balance == 0) {
        return;
    }
    auto const against = purposeful(AccountPurposes::OpeningBalances, balance.code(),
                                    tr("Opening balances (%1)").arg(presentationText(balance.code())));
    auto const isDebited = rules::isDebitType(find(number)->type) == (balance > 0);
    Posting posting;
    posting.occurredOn = openedOn;
    posting.debiting = isDebited ? number : against;
    posting.crediting = isDebited ? against : number;
    posting.amount = balance > 0 ? balance : counted([&] { return -balance; });
    posting.description = tr("Opening balance");
    post(posting);
}

AccountNumber BooksDraft::purposeful(AccountPurposes purpose, Currency currency, QString const& name)
{
    for (BookIndex const* const index : {&index_, &std::as_const(added_)}) {
        if (auto const found = index->purposes.find({purpose, currency}); found != index->purposes.end()) {
            return found->second;
        }
    }
    return open(AccountTypes::Equity, name, currency, std::nullopt, purpose);
}

PostingId BooksDraft::store(Store& store, std::function<void()> const& storeItem) const
{
    for (auto const& step : steps_) {
        step(store);
    }
    storeItem();
    std::optional<PostingId> first;
    for (auto const& posting : posted_) {
        auto const id = store.post(posting);
        first = first.value_or(id);
    }
    for (auto const& step : lastSteps_) {
        step(store);
    }
    return first.value_or(PostingId());
}

void BooksDraft::moveTo(Books& books, BookIndex& index) noexcept
{
    erase(books.accounts, droppedAccounts_);
    take(books.accounts, changed_.accounts);
    erase(books.banks, droppedBanks_);
    take<std::map<BankName, Bank>>(books.banks, changed_.banks);

    erase(books.turnovers, droppedAccounts_);
    for (auto const& [number, turnover] : changed_.turnovers) {
        if (turnover.postings == 0) {
            books.turnovers.erase(number);
        }
    }
    std::erase_if(changed_.turnovers, [](auto const& entry) { return entry.second.postings == 0; });
    take(books.turnovers, changed_.turnovers);

    index.take(removed_, added_);
}

void BooksDraft::put(BookAccount const& account)
{
    changed_.accounts.insert_or_assign(account.code.number(), account);
    added_.list(account);
}

void BooksDraft::replace(AccountNumber const& original, BookAccount const& account)
{
    removed_.list(books_.accounts.at(original));
    if (account.code.number() != original) {
        droppedAccounts_.insert(original);
    }
    put(account);
}

void BooksDraft::replace(BankName const& original, Bank const& bank)
{
    removed_.list(books_.banks.at(original));
    if (bank.name != original) {
        droppedBanks_.insert(original);
    }
    changed_.banks.insert_or_assign(bank.name, bank);
    added_.list(bank);
}

/// Lets the sub-accounts, the bank and the turnover follow. A store does that by itself.
void BooksDraft::renumber(AccountNumber const& before, AccountNumber const& after)
{
    for (auto const& number : subAccounts(index_, before)) {
        auto follower = books_.accounts.at(number);
        follower.code = AccountCode(number, follower.code.name(), after);
        replace(number, follower);
    }
    if (auto const name = index_.banks.find(before); name != index_.banks.end()) {
        auto const& bank = books_.banks.at(name->second);
        auto accounts = bank.accounts();
        auto listed = accounts.extract(before);
        listed.key() = after;
        accounts.insert(std::move(listed));
        replace(bank.name, Bank(bank.name, std::move(accounts), bank.isClosed()));
    }
    if (auto const turnover = books_.turnovers.find(before); turnover != books_.turnovers.end()) {
        changed_.turnovers.emplace(after, turnover->second);
    }
}

Turnover& BooksDraft::turnover(AccountNumber const& number)
{
    auto const before = books_.turnovers.find(number);
    auto const& begun = before == books_.turnovers.end() ? Turnover{Money(find(number)->currency), 0} : before->second;
    return changed_.turnovers.try_emplace(number, begun).first->second;
}
}
