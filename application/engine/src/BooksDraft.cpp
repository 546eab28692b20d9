#include "BooksDraft.h"

#include "PostingRules.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <algorithm>
#include <limits>
#include <utility>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::banking::Bank;
using tlm::foundation::presentationText;

namespace tallymere::engine {

namespace {

constexpr unsigned int mostOfBlock = 999;
constexpr unsigned int firstBeyondBlocks = 10'001;

QString tr(char const* text)
{
    return QCoreApplication::translate("BooksDraft", text);
}

unsigned int firstNumber(AccountTypes type)
{
    switch (type) {
    case AccountTypes::Asset:
        return 1'001;
    case AccountTypes::Liability:
        return 2'001;
    case AccountTypes::Equity:
        return 3'001;
    case AccountTypes::Income:
        return 4'001;
    case AccountTypes::Expense:
        return 5'001;
    case AccountTypes::Suspense:
        break;
    }
    return 9'001;
}

unsigned int largestUpTo(std::map<AccountNumber, BookAccount> const& accounts, unsigned int limit)
{
    auto const beyond = accounts.upper_bound(AccountNumber(limit));
    return beyond == accounts.begin() ? AccountNumber::invalid_ : std::prev(beyond)->first.integer();
}

/// Moves what \a changed holds to \a kept, in the place of what stands there under the same keys.
template <typename Map>
void replace(Map& kept, Map& changed) noexcept
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
    return found == books_.accounts.end() ? nullptr : &found->second;
}

AccountNumber BooksDraft::open(AccountTypes type, QString const& name, Currency currency,
                               std::optional<AccountNumber> const& parent, AccountPurposes purpose)
{
    auto const number = nextNumber(type);
    changed_.accounts.emplace(number, BookAccount{.code = AccountCode(number, name, parent),
                                                  .type = type,
                                                  .currency = currency,
                                                  .isClosed = false,
                                                  .purpose = purpose});
    if (parent) {
        added_.subAccounts.insert({*parent, number});
    }
    return number;
}

void BooksDraft::change(BookAccount const& account)
{
    auto const& number = account.code.number();
    auto const& before = books_.accounts.at(number).code.parent();
    auto const& after = account.code.parent();
    changed_.accounts.insert_or_assign(number, account);
    if (before && before != after) {
        detached_.insert({*before, number});
    }
    if (after && before != after) {
        added_.subAccounts.insert({*after, number});
    }
}

void BooksDraft::drop(AccountNumber const& number)
{
    dropped_.insert(number);
    if (auto const& parent = books_.accounts.at(number).code.parent()) {
        detached_.insert({*parent, number});
    }
}

void BooksDraft::put(Bank const& bank)
{
    changed_.banks.insert_or_assign(bank.name, bank);
    for (auto const& [number, type] : bank.accounts()) {
        added_.banks.emplace(number, bank.name);
    }
    auto const before = books_.banks.find(bank.name);
    if (before == books_.banks.end()) {
        return;
    }
    for (auto const& [number, type] : before->second.accounts()) {
        if (!bank.accounts().contains(number)) {
            unlisted_.insert(number);
        }
    }
}

void BooksDraft::post(Posting const& posting)
{
    rules::check(posting, find(posting.debiting), find(posting.crediting));
    count(posting, turnover(posting.debiting), turnover(posting.crediting));
    posted_ = posting;
}

void BooksDraft::takeBack(PostingId const& id, Posting const& posting)
{
    uncount(posting, turnover(posting.debiting), turnover(posting.crediting));
    takenBack_ = id;
}

void BooksDraft::postOpening(AccountNumber const& number, Money const& balance, QDate const& openedOn)
{
    if (balance == 0) {
        return;
    }
    auto const against = openingBalances(balance.code());
    auto const isDebited = (find(number)->type == AccountTypes::Asset) == (balance > 0);
    Posting posting;
    posting.occurredOn = openedOn;
    posting.debiting = isDebited ? number : against;
    posting.crediting = isDebited ? against : number;
    posting.amount = balance > 0 ? balance : counted([&] { return -balance; });
    posting.description = tr("Opening balance");
    post(posting);
}

PostingId BooksDraft::store(Store& store, std::function<void()> const& storeItem) const
{
    for (auto const& [number, account] : changed_.accounts) {
        books_.accounts.contains(number) ? store.change(number, account) : store.add(account);
    }
    if (takenBack_) {
        store.remove(*takenBack_);
    }
    for (auto const& [name, bank] : changed_.banks) {
        books_.banks.contains(name) ? store.change(name, bank) : store.add(bank);
    }
    storeItem();
    for (auto const& number : dropped_) {
        store.remove(number);
    }
    return posted_ ? store.post(*posted_) : PostingId();
}

void BooksDraft::moveTo(Books& books, BookIndex& index) noexcept
{
    replace(books.accounts, changed_.accounts);
    replace<std::map<tlm::banking::BankName, Bank>>(books.banks, changed_.banks);
    for (auto const& [number, turnover] : changed_.turnovers) {
        if (turnover.postings == 0) {
            books.turnovers.erase(number);
        }
    }
    std::erase_if(changed_.turnovers, [](auto const& entry) { return entry.second.postings == 0; });
    replace(books.turnovers, changed_.turnovers);
    erase(books.accounts, dropped_);

    erase(index.subAccounts, detached_);
    index.subAccounts.merge(added_.subAccounts);
    index.openings.merge(added_.openings);
    erase(index.banks, unlisted_);
    index.banks.merge(added_.banks);
}

/// Each type counts in a block of its own while that has room.
AccountNumber BooksDraft::nextNumber(AccountTypes type) const
{
    auto const first = firstNumber(type);
    auto const last = first + mostOfBlock - 1;
    if (auto const used = largestUpTo(last); used < last) {
        return AccountNumber(std::max(used + 1, first));
    }
    auto const largest = largestUpTo(std::numeric_limits<unsigned int>::max());
    if (largest == std::numeric_limits<unsigned int>::max()) {
        refuse(tr("No account number is left, since account %1 has the largest that there is. Give that account a "
                  "smaller number first.")
                   .arg(largest));
    }
    return AccountNumber(std::max(largest + 1, firstBeyondBlocks));
}

unsigned int BooksDraft::largestUpTo(unsigned int limit) const
{
    return std::max(engine::largestUpTo(books_.accounts, limit), engine::largestUpTo(changed_.accounts, limit));
}

/// \return the account against which balances in \a currency open, a new one where there is none
AccountNumber BooksDraft::openingBalances(Currency currency)
{
    if (auto const found = index_.openings.find(currency); found != index_.openings.end()) {
        return found->second;
    }
    auto const number = open(AccountTypes::Equity, tr("Opening balances (%1)").arg(presentationText(currency)),
                             currency, std::nullopt, AccountPurposes::OpeningBalances);
    added_.openings.emplace(currency, number);
    return number;
}

Turnover& BooksDraft::turnover(AccountNumber const& number)
{
    auto const before = books_.turnovers.find(number);
    auto const& begun = before == books_.turnovers.end() ? Turnover{Money(find(number)->currency), 0} : before->second;
    return changed_.turnovers.try_emplace(number, begun).first->second;
}
}
