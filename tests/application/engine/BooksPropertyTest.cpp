#include "AnyStep.h"
#include "Picks.h"

#include <algorithm>
#include <exception>
#include <map>
#include <rapidcheck/gtest.h>

using fiscora::Currency;
using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;
using tlm::budgeting::BudgetItemTypes;

namespace tallymere::engine {

namespace {

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

void checkBalances(Household const& household, BooksModel const& model)
{
    for (auto const& account : household.accounts()) {
        fiscora::Money balance(account.balance().code());
        auto const isDebited = account.type() == AccountTypes::Asset || account.type() == AccountTypes::Expense;
        for (auto const& [id, posting] : model.postings()) {
            if (posting.debiting == account.code().number()) {
                isDebited ? balance += posting.amount : balance -= posting.amount;
            }
            if (posting.crediting == account.code().number()) {
                isDebited ? balance -= posting.amount : balance += posting.amount;
            }
        }
        RC_ASSERT(account.balance() == balance);
    }
}

bool hasClosed(Household const& household)
{
    return std::ranges::any_of(household.accounts(), [](auto const& account) { return account.isClosed(); });
}

bool hasExchanged(Household const& household)
{
    return std::ranges::any_of(household.content().books.accounts,
                               [](auto const& entry) { return entry.second.purpose == AccountPurposes::Exchange; });
}

class BooksProperty : public HouseholdTest
{};

/// Tells of each operation that the books refuse or that fails what must not have moved, and of all others what must
/// have.
RC_GTEST_FIXTURE_PROP(BooksProperty, AnyChangesLeaveTheBooksThatTheModelTells, ())
{
    auto const hasWayBack = isOneOf(2);
    setRate(Currency::EUR, Currency::USD, 1.25);
    if (hasWayBack) {
        setRate(Currency::USD, Currency::EUR, 0.3);
    }
    BooksModel model(openedOn, hasWayBack);
    auto const steps = pick(20, 250);

    for (auto count = 0; count < steps; ++count) {
        auto const step = anyStep(model);
        auto changed = model;
        auto const isTaken = step.expected(changed);
        auto const isChanged = changed.books() != model.books() || changed.postings() != model.postings();
        auto const before = household.content();
        auto const postings = store.postings();
        auto const transactions = store.transactions();
        spoil(store);

        auto const accepted = isAccepted(household, step);

        auto const stored = store.transactions() - transactions;
        RC_ASSERT(isTaken || (!accepted && stored == 0));
        RC_ASSERT(!isTaken || stored == 1 || (stored == 0 && !isChanged));
        RC_ASSERT(!isTaken || accepted || store.isFull() || store.isBroken());
        RC_ASSERT(accepted || (household.content() == before && store.postings() == postings));
        model = accepted ? changed : model;
        RC_ASSERT(household.content().books == model.books());
        RC_ASSERT(store.postings() == model.postings());
        RC_ASSERT(store.kept() == household.content());
        checkItems(household, model);
        checkSums(household);
        checkBalances(household, model);
    }
    RC_CLASSIFY(!household.keptAt(BudgetItemTypes::Goal).empty(), "goals are stored in accounts");
    RC_CLASSIFY(!household.keptAt(BudgetItemTypes::Debt).empty(), "debts are kept at banks");
    RC_CLASSIFY(store.postings().size() > 5, "much is posted");
    RC_CLASSIFY(hasClosed(household), "an account is closed");
    RC_CLASSIFY(hasExchanged(household), "money went from currency to currency");
    store.setFull(false);
    store.breakAfter(std::nullopt);
    MemoryStore reopened(household.content());
    RC_ASSERT(Household(household.content(), reopened).content() == household.content());
}
}
}
