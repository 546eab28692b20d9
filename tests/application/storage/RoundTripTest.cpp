#include "SomeBudget.h"
#include "StorageTest.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <rapidcheck/gtest.h>
#include <vector>

namespace tallymere::storage {

using namespace testing;
using tallymere::engine::NewBudget;
using tallymere::engine::Posting;
using tallymere::engine::PostingId;
using tlm::accounting::AccountCode;
using tlm::accounting::AccountNumber;
using tlm::banking::Bank;

namespace {

/// What follows when an account gets another number.
struct Renumbering
{
    AccountNumber from;
    AccountNumber to;

    AccountNumber of(AccountNumber const& number) const { return number == from ? to : number; }

    std::optional<AccountNumber> of(std::optional<AccountNumber> const& number) const
    {
        return number ? std::optional(of(*number)) : std::nullopt;
    }

    void in(Posting& posting) const
    {
        posting.debiting = of(posting.debiting);
        posting.crediting = of(posting.crediting);
        posting.madeFrom = of(posting.madeFrom);
    }

    void in(engine::BudgetContent& content) const
    {
        auto moved = content.books.accounts.extract(from);
        moved.key() = to;
        content.books.accounts.insert(std::move(moved));
        for (auto& [number, account] : content.books.accounts) {
            account.code = AccountCode(number, account.code.name(), of(account.code.parent()));
        }
        for (auto& entry : content.items) {
            entry.second.account = of(entry.second.account);
        }
        for (auto& entry : content.books.banks) {
            in(entry.second);
        }
    }

    void in(Bank& bank) const
    {
        auto accounts = bank.accounts();
        if (auto moved = accounts.extract(from)) {
            moved.key() = to;
            accounts.insert(std::move(moved));
        }
        bank = Bank(bank.name, accounts, bank.isClosed());
    }
};
}

class RoundTripTest : public StorageTest
{
protected:
    using Posted = std::map<PostingId, Posting>;

    /// \return \a postings as a new document counts them
    static Posted counted(std::vector<Posting> const& postings)
    {
        Posted all;
        for (auto const& posting : postings) {
            all.emplace(PostingId{static_cast<std::int64_t>(all.size()) + 1}, posting);
        }
        return all;
    }

    static Posted postingsOf(Posted const& all, AccountNumber number)
    {
        Posted found;
        std::ranges::copy_if(all, std::inserter(found, found.end()), [number](auto const& posted) {
            return posted.second.debiting == number || posted.second.crediting == number;
        });
        return found;
    }

    /// \return the \a most last of \a postings, by day and identifier
    static Posted latest(Posted const& postings, std::size_t most)
    {
        std::vector<std::pair<PostingId, Posting>> ordered(postings.begin(), postings.end());
        std::ranges::stable_sort(ordered, std::greater(),
                                 [](auto const& posted) { return std::pair(posted.second.occurredOn, posted.first); });
        ordered.resize(std::min(most, ordered.size()));
        return {ordered.begin(), ordered.end()};
    }

    /// \return whether both tell of the same, be it under other identifiers
    static bool areAlike(Posted const& one, Posted const& other)
    {
        return std::ranges::is_permutation(one, other, {}, &Posted::value_type::second, &Posted::value_type::second);
    }

    static void requireEqual(Document const& document, engine::BudgetContent const& content, Posted const& posted)
    {
        RC_ASSERT(document.content() == content);
        auto const most = *rc::gen::inRange<std::size_t>(0, 10);
        for (auto const& entry : content.books.accounts) {
            auto const expected = postingsOf(posted, entry.first);
            RC_ASSERT(document.postingsOf(entry.first) == expected);
            RC_ASSERT(document.latestPostingsOf(entry.first, most) == latest(expected, most));
        }
        for (auto const& [id, posting] : posted) {
            RC_ASSERT(document.posting(id) == posting);
        }
    }

    static void recount(engine::BudgetContent& content, Posted const& posted)
    {
        content.books.turnovers.clear();
        for (auto const& entry : posted) {
            count(content, {entry.second});
        }
    }

    /// Posts, changes or removes, in \a document and in \a posted.
    static void touch(Document& document, Posted& posted, engine::BudgetContent const& content)
    {
        auto const chosen = std::next(posted.begin(), *rc::gen::inRange<std::ptrdiff_t>(0, std::ssize(posted) + 1));
        auto const made = somePosting(content.books.accounts);
        if (chosen != posted.end() && *rc::gen::arbitrary<bool>()) {
            document.remove(chosen->first);
            posted.erase(chosen);
        } else if (made && chosen != posted.end()) {
            document.change(chosen->first, *made);
            chosen->second = *made;
        } else if (made) {
            posted.emplace(document.post(*made), *made);
        }
    }
};

RC_GTEST_FIXTURE_PROP(RoundTripTest, WhatIsSavedIsOpenedEqual, ())
{
    auto const budget = someBudget();
    auto const path = at("home.budget");

    Document::create(places, budget.content, budget.postings)->saveAs(path);
    auto const opened = Document::open(places, path);

    RC_ASSERT(!opened->isDirty());
    requireEqual(*opened, budget.content, counted(budget.postings));
}

RC_GTEST_FIXTURE_PROP(RoundTripTest, WhatIsChangedIsSavedAndOpenedEqual, ())
{
    auto [content, postings] = someBudget();
    auto posted = counted(postings);
    auto const path = at("home.budget");
    auto document = Document::create(places, content, postings);
    document->saveAs(path);

    for (auto transactions = *rc::gen::inRange(0, 5); transactions > 0; --transactions) {
        document->transact([&, &content = content] {
            for (auto changes = *rc::gen::inRange(0, 5); changes > 0; --changes) {
                touch(*document, posted, content);
            }
        });
    }
    recount(content, posted);
    requireEqual(*document, content, posted);
    RC_ASSERT(document->isDirty() != areAlike(posted, counted(postings)));
    document->save();
    document.reset();

    requireEqual(*Document::open(places, path), content, posted);
}

RC_GTEST_FIXTURE_PROP(RoundTripTest, WhatIsChangedBackCountsAsUnchanged, ())
{
    auto const [content, postings] = someBudget();
    auto const before = counted(postings);
    auto const document = Document::create(places, content, postings);
    auto after = before;

    document->transact([&, &content = content] {
        for (auto const& [id, posting] : before) {
            if (auto const other = somePosting(content.books.accounts)) {
                document->change(id, *other);
                after[id] = *other;
            }
        }
    });
    RC_ASSERT(document->isDirty() != areAlike(after, before));
    document->transact([&] {
        for (auto const& [id, posting] : before) {
            document->change(id, posting);
        }
    });

    RC_ASSERT(!document->isDirty());
    requireEqual(*document, content, before);
}

RC_GTEST_FIXTURE_PROP(RoundTripTest, AllThatTellsOfAnAccountFollowsItsNumber, ())
{
    auto [content, postings] = someBudget();
    RC_PRE(!content.books.accounts.empty());
    auto const chosen = std::next(content.books.accounts.begin(),
                                  *rc::gen::inRange<std::ptrdiff_t>(0, std::ssize(content.books.accounts)));
    auto const original = chosen->second;
    AccountNumber const other(*rc::gen::inRange(1U, std::numeric_limits<unsigned int>::max()));
    RC_PRE(!content.books.accounts.contains(other));
    auto document = Document::create(places, content, postings);
    auto const path = at("home.budget");
    auto renumbered = original;
    renumbered.code = AccountCode(other, original.code.name(), original.code.parent());

    document->transact([&] { document->change(original.code.number(), renumbered); });

    RC_ASSERT(document->isDirty());
    document->saveAs(path);
    document.reset();
    document = Document::open(places, path);
    Renumbering const renumbering{original.code.number(), other};
    renumbering.in(content);
    for (auto& posting : postings) {
        renumbering.in(posting);
    }
    recount(content, counted(postings));
    requireEqual(*document, content, counted(postings));
}
}
