#pragma once

#include <engine/NewBudget.h>
#include <engine/Store.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <utility>

namespace tallymere::engine {

/// Keeps what a document would keep, all changes of a transaction or none, in the order that a store asks for. It can be
/// told to fail.
class MemoryStore : public Store
{
    using AccountNumber = tlm::accounting::AccountNumber;
    using Bank = tlm::banking::Bank;
    using BankName = tlm::banking::BankName;
    using BudgetItemIdentifier = tlm::budgeting::BudgetItemIdentifier;

public:
    explicit MemoryStore(NewBudget budget) : kept_{std::move(budget.content), {}, 0}
    {
        for (auto const& posting : budget.postings) {
            kept_.postings.emplace(PostingId{++kept_.lastId}, posting);
        }
    }
    explicit MemoryStore(BudgetContent content) : MemoryStore(NewBudget{std::move(content), {}}) {}

    void transact(std::function<void()> const& changes) override
    {
        ++transactions_;
        pending_ = kept_;
        isInside_ = true;
        try {
            changes();
        } catch (...) {
            isInside_ = false;
            throw;
        }
        isInside_ = false;
        if (isFull_) {
            throw std::runtime_error("disk full");
        }
        pending_.content.books.turnovers = turnovers(pending_);
        kept_ = pending_;
    }

    void write(Settings const& settings) override { inside().content.settings = settings; }
    void write(tlm::conversion::ConversionMap const& rates) override { inside().content.rates = rates; }
    void add(PlannedItem const& item) override
    {
        auto& items = inside().content.items;
        check(std::ranges::none_of(items, [&](auto const& entry) { return entry.second.account == item.account; }));
        checkKnown(item.account);
        check(items.emplace(item.identifier, item).second);
    }
    void change(BudgetItemIdentifier const& original, PlannedItem const& item) override
    {
        remove(original);
        add(item);
    }
    void remove(BudgetItemIdentifier const& identifier) override
    {
        check(inside().content.items.erase(identifier) == 1);
    }

    void add(BookAccount const& account) override
    {
        checkParent(account);
        check(inside().content.books.accounts.emplace(account.code.number(), account).second);
    }
    void change(AccountNumber const& original, BookAccount const& account) override
    {
        checkParent(account);
        checkKnown(original);
        auto& books = inside().content.books;
        books.accounts.erase(original);
        check(books.accounts.emplace(account.code.number(), account).second);
        if (account.code.number() != original) {
            renumber(original, account.code.number());
        }
    }
    void remove(AccountNumber const& number) override
    {
        auto& [content, postings, lastId] = inside();
        auto& books = content.books;
        check(std::ranges::none_of(content.items, [&](auto const& entry) { return entry.second.account == number; }));
        check(std::ranges::none_of(books.banks,
                                   [&](auto const& entry) { return entry.second.accounts().contains(number); }));
        check(std::ranges::none_of(books.accounts,
                                   [&](auto const& entry) { return entry.second.code.parent() == number; }));
        check(std::ranges::none_of(postings, [&](auto const& entry) { return tellsOf(entry.second, number); }));
        check(books.accounts.erase(number) == 1);
    }

    void add(Bank const& bank) override
    {
        auto& banks = inside().content.books.banks;
        for (auto const& listed : bank.accounts()) {
            auto const& number = listed.first;
            checkKnown(number);
            check(std::ranges::none_of(banks,
                                       [&](auto const& entry) { return entry.second.accounts().contains(number); }));
        }
        check(banks.emplace(bank.name, bank).second);
    }
    void change(BankName const& original, Bank const& bank) override
    {
        remove(original);
        add(bank);
    }
    void remove(BankName const& name) override { check(inside().content.books.banks.erase(name) == 1); }

    PostingId post(Posting const& posting) override
    {
        auto& [content, postings, lastId] = inside();
        checkPosting(posting);
        return postings.emplace(PostingId{++lastId}, posting).first->first;
    }
    void change(PostingId const& id, Posting const& posting) override
    {
        auto& postings = inside().postings;
        check(postings.contains(id));
        checkPosting(posting);
        postings.insert_or_assign(id, posting);
    }
    void remove(PostingId const& id) override { check(inside().postings.erase(id) == 1); }

    std::optional<Posting> posting(PostingId const& id) const override
    {
        auto const found = present().postings.find(id);
        return found == present().postings.end() ? std::nullopt : std::optional(found->second);
    }
    std::map<PostingId, Posting> postingsOf(AccountNumber const& number) const override
    {
        return latestPostingsOf(number, present().postings.size());
    }
    std::map<PostingId, Posting> latestPostingsOf(AccountNumber const& number, std::size_t most) const override
    {
        std::map<std::pair<QDate, PostingId>, Posting> byDay;
        for (auto const& [id, posting] : present().postings) {
            if (posting.debiting == number || posting.crediting == number) {
                byDay.emplace(std::pair(posting.occurredOn, id), posting);
            }
        }
        std::map<PostingId, Posting> latest;
        for (auto next = byDay.rbegin(); next != byDay.rend() && latest.size() < most; ++next) {
            latest.emplace(next->first.second, next->second);
        }
        return latest;
    }

    BudgetContent const& kept() const { return kept_.content; }
    std::map<PostingId, Posting> const& postings() const { return kept_.postings; }
    int transactions() const { return transactions_; }
    void setFull(bool isFull) { isFull_ = isFull; }

    /// Lets the operations within a transaction fail after \a operations of them, none for never.
    void breakAfter(std::optional<int> operations) { left_ = operations; }
    bool isFull() const { return isFull_; }
    bool isBroken() const { return left_ && *left_ < 0; }

private:
    struct Kept
    {
        BudgetContent content;
        std::map<PostingId, Posting> postings;
        std::int64_t lastId = 0;
    };

    static void check(bool isMet)
    {
        if (!isMet) {
            throw std::logic_error("a store would refuse that");
        }
    }
    static bool tellsOf(Posting const& posting, AccountNumber const& number)
    {
        return posting.debiting == number || posting.crediting == number || posting.madeFrom == number;
    }
    static std::map<AccountNumber, Turnover> turnovers(Kept const& kept)
    {
        std::map<AccountNumber, Turnover> found;
        auto const at = [&](AccountNumber const& number, fiscora::Currency currency) -> Turnover& {
            auto& turnover = found.try_emplace(number, Turnover{fiscora::Money(currency), 0}).first->second;
            ++turnover.postings;
            return turnover;
        };
        for (auto const& [id, posting] : kept.postings) {
            at(posting.debiting, posting.amount.code()).debited += posting.amount;
            at(posting.crediting, posting.amount.code()).debited -= posting.amount;
        }
        return found;
    }

    /// Lets all that tells of the account \a before tell of \a after.
    void renumber(AccountNumber const& before, AccountNumber const& after)
    {
        auto const follow = [&](AccountNumber& number) { number = number == before ? after : number; };
        auto& [content, postings, lastId] = pending_;
        for (auto& [identifier, item] : content.items) {
            follow(item.account);
        }
        for (auto& [number, account] : content.books.accounts) {
            if (account.code.parent() == before) {
                account.code = {number, account.code.name(), after};
            }
        }
        for (auto& [name, bank] : content.books.banks) {
            auto accounts = bank.accounts();
            if (auto listed = accounts.extract(before)) {
                listed.key() = after;
                accounts.insert(std::move(listed));
            }
            bank = {name, std::move(accounts), bank.isClosed()};
        }
        for (auto& [id, posting] : postings) {
            follow(posting.debiting);
            follow(posting.crediting);
            if (posting.madeFrom) {
                follow(*posting.madeFrom);
            }
        }
    }

    void checkPosting(Posting const& posting)
    {
        auto const& accounts = pending_.content.books.accounts;
        checkKnown(posting.debiting);
        checkKnown(posting.crediting);
        checkKnown(posting.madeFrom.value_or(posting.debiting));
        check(posting.amount > 0 && posting.debiting != posting.crediting && posting.occurredOn.isValid());
        check(accounts.at(posting.debiting).currency == posting.amount.code());
        check(accounts.at(posting.crediting).currency == posting.amount.code());
    }
    void checkKnown(AccountNumber const& number) { check(pending_.content.books.accounts.contains(number)); }
    void checkParent(BookAccount const& account)
    {
        if (account.code.parent()) {
            checkKnown(*account.code.parent());
        }
    }
    Kept const& present() const { return isInside_ ? pending_ : kept_; }
    Kept& inside()
    {
        if (!isInside_) {
            throw std::logic_error("changed outside of a transaction");
        }
        if (left_ && (*left_)-- == 0) {
            throw std::runtime_error("disk broken");
        }
        return pending_;
    }

    Kept kept_;
    Kept pending_;
    int transactions_ = 0;
    bool isInside_ = false;
    bool isFull_ = false;
    std::optional<int> left_;
};
}
