#include "BooksModel.h"

#include <algorithm>

using fiscora::Money;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;
using tlm::banking::BankAccount;
using tlm::banking::BankName;

namespace tallymere::engine {

namespace {

using Types = BooksModel::Types;
using ItemTypes = BooksModel::ItemTypes;
using Kinds = BooksModel::Kinds;

QString key(QString const& name)
{
    return name.trimmed().toLower();
}

bool isName(QString const& name)
{
    return !name.trimmed().isEmpty() && !name.trimmed().contains('\n');
}

bool isUsable(Money const& money)
{
    return money.code() == fiscora::Currency::USD || money.code() == fiscora::Currency::EUR;
}

bool isLiability(Kinds kind)
{
    return kind == Kinds::CreditCard || kind == Kinds::Loan;
}

Types typeOf(ItemTypes type)
{
    std::map<ItemTypes, Types> const types{{ItemTypes::Bill, Types::Expense},
                                           {ItemTypes::Nontrack, Types::Expense},
                                           {ItemTypes::Wage, Types::Income},
                                           {ItemTypes::Debt, Types::Liability},
                                           {ItemTypes::Goal, Types::Asset}};
    return types.at(type);
}
}

bool BooksModel::add(Item item, KeptAt const& keptAt)
{
    if (!isName(item.name) || !isUsable(item.amount) || !(item.amount > 0) || find(item.type, item.name) != nullptr) {
        return false;
    }
    item.name = item.name.trimmed();
    item.account = open(typeOf(item.type), item.name, item.amount.code());
    items_.push_back(item);
    if (item.type == ItemTypes::Goal) {
        return place(item.account, item.amount.code(), keptAt);
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
    if (before == nullptr || !isName(item.name) || !isUsable(item.amount) || !(item.amount > 0)) {
        return false;
    }
    auto const* const namesake = find(item.type, item.name);
    if ((namesake != nullptr && namesake != before) ||
        (item.type == ItemTypes::Debt && item.borrowed != before->borrowed)) {
        return false;
    }
    if (item.amount.code() != before->amount.code() && postingsOf(before->account) > 0) {
        return false;
    }
    item.name = item.name.trimmed();
    item.account = before->account;
    *before = item;
    accounts_.at(item.account).name = item.name;
    accounts_.at(item.account).currency = item.amount.code();
    return item.type == ItemTypes::Goal   ? place(item.account, item.amount.code(), keptAt)
           : item.type == ItemTypes::Debt ? list(item.account, keptAt)
                                          : true;
}

bool BooksModel::rename(ItemTypes type, QString const& original, QString const& name)
{
    auto* const found = find(type, original);
    if (found == nullptr || !isName(name) || (find(type, name) != nullptr && find(type, name) != found)) {
        return false;
    }
    found->name = name.trimmed();
    accounts_.at(found->account).name = found->name;
    return true;
}

bool BooksModel::remove(ItemTypes type, QString const& name)
{
    auto* const found = find(type, name);
    if (found == nullptr || postingsOf(found->account) != (type == ItemTypes::Debt ? 1U : 0U)) {
        return false;
    }
    AccountNumber const account(found->account);
    std::erase_if(postings_, [&](auto const& posting) { return posting.crediting == account; });
    for (auto& [bank, listed] : banks_) {
        listed.erase(found->account);
    }
    accounts_.erase(found->account);
    items_.erase(items_.begin() + (found - items_.data()));
    return true;
}

bool BooksModel::addBank(QString const& name)
{
    auto const isTaken = std::ranges::any_of(banks_, [&](auto const& bank) { return key(bank.first) == key(name); });
    return isName(name) && !isTaken && banks_.emplace(name.trimmed(), std::map<Number, Kinds>()).second;
}

bool BooksModel::addBankAccount(QString const& bank, QString const& name, Kinds kind, Money const& balance)
{
    auto const found = banks_.find(bank);
    auto const isTaken = [&](auto const& listed) { return key(accounts_.at(listed.first).name) == key(name); };
    if (found == banks_.end() || !isName(name) || !isUsable(balance) || std::ranges::any_of(found->second, isTaken)) {
        return false;
    }
    auto const type = isLiability(kind)            ? Types::Liability
                      : kind == Kinds::Unspecified ? Types::Suspense
                                                   : Types::Asset;
    auto const number = open(type, name.trimmed(), balance.code());
    found->second.emplace(number, kind);
    openWith(number, balance);
    return true;
}

bool BooksModel::post(Posting const& posting)
{
    auto const debited = accounts_.find(posting.debiting.integer());
    auto const credited = accounts_.find(posting.crediting.integer());
    if (debited == accounts_.end() || credited == accounts_.end() || debited == credited || !(posting.amount > 0) ||
        debited->second.currency != posting.amount.code() || credited->second.currency != posting.amount.code()) {
        return false;
    }
    if (auto const& item = posting.madeFrom;
        item && (owner(item->integer()) == nullptr || (*item != posting.debiting && *item != posting.crediting))) {
        return false;
    }
    postings_.push_back(posting);
    return true;
}

Books BooksModel::books() const
{
    Books told;
    for (auto const& [number, account] : accounts_) {
        AccountNumber const own(number);
        auto const parent = account.parent == 0 ? std::nullopt : std::optional(AccountNumber(account.parent));
        told.accounts.emplace(
            own, BookAccount{AccountCode(own, account.name, parent), account.type, account.currency, false,
                             account.opens ? AccountPurposes::OpeningBalances : AccountPurposes::Household});
        Turnover turnover{Money(account.currency), postingsOf(number)};
        for (auto const& posting : postings_) {
            turnover.debited += posting.debiting == own    ? posting.amount
                                : posting.crediting == own ? -posting.amount
                                                           : Money(account.currency);
        }
        if (turnover.postings > 0) {
            told.turnovers.emplace(own, turnover);
        }
    }
    for (auto const& [name, listed] : banks_) {
        std::map<AccountNumber, Kinds> accounts;
        for (auto const& [number, kind] : listed) {
            accounts.emplace(AccountNumber(number), kind);
        }
        told.banks.emplace(BankName(name), Bank(BankName(name), accounts, false));
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
    for (auto const& [name, listed] : banks_) {
        for (auto const& [number, kind] : listed) {
            all.push_back({BankName(name), AccountNumber(number), kind});
        }
    }
    return all;
}

BooksModel::Item* BooksModel::find(ItemTypes type, QString const& name)
{
    auto const found = std::ranges::find_if(
        items_, [&](auto const& item) { return item.type == type && key(item.name) == key(name); });
    return found == items_.end() ? nullptr : &*found;
}

BooksModel::Item const* BooksModel::owner(Number account) const
{
    auto const found = std::ranges::find(items_, account, &Item::account);
    return found == items_.end() ? nullptr : &*found;
}

std::size_t BooksModel::postingsOf(Number account) const
{
    AccountNumber const number(account);
    return static_cast<std::size_t>(std::ranges::count_if(
        postings_, [&](auto const& posting) { return posting.debiting == number || posting.crediting == number; }));
}

BooksModel::Number BooksModel::open(Types type, QString const& name, Currency currency)
{
    std::map<Types, Number> const firsts{{Types::Asset, 1001},  {Types::Liability, 2001}, {Types::Equity, 3001},
                                         {Types::Income, 4001}, {Types::Expense, 5001},   {Types::Suspense, 9001}};
    auto number = firsts.at(type);
    for (auto const& [used, account] : accounts_) {
        number = used / 1000 == number / 1000 ? std::max(number, used + 1) : number;
    }
    accounts_.emplace(number, Account{type, name, currency, 0, false});
    return number;
}

void BooksModel::openWith(Number account, Money const& balance)
{
    if (balance == 0) {
        return;
    }
    auto const opens = [&](auto const& entry) { return entry.second.opens && entry.second.currency == balance.code(); };
    auto const found = std::ranges::find_if(accounts_, opens);
    auto number = found == accounts_.end() ? 0 : found->first;
    if (number == 0) {
        auto const letters = balance.code() == Currency::USD ? "USD" : "EUR";
        number = open(Types::Equity, QString("Opening balances (%1)").arg(letters), balance.code());
        accounts_.at(number).opens = true;
    }
    auto const isHeld = (accounts_.at(account).type == Types::Asset) == (balance > 0);
    Posting posting;
    posting.debiting = AccountNumber(isHeld ? account : number);
    posting.crediting = AccountNumber(isHeld ? number : account);
    posting.amount = balance > 0 ? balance : -balance;
    postings_.push_back(posting);
}

/// \return the bank that lists the account or one above it, empty when none does
QString BooksModel::bankOf(Number account) const
{
    for (auto number = account; number != 0; number = accounts_.at(number).parent) {
        for (auto const& [name, listed] : banks_) {
            if (listed.count(number) == 1) {
                return name;
            }
        }
    }
    return {};
}

bool BooksModel::canHold(BankAccount const& place, Currency currency) const
{
    auto const number = place.number.integer();
    auto const account = accounts_.find(number);
    auto const& bank = place.bank.institution();
    if (account == accounts_.end() || bank.isEmpty() || bankOf(number) != bank) {
        return false;
    }
    auto const* const item = owner(number);
    return account->second.type == Types::Asset && account->second.currency == currency &&
           !(item != nullptr && item->type == ItemTypes::Goal);
}

bool BooksModel::place(Number goal, Currency currency, KeptAt const& keptAt)
{
    auto& parent = accounts_.at(goal).parent;
    if (keptAt && !canHold(*keptAt, currency)) {
        return false;
    }
    if (keptAt) {
        parent = keptAt->number.integer();
    }
    return parent == 0 || accounts_.at(parent).currency == currency;
}

bool BooksModel::list(Number debt, KeptAt const& keptAt)
{
    if (!keptAt) {
        return true;
    }
    auto const& bank = keptAt->bank.institution();
    if (auto const current = bankOf(debt); !current.isEmpty()) {
        return current == bank && banks_.at(current).at(debt) == keptAt->type;
    }
    if (banks_.count(bank) == 0 || !isLiability(keptAt->type)) {
        return false;
    }
    banks_.at(bank).emplace(debt, keptAt->type);
    return true;
}
}
