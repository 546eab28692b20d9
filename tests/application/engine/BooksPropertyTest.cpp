#include "BooksModel.h"
#include "Picks.h"

#include <QDate>

#include <exception>
#include <functional>
#include <rapidcheck/gtest.h>
#include <vector>

using fiscora::Currency;
using fiscora::Money;
using tlm::accounting::AccountNumber;
using tlm::banking::BankAccount;
using tlm::banking::BankAccountTypes;
using tlm::banking::BankName;
using tlm::budgeting::BudgetItemTypes;
using tlm::budgeting::BudgetSource;

namespace tallymere::engine {

namespace {

QDate const openedOn(2025, 5, 1);

QString anyName()
{
    return isOneOf(15) ? anyOf<QString>({"", " \t", "Odd\nname"})
                       : anyOf<QString>({"Rent", " rent ", "Water", "WATER", "Car", "House", "Gas"});
}

Money anyAmount()
{
    return isOneOf(12) ? anyOf<Money>({Money(), dollars(0), -dollars(3), Money(Currency::GBP, 4, 0, 0)})
                       : anyOf<Money>({dollars(1), dollars(2'000, 5), dollars(30), dollars(8), euros(7)});
}

QString anyBank()
{
    return isOneOf(10) ? anyOf<QString>({"", "Unknown"}) : anyOf<QString>({"River", "Hill", "Lake"});
}

BankAccountTypes anyKind()
{
    return static_cast<BankAccountTypes>(pick(0, 6));
}

AccountNumber anyNumber(BooksModel const& model)
{
    auto numbers = model.numbers();
    numbers.insert(numbers.end(), {0, 77});
    return AccountNumber(anyOf(numbers));
}

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
    return BankAccount{BankName(anyBank()), anyNumber(model), anyKind()};
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

/// A change, and the same to the model, which tells whether the books take it.
struct Step
{
    std::function<void(Household&)> change;
    std::function<bool(BooksModel&)> expected;
};

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

Step anyBanking()
{
    if (isOneOf(3)) {
        auto const name = anyOf<QString>({"River", " river", "Hill", "HILL", "Lake ", "", "Odd\nname"});
        return {[=](Household& household) { household.addBank(BankName(name)); },
                [=](BooksModel& books) { return books.addBank(name); }};
    }
    auto const bank = anyBank();
    auto const name = anyName();
    auto const kind = anyKind();
    auto const balance = anyAmount();
    return {[=](Household& household) { household.addBankAccount(BankName(bank), name, kind, balance, openedOn); },
            [=](BooksModel& books) { return books.addBankAccount(bank, name, kind, balance); }};
}

Step anyPosting(BooksModel const& model)
{
    Posting posting;
    posting.occurredOn = openedOn;
    posting.debiting = anyNumber(model);
    posting.crediting = anyNumber(model);
    posting.amount = anyAmount();
    if (isOneOf(3)) {
        posting.madeFrom = anyOf<AccountNumber>({posting.debiting, posting.crediting, anyNumber(model)});
    }
    return {[=](Household& household) { household.post(posting); },
            [=](BooksModel& books) { return books.post(posting); }};
}

Step anyStep(BooksModel const& model)
{
    switch (pick(0, 4)) {
    case 0:
        return anyBanking();
    case 1:
        return anyPosting(model);
    default:
        return anyPlanning(model);
    }
}

bool isAccepted(Household& household, Step const& step)
{
    try {
        step.change(household);
        return true;
    } catch (std::exception const&) {
        return false;
    }
}

void spoil(MemoryStore& store)
{
    store.setFull(isOneOf(10));
    store.breakAfter(isOneOf(6) ? std::optional(pick(0, 5)) : std::nullopt);
}

void checkSums(Household const& household)
{
    std::map<Currency, long long> sums;
    for (auto const& [number, turnover] : household.content().books.turnovers) {
        sums[turnover.debited.code()] += turnover.debited.amount();
    }
    for (auto const& [currency, sum] : sums) {
        RC_ASSERT(sum == 0);
    }
}

void checkItems(Household const& household, BooksModel const& model)
{
    RC_ASSERT(household.content().items.size() == model.items().size());
    for (auto const& item : model.items()) {
        auto const& kept = household.content().items.at(named(item.type, item.name));
        RC_ASSERT(kept.account == AccountNumber(item.account));
        RC_ASSERT(kept.amount == item.amount);
    }
}

class BooksProperty : public HouseholdTest
{};

RC_GTEST_FIXTURE_PROP(BooksProperty, AnyChangesLeaveTheBooksThatTheModelTells, ())
{
    BooksModel model;
    auto const steps = pick(20, 150);

    for (auto count = 0; count < steps; ++count) {
        auto const step = anyStep(model);
        auto changed = model;
        auto const isTaken = step.expected(changed);
        auto const before = household.content();
        auto const transactions = store.transactions();
        spoil(store);

        auto const accepted = isAccepted(household, step);

        RC_ASSERT(store.transactions() - transactions == (isTaken ? 1 : 0));
        if (isTaken && !accepted) {
            RC_ASSERT(store.isFull() || store.isBroken());
        }
        RC_ASSERT(isTaken || !accepted);
        RC_ASSERT(accepted || household.content() == before);
        model = accepted ? changed : model;
        RC_ASSERT(household.content().books == model.books());
        RC_ASSERT(store.kept() == household.content());
        checkItems(household, model);
        checkSums(household);
    }
    RC_CLASSIFY(!household.keptAt(BudgetItemTypes::Goal).empty(), "goals are stored in accounts");
    RC_CLASSIFY(!household.keptAt(BudgetItemTypes::Debt).empty(), "debts are kept at banks");
    RC_CLASSIFY(store.postings().size() > 5, "much is posted");
    MemoryStore reopened(household.content());
    RC_ASSERT(Household(household.content(), reopened).content() == household.content());
}
}
}
