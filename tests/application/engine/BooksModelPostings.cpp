#include "BooksModel.h"

#include <algorithm>

using fiscora::Money;
using tlm::accounting::AccountNumber;

namespace tallymere::engine {

namespace {

/// \return \a amount of stored units times \a numerator / \a denominator, halves away from zero
long long scaled(long long amount, long long numerator, long long denominator)
{
    return (2 * amount * numerator + denominator) / (2 * denominator);
}
}

bool BooksModel::post(Posting const& posting)
{
    auto const& item = posting.madeFrom;
    if (!canTake(posting) ||
        (item && (owner(item->integer()) == nullptr || (*item != posting.debiting && *item != posting.crediting)))) {
        return false;
    }
    keep(posting);
    return true;
}

bool BooksModel::changePosting(PostingId const& id, Posting posting)
{
    if (!canChange(id) || !canTake(posting)) {
        return false;
    }
    auto& before = postings_.at(id);
    if (opensDebt(before) && (posting.debiting != before.debiting || posting.crediting != before.crediting ||
                              posting.amount != before.amount)) {
        return false;
    }
    posting.madeFrom.reset();
    if (before.madeFrom == posting.debiting || before.madeFrom == posting.crediting) {
        posting.madeFrom = before.madeFrom;
    }
    before = posting;
    return true;
}

bool BooksModel::removePosting(PostingId const& id)
{
    return canChange(id) && !opensDebt(postings_.at(id)) && postings_.erase(id) == 1;
}

bool BooksModel::mark(std::set<PostingId> const& ids, Status least, Status most)
{
    if (!std::ranges::all_of(ids, [&](auto const& id) { return postings_.contains(id); })) {
        return false;
    }
    for (auto const& id : ids) {
        auto& status = postings_.at(id).status;
        status = std::clamp(status, least, most);
    }
    return true;
}

/// A euro buys 1.25 dollars, and a dollar buys 0.3 euros where it buys any.
bool BooksModel::transfer(Number from, Number to, Money const& amount, QString const& reason)
{
    if (account(from) == nullptr || account(to) == nullptr) {
        return false;
    }
    Posting left;
    left.occurredOn = openedOn_;
    left.description = reason.trimmed().isEmpty() ? "Transfer" : reason;
    left.crediting = AccountNumber(from);
    left.debiting = AccountNumber(to);
    left.amount = amount;
    auto const target = account(to)->currency;
    if (!(amount > 0) || !isOpen(from, amount.code()) || !isOpen(to, target)) {
        return false;
    }
    if (target == amount.code()) {
        return post(left);
    }
    auto const isFromEuros = amount.code() == Currency::EUR;
    auto const stored = isFromEuros ? scaled(amount.amount(), 5, 4) : scaled(amount.amount(), 3, 10);
    auto const worth = Money::fromAmount(target, scaled(stored, 1, 100) * 100);
    if ((!isFromEuros && !hasWayBack_) || worth == 0) {
        return false;
    }
    auto arrived = left;
    left.debiting = AccountNumber(serving(AccountPurposes::Exchange, "Exchange", amount.code()));
    arrived.crediting = AccountNumber(serving(AccountPurposes::Exchange, "Exchange", target));
    arrived.amount = worth;
    return post(left) && post(arrived);
}

std::size_t BooksModel::postingsOf(Number account) const
{
    AccountNumber const number(account);
    return static_cast<std::size_t>(std::ranges::count_if(postings_, [&](auto const& entry) {
        return entry.second.debiting == number || entry.second.crediting == number;
    }));
}

Money BooksModel::debited(Number account) const
{
    AccountNumber const number(account);
    Money sum(accounts_.at(account).currency);
    for (auto const& [id, posting] : postings_) {
        if (posting.debiting == number) {
            sum += posting.amount;
        }
        if (posting.crediting == number) {
            sum -= posting.amount;
        }
    }
    return sum;
}

bool BooksModel::opensDebt(Posting const& posting) const
{
    auto const number = posting.crediting.integer();
    return owner(number) != nullptr && isOpening(number, posting);
}

bool BooksModel::isOpening(Number number, Posting const& posting) const
{
    auto const isDebited = posting.debiting == AccountNumber(number);
    auto const& other = accounts_.at((isDebited ? posting.crediting : posting.debiting).integer());
    auto const* const item = owner(number);
    return !posting.madeFrom && posting.status != Status::Reconciled &&
           other.purpose == AccountPurposes::OpeningBalances &&
           (item == nullptr || (item->type == ItemTypes::Debt && !isDebited && posting.amount == item->borrowed));
}

BooksModel::Number BooksModel::open(Types type, QString const& name, Currency currency)
{
    std::map<Types, Number> const firsts{{Types::Asset, 1001},  {Types::Liability, 2001}, {Types::Equity, 3001},
                                         {Types::Income, 4001}, {Types::Expense, 5001},   {Types::Suspense, 9001}};
    auto number = firsts.at(type);
    for (auto const& [used, account] : accounts_) {
        number = used / 1000 == number / 1000 ? std::max(number, used + 1) : number;
    }
    accounts_.emplace(number, Account{type, name, currency});
    return number;
}

/// \return the account that serves \a purpose in \a currency, a new one called \a name where there is none
BooksModel::Number BooksModel::serving(AccountPurposes purpose, QString const& name, Currency currency)
{
    auto const found = std::ranges::find_if(accounts_, [&](auto const& entry) {
        return entry.second.purpose == purpose && entry.second.currency == currency;
    });
    if (found != accounts_.end()) {
        return found->first;
    }
    auto const letters = currency == Currency::USD ? "USD" : "EUR";
    auto const number = open(Types::Equity, QString("%1 (%2)").arg(name, letters), currency);
    accounts_.at(number).purpose = purpose;
    return number;
}

void BooksModel::openWith(Number account, Money const& balance)
{
    if (balance == 0) {
        return;
    }
    auto const against = serving(AccountPurposes::OpeningBalances, "Opening balances", balance.code());
    auto const type = accounts_.at(account).type;
    auto const isHeld = (type == Types::Asset || type == Types::Expense) == (balance > 0);
    Posting posting;
    posting.occurredOn = openedOn_;
    posting.description = "Opening balance";
    posting.debiting = AccountNumber(isHeld ? account : against);
    posting.crediting = AccountNumber(isHeld ? against : account);
    posting.amount = balance > 0 ? balance : -balance;
    keep(posting);
}

bool BooksModel::isOpen(Number number, Currency currency) const
{
    auto const* const found = account(number);
    return found != nullptr && !found->isClosed && found->currency == currency;
}

bool BooksModel::canTake(Posting const& posting) const
{
    return posting.debiting != posting.crediting && posting.amount > 0 &&
           isOpen(posting.debiting.integer(), posting.amount.code()) &&
           isOpen(posting.crediting.integer(), posting.amount.code());
}

bool BooksModel::canChange(PostingId const& id) const
{
    auto const found = postings_.find(id);
    return found != postings_.end() && found->second.status != Status::Reconciled &&
           !account(found->second.debiting.integer())->isClosed &&
           !account(found->second.crediting.integer())->isClosed;
}

void BooksModel::keep(Posting const& posting)
{
    postings_.emplace(PostingId{++lastId_}, posting);
}
}
