#pragma once

#include <engine/Store.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace tallymere::engine {

/// Keeps the postings and lets everything else pass: the sample lives in memory until a document takes it. No account of
/// it changes its number.
class OpenStore : public Store
{
    using AccountNumber = tlm::accounting::AccountNumber;
    using Bank = tlm::banking::Bank;
    using BankName = tlm::banking::BankName;
    using BudgetItemIdentifier = tlm::budgeting::BudgetItemIdentifier;

public:
    void transact(std::function<void()> const& changes) override { changes(); }
    void write(Settings const& /*settings*/) override {}
    void write(tlm::conversion::ConversionMap const& /*rates*/) override {}
    void add(PlannedItem const& /*item*/) override {}
    void change(BudgetItemIdentifier const& /*original*/, PlannedItem const& /*item*/) override {}
    void remove(BudgetItemIdentifier const& /*identifier*/) override {}
    void add(BookAccount const& /*account*/) override {}
    void change(AccountNumber const& /*original*/, BookAccount const& /*account*/) override {}
    void remove(AccountNumber const& /*number*/) override {}
    void add(Bank const& /*bank*/) override {}
    void change(BankName const& /*original*/, Bank const& /*bank*/) override {}
    void remove(BankName const& /*name*/) override {}

    PostingId post(Posting const& posting) override
    {
        auto const latest = postings_.empty() ? PostingId() : postings_.rbegin()->first;
        return postings_.emplace(PostingId{latest.value + 1}, posting).first->first;
    }
    void change(PostingId const& id, Posting const& posting) override { postings_.insert_or_assign(id, posting); }
    void remove(PostingId const& id) override { postings_.erase(id); }

    std::optional<Posting> posting(PostingId const& id) const override
    {
        auto const found = postings_.find(id);
        return found == postings_.end() ? std::nullopt : std::optional(found->second);
    }
    std::map<PostingId, Posting> postingsOf(AccountNumber const& number) const override
    {
        return latestPostingsOf(number, postings_.size());
    }
    std::map<PostingId, Posting> latestPostingsOf(AccountNumber const& number, std::size_t most) const override
    {
        std::set<std::pair<QDate, PostingId>> byDay;
        for (auto const& [id, posting] : postings_) {
            if (posting.debiting == number || posting.crediting == number) {
                byDay.emplace(posting.occurredOn, id);
            }
        }
        std::map<PostingId, Posting> latest;
        for (auto next = byDay.rbegin(); next != byDay.rend() && latest.size() < most; ++next) {
            latest.emplace(next->second, postings_.at(next->second));
        }
        return latest;
    }

    std::map<PostingId, Posting> const& postings() const { return postings_; }

private:
    std::map<PostingId, Posting> postings_;
};
}
