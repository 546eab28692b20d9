#include "Anything.h"

#include <optional>

using fiscora::Money;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;

namespace tallymere::engine {

namespace {

std::optional<BankAccount> anyPlace(BooksModel const& model, BudgetItemTypes type)
{
    if ((type != BudgetItemTypes::Goal && type != BudgetItemTypes::Debt) || isOneOf(3)) {
        return std::nullopt;
    }
    if (type == BudgetItemTypes::Debt && !isOneOf(4)) {
        return BankAccount{
            BankName(anyBank()), {}, anyOf<BankAccountTypes>({BankAccountTypes::Loan, BankAccountTypes::CreditCard})};
    }
    if (auto const listed = model.bankAccounts(); !listed.empty() && !isOneOf(4)) {
        return anyOf(listed);
    }
    return BankAccount{BankName(anyBank()), AccountNumber(anyNumber(model)), anyKind()};
}

BooksModel::Item anyItem()
{
    auto const type = static_cast<BudgetItemTypes>(pick(1, 6));
    auto const amount = anyAmount();
    auto const borrowed = Money::fromAmount(amount.code(), anyOf<long long>({500'0000, 20'0000}));
    return {type, anyName(), amount, borrowed, 0};
}

PlannedItem typed(BooksModel::Item const& item)
{
    auto typed = planned(item.type, item.name);
    typed.amount = item.amount;
    typed.account = AccountNumber(4711); // the household chooses
    if (typed.debt) {
        typed.debt->borrowed = item.borrowed;
    }
    if (typed.goalTotal) {
        typed.goalTotal = item.borrowed;
    }
    return typed;
}
}

Step anyPlanning(BooksModel const& model)
{
    auto const item = anyItem();
    auto const other = anyName();
    auto const keptAt = anyPlace(model, item.type);
    switch (pick(0, 6)) {
    case 0:
        return {[=](Household& household) { household.change(named(item.type, other), typed(item), keptAt); },
                [=](BooksModel& books) { return books.change(other, item, keptAt); }};
    case 1:
        return {[=](Household& household) { household.rename(named(item.type, other), BudgetSource(item.name)); },
                [=](BooksModel& books) { return books.rename(item.type, other, item.name); }};
    case 2:
        return {[=](Household& household) { household.remove(named(item.type, item.name)); },
                [=](BooksModel& books) { return books.remove(item.type, item.name); }};
    default:
        return {[=](Household& household) { household.add(typed(item), keptAt, openedOn); },
                [=](BooksModel& books) { return books.add(item, keptAt); }};
    }
}
}
