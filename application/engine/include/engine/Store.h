#pragma once

#include <engine/BudgetContent.h>
#include <engine/Posting.h>

#include <cstddef>
#include <functional>
#include <map>
#include <optional>

namespace tallymere::engine {

/// Where accepted changes go before the household takes them over.
///
/// The household calls the other operations inside transact() only.
class Store
{
public:
    Store() = default;
    Store(Store const&) = delete;
    Store& operator=(Store const&) = delete;
    virtual ~Store() = default;

    /// Runs \a changes and keeps all of them or none, durably once it returns.
    /// \throws std::exception whatever a change throws, or why the changes can't be kept
    virtual void transact(std::function<void()> const& changes) = 0;

    virtual void write(Settings const& settings) = 0;
    virtual void write(tlm::conversion::ConversionMap const& rates) = 0;
    virtual void add(PlannedItem const& item) = 0;
    /// Puts \a item in the place of \a original; its identifier may differ.
    virtual void change(tlm::budgeting::BudgetItemIdentifier const& original, PlannedItem const& item) = 0;
    virtual void remove(tlm::budgeting::BudgetItemIdentifier const& identifier) = 0;

    /// Comes before the items, banks, postings and sub-accounts that tell of \a account.
    virtual void add(BookAccount const& account) = 0;
    /// Puts \a account in the place of \a original; its number may differ, and all that tells of it then follows.
    virtual void change(tlm::accounting::AccountNumber const& original, BookAccount const& account) = 0;
    /// Comes after all that tells of it.
    virtual void remove(tlm::accounting::AccountNumber const& number) = 0;

    virtual void add(tlm::banking::Bank const& bank) = 0;
    /// Puts \a bank with its accounts in the place of \a original; its name may differ.
    virtual void change(tlm::banking::BankName const& original, tlm::banking::Bank const& bank) = 0;
    virtual void remove(tlm::banking::BankName const& name) = 0;

    virtual PostingId post(Posting const& posting) = 0;
    /// Puts \a posting in the place of the one of \a id.
    virtual void change(PostingId const& id, Posting const& posting) = 0;
    virtual void remove(PostingId const& id) = 0;

    /// \return what was posted under \a id, none when there is no such posting. May be called outside of transact() too.
    virtual std::optional<Posting> posting(PostingId const& id) const = 0;

    /// \return what was posted to the account of \a number. May be called outside of transact() too.
    virtual std::map<PostingId, Posting> postingsOf(tlm::accounting::AccountNumber const& number) const = 0;

    /// \return the \a most latest of postingsOf(), by day, and by identifier within a day
    virtual std::map<PostingId, Posting> latestPostingsOf(tlm::accounting::AccountNumber const& number,
                                                          std::size_t most) const = 0;
};
}
