#include "BooksModel.h"

#include <algorithm>

using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccount;
using tlm::banking::BankName;

namespace tallymere::engine {

namespace model {

QString key(QString const& name)
{
    return name.simplified().toLower();
}

bool isName(QString const& name)
{
    return !name.trimmed().isEmpty() && !name.trimmed().contains('\n');
}

bool isUsable(fiscora::Money const& money)
{
    return money.code() == fiscora::Currency::USD || money.code() == fiscora::Currency::EUR;
}

bool isLiability(BooksModel::Kinds kind)
{
    return kind == BooksModel::Kinds::CreditCard || kind == BooksModel::Kinds::Loan;
}

BooksModel::Types typeOf(BooksModel::Kinds kind)
{
    return isLiability(kind)                        ? BooksModel::Types::Liability
           : kind == BooksModel::Kinds::Unspecified ? BooksModel::Types::Suspense
                                                    : BooksModel::Types::Asset;
}
}

namespace {

BooksModel::Types typeOf(BooksModel::ItemTypes type)
{
    using ItemTypes = BooksModel::ItemTypes;
    using Types = BooksModel::Types;
    std::map<ItemTypes, Types> const types{{ItemTypes::Bill, Types::Expense},
                                           {ItemTypes::Nontrack, Types::Expense},
                                           {ItemTypes::Wage, Types::Income},
                                           {ItemTypes::Debt, Types::Liability},
                                           {ItemTypes::Goal, Types::Asset}};
    return types.at(type);
}

QString itemKey(QString const& name)
{
    return name.trimmed().toLower();
}
}

bool BooksModel::add(Item item, KeptAt const& keptAt)
{
    if (!model::isName(item.name) || !model::isUsable(item.amount) || !(item.amount > 0) ||
        find(item.type, item.name) != nullptr) {
        return false;
    }
    item.name = item.name.trimmed();
    item.account = open(typeOf(item.type), item.name, item.amount.code());
    items_.push_back(item);
    if (item.type == ItemTypes::Goal) {
        return place(item.account, keptAt);
    }
    if (item.type == ItemTypes::Debt) {
        openWith(item.account, item.borrowed);
        return list(item.account, keptAt);
    }
    return true;
}

bool BooksModel::change(QString const& original, Item item, KeptAt const& keptAt)
{
    auto* const before = find(item.type, original);
    if (before == nullptr || !model::isName(item.name) || !model::isUsable(item.amount) || !(item.amount > 0)) {
        return false;
    }
    auto const* const namesake = find(item.type, item.name);
    if ((namesake != nullptr && namesake != before) ||
        (item.type == ItemTypes::Debt && item.borrowed != before->borrowed)) {
        return false;
    }
    auto const stands = [&](auto const& entry) { return entry.second.parent == before->account; };
    if (item.amount.code() != before->amount.code() &&
        (postingsOf(before->account) > 0 || std::ranges::any_of(accounts_, stands))) {
        return false;
    }
    item.name = item.name.trimmed();
    item.account = before->account;
    *before = item;
    accounts_.at(item.account).name = item.name;
    accounts_.at(item.account).currency = item.amount.code();
    return item.type == ItemTypes::Goal   ? place(item.account, keptAt)
           : item.type == ItemTypes::Debt ? list(item.account, keptAt)
                                          : true;
}

bool BooksModel::rename(ItemTypes type, QString const& original, QString const& name)
{
    auto* const found = find(type, original);
    if (found == nullptr || !model::isName(name) || (find(type, name) != nullptr && find(type, name) != found)) {
        return false;
    }
    found->name = name.trimmed();
    accounts_.at(found->account).name = found->name;
    return true;
}

bool BooksModel::remove(ItemTypes type, QString const& name)
{
    auto* const found = find(type, name);
    if (found == nullptr || !drop(found->account)) {
        return false;
    }
    items_.erase(items_.begin() + (found - items_.data()));
    return true;
}

Books BooksModel::books() const
{
    Books told;
    for (auto const& [number, account] : accounts_) {
        AccountNumber const own(number);
        auto const parent = account.parent == 0 ? std::nullopt : std::optional(AccountNumber(account.parent));
        told.accounts.emplace(own, BookAccount{AccountCode(own, account.name, parent), account.type, account.currency,
                                               account.isClosed, account.purpose});
        if (auto const postings = postingsOf(number); postings > 0) {
            told.turnovers.emplace(own, Turnover{debited(number), postings});
        }
    }
    for (auto const& [name, bank] : banks_) {
        std::map<AccountNumber, Kinds> accounts;
        for (auto const& [number, kind] : bank.accounts) {
            accounts.emplace(AccountNumber(number), kind);
        }
        told.banks.emplace(BankName(name), tlm::banking::Bank(BankName(name), accounts, bank.isClosed));
    }
    return told;
}

std::vector<BooksModel::Number> BooksModel::numbers() const
{
    std::vector<Number> all;
    for (auto const& [number, account] : accounts_) {
        all.push_back(number);
    }
    return all;
}

std::vector<BankAccount> BooksModel::bankAccounts() const
{
    std::vector<BankAccount> all;
    for (auto const& [name, bank] : banks_) {
        for (auto const& [number, kind] : bank.accounts) {
            all.push_back({BankName(name), AccountNumber(number), kind});
        }
    }
    return all;
}

BooksModel::Item* BooksModel::find(ItemTypes type, QString const& name)
{
    auto const found = std::ranges::find_if(
        items_, [&](auto const& item) { return item.type == type && itemKey(item.name) == itemKey(name); });
    return found == items_.end() ? nullptr : &*found;
}

BooksModel::Item const* BooksModel::owner(Number account) const
{
    auto const found = std::ranges::find(items_, account, &Item::account);
    return found == items_.end() ? nullptr : &*found;
}

bool BooksModel::canHold(BankAccount const& place, Number goal) const
{
    auto const number = place.number.integer();
    auto const* const held = account(number);
    auto const at = bank(place.bank.institution());
    if (held == nullptr || at == banks_.end() || at->second.isClosed || bankOf(number) != at->first) {
        return false;
    }
    auto const* const item = owner(number);
    return held->type == Types::Asset && !held->isClosed && !(item != nullptr && item->type == ItemTypes::Goal) &&
           !isAtOrBelow(number, goal);
}

bool BooksModel::place(Number goal, KeptAt const& keptAt)
{
    auto& own = accounts_.at(goal);
    if (keptAt) {
        auto const at = bank(keptAt->bank.institution());
        auto const isThere = own.parent != 0 && own.parent == keptAt->number.integer() && at != banks_.end() &&
                             bankOf(own.parent) == at->first;
        if (!isThere && !canHold(*keptAt, goal)) {
            return false;
        }
        own.parent = keptAt->number.integer();
    }
    return own.parent == 0 || accounts_.at(own.parent).currency == own.currency;
}

bool BooksModel::list(Number debt, KeptAt const& keptAt)
{
    if (!keptAt) {
        return true;
    }
    auto const at = bank(keptAt->bank.institution());
    if (auto const current = bankOf(debt); !current.isEmpty()) {
        return at != banks_.end() && current == at->first && at->second.accounts.at(debt) == keptAt->type;
    }
    if (at == banks_.end() || at->second.isClosed || !model::isLiability(keptAt->type)) {
        return false;
    }
    at->second.accounts.emplace(debt, keptAt->type);
    return true;
}
}
