#include "BooksModel.h"

#include <algorithm>
#include <utility>

using fiscora::Money;
using tlm::accounting::AccountNumber;

namespace tallymere::engine {

bool BooksModel::addAccount(Number number, Account account, Money const& balance)
{
    if (number == 0 || accounts_.contains(number) || !model::isName(account.name) || isTaken(account.name, 0) ||
        !model::isUsable(balance) || (account.isClosed && balance != 0)) {
        return false;
    }
    auto const parent = std::exchange(account.parent, 0);
    account.name = account.name.trimmed();
    account.currency = balance.code();
    accounts_.emplace(number, account);
    if (parent != 0 && !canStand(number, parent)) {
        return false;
    }
    accounts_.at(number).parent = parent;
    openWith(number, balance);
    return true;
}

bool BooksModel::recode(Number current, Number number, QString const& name, Number parent)
{
    auto const* const before = account(current);
    if (before == nullptr || !model::isName(name)) {
        return false;
    }
    auto const isRenamed = name.trimmed() != before->name;
    auto const isMoved = parent != before->parent;
    if ((owner(current) != nullptr && (isRenamed || isMoved)) ||
        (number != current && (number == 0 || accounts_.contains(number))) || (isRenamed && isTaken(name, current)) ||
        (isMoved && parent != 0 && (parent == number || !canStand(current, parent)))) {
        return false;
    }
    auto moved = accounts_.extract(current);
    moved.key() = number;
    moved.mapped().name = name.trimmed();
    moved.mapped().parent = parent;
    accounts_.insert(std::move(moved));
    auto const follow = [&](Number& told) { told = told == current ? number : told; };
    auto const followNumber = [&](AccountNumber& told) {
        told = told == AccountNumber(current) ? AccountNumber(number) : told;
    };
    for (auto& [own, account] : accounts_) {
        follow(account.parent);
    }
    for (auto& item : items_) {
        follow(item.account);
    }
    for (auto& [bankName, bank] : banks_) {
        if (bank.accounts.contains(current)) {
            auto const kind = bank.accounts.at(current);
            bank.accounts.erase(current);
            bank.accounts.emplace(number, kind);
        }
    }
    for (auto& [id, posting] : postings_) {
        followNumber(posting.debiting);
        followNumber(posting.crediting);
        if (posting.madeFrom) {
            followNumber(*posting.madeFrom);
        }
    }
    return true;
}

bool BooksModel::setClosed(Number number, bool isClosed)
{
    auto const found = accounts_.find(number);
    if (found == accounts_.end()) {
        return false;
    }
    auto& [own, account] = *found;
    auto const needs = [&](auto const& entry) { return entry.second.parent == number && !entry.second.isClosed; };
    if (!account.isClosed && isClosed &&
        (owner(number) != nullptr || account.purpose != AccountPurposes::Household || debited(number) != 0 ||
         std::ranges::any_of(accounts_, needs))) {
        return false;
    }
    if (account.isClosed && !isClosed && account.parent != 0 && accounts_.at(account.parent).isClosed) {
        return false;
    }
    account.isClosed = isClosed;
    return true;
}

bool BooksModel::removeAccount(Number number)
{
    return accounts_.contains(number) && owner(number) == nullptr && drop(number);
}

bool BooksModel::addBank(QString const& name, Listed const& listed, bool isClosed)
{
    return model::isName(name) && bank(name) == banks_.end() && canList(name, true, {}, listed) &&
           (!isClosed || holdsNothing(listed)) && banks_.emplace(name.trimmed(), Bank{listed, isClosed}).second;
}

bool BooksModel::renameBank(QString const& original, QString const& name)
{
    auto const found = bank(original);
    if (found == banks_.end() || !model::isName(name) || (bank(name) != banks_.end() && bank(name) != found)) {
        return false;
    }
    auto moved = banks_.extract(found);
    moved.key() = name.trimmed();
    banks_.insert(std::move(moved));
    return true;
}

bool BooksModel::listAccounts(QString const& name, Listed const& listed)
{
    auto const found = bank(name);
    if (found == banks_.end()) {
        return false;
    }
    auto const isDebtTakenOff = [&](auto const& entry) {
        auto const* const item = owner(entry.first);
        return item != nullptr && item->type == ItemTypes::Debt && !listed.contains(entry.first);
    };
    auto& accounts = found->second.accounts;
    if (std::ranges::any_of(accounts, isDebtTakenOff) || !canList(found->first, false, accounts, listed)) {
        return false;
    }
    accounts = listed;
    return true;
}

bool BooksModel::setBankClosed(QString const& name, bool isClosed)
{
    auto const found = bank(name);
    if (found == banks_.end() || (isClosed && !found->second.isClosed && !holdsNothing(found->second.accounts))) {
        return false;
    }
    found->second.isClosed = isClosed;
    return true;
}

bool BooksModel::removeBank(QString const& name)
{
    auto const found = bank(name);
    if (found == banks_.end() || !found->second.accounts.empty()) {
        return false;
    }
    banks_.erase(found);
    return true;
}

bool BooksModel::addBankAccount(std::optional<QString> const& bankName, QString const& name, Kinds kind,
                                Money const& balance)
{
    auto const at = bankName ? bank(*bankName) : banks_.end();
    if (!model::isName(name) || !model::isUsable(balance) ||
        (bankName ? at == banks_.end() || at->second.isClosed : kind == Kinds::Unspecified)) {
        return false;
    }
    auto const isNamesake = [&](auto const& entry) {
        auto const& [number, account] = entry;
        return bankName && listedAt(number) == at->first && model::key(account.name) == model::key(name);
    };
    if (std::ranges::any_of(accounts_, isNamesake)) {
        return false;
    }
    auto const number = open(model::typeOf(kind), name.trimmed(), balance.code());
    if (bankName) {
        at->second.accounts.emplace(number, kind);
    }
    openWith(number, balance);
    return true;
}

BooksModel::Account const* BooksModel::account(Number number) const
{
    auto const found = accounts_.find(number);
    return found == accounts_.end() ? nullptr : &found->second;
}

BooksModel::Listed BooksModel::listed(QString const& name) const
{
    auto const found = bank(name);
    return found == banks_.end() ? Listed() : found->second.accounts;
}

/// Drops the account with what it opened with, unless anything else needs it.
bool BooksModel::drop(Number number)
{
    auto const stands = [&](auto const& entry) { return entry.second.parent == number; };
    AccountNumber const own(number);
    auto const tells = [&](auto const& entry) {
        return (entry.second.debiting == own || entry.second.crediting == own) && !isOpening(number, entry.second);
    };
    if (std::ranges::any_of(accounts_, stands) || postingsOf(number) > 1 || std::ranges::any_of(postings_, tells)) {
        return false;
    }
    std::erase_if(postings_,
                  [&](auto const& entry) { return entry.second.debiting == own || entry.second.crediting == own; });
    for (auto& [name, bank] : banks_) {
        bank.accounts.erase(number);
    }
    accounts_.erase(number);
    return true;
}

BooksModel::Banks::iterator BooksModel::bank(QString const& name)
{
    return std::ranges::find_if(banks_, [&](auto const& entry) { return model::key(entry.first) == model::key(name); });
}

BooksModel::Banks::const_iterator BooksModel::bank(QString const& name) const
{
    return std::ranges::find_if(banks_, [&](auto const& entry) { return model::key(entry.first) == model::key(name); });
}

/// \return the bank that lists the account, empty when none does
QString BooksModel::listedAt(Number account) const
{
    auto const found =
        std::ranges::find_if(banks_, [&](auto const& entry) { return entry.second.accounts.contains(account); });
    return found == banks_.end() ? QString() : found->first;
}

/// \return the bank that lists the account or one above it, empty when none does
QString BooksModel::bankOf(Number account) const
{
    for (auto number = account; number != 0; number = accounts_.at(number).parent) {
        if (auto name = listedAt(number); !name.isEmpty()) {
            return name;
        }
    }
    return {};
}

bool BooksModel::isAtOrBelow(Number account, Number above) const
{
    return account != 0 && (account == above || isAtOrBelow(accounts_.at(account).parent, above));
}

bool BooksModel::canStand(Number number, Number parent) const
{
    auto const* const above = account(parent);
    auto const& own = accounts_.at(number);
    return above != nullptr && !above->isClosed && above->type == own.type && above->currency == own.currency &&
           !isAtOrBelow(parent, number) && listedAt(number).isEmpty();
}

/// Tells whether another account has the name: one of the same bank, or any for an account that no bank lists.
bool BooksModel::isTaken(QString const& name, Number own) const
{
    auto const bank = listedAt(own);
    return std::ranges::any_of(accounts_, [&](auto const& entry) {
        return entry.first != own && (bank.isEmpty() || listedAt(entry.first) == bank) &&
               model::key(entry.second.name) == model::key(name);
    });
}

bool BooksModel::canList(QString const& name, bool isNew, Listed const& before, Listed const& after) const
{
    auto const isFree = [&](Number number) {
        auto const* const item = owner(number);
        auto const isNamesake = [&](auto const& other) {
            return other.first != number && account(other.first) != nullptr &&
                   model::key(account(other.first)->name) == model::key(account(number)->name);
        };
        return (isNew || !bank(name)->second.isClosed) && listedAt(number).isEmpty() &&
               (item == nullptr || item->type == ItemTypes::Debt) && account(number)->parent == 0 &&
               std::ranges::none_of(after, isNamesake);
    };
    return std::ranges::all_of(after, [&](auto const& entry) {
        auto const& [number, kind] = entry;
        auto const known = before.find(number);
        if (known != before.end() && known->second == kind) {
            return true;
        }
        return account(number) != nullptr && kind != Kinds::Unspecified &&
               model::typeOf(kind) == account(number)->type && (known != before.end() || isFree(number));
    });
}

bool BooksModel::holdsNothing(Listed const& listed) const
{
    return std::ranges::all_of(accounts_, [&](auto const& entry) {
        auto const isBelow =
            std::ranges::any_of(listed, [&](auto const& account) { return isAtOrBelow(entry.first, account.first); });
        return !isBelow || debited(entry.first) == 0;
    });
}
}
