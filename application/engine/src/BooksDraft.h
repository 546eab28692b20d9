#pragma once

#include "BookIndex.h"

#include <engine/Books.h>
#include <engine/Posting.h>
#include <engine/Store.h>

#include <QDate>
#include <QString>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace tallymere::engine {

/// One change to the books, made whole before any of it is stored, so that nothing can fail once it is.
///
/// Each account, bank and posting changes once at most. What isn't told here as refused is the caller's to look after.
class BooksDraft
{
    using AccountNumber = tlm::accounting::AccountNumber;
    using Bank = tlm::banking::Bank;
    using BankName = tlm::banking::BankName;

public:
    /// Both outlive the draft and stay as they are until moveTo().
    BooksDraft(Books const& books, BookIndex const& index);

    /// \return the account as it will be, none when there is no such account
    BookAccount const* find(AccountNumber const& number) const;

    /// Adds an account, with the next number of its type.
    /// \throws foundation::Error when the chart has no number left or \a name can't be an account's
    AccountNumber open(tlm::accounting::AccountTypes type, QString const& name, fiscora::Currency currency,
                       std::optional<AccountNumber> const& parent = std::nullopt,
                       AccountPurposes purpose = AccountPurposes::Household);

    void add(BookAccount const& account);
    /// Puts \a account in the place of the one of \a original. All that tells of it follows another number.
    void change(AccountNumber const& original, BookAccount const& account);
    void drop(AccountNumber const& number);

    void add(Bank const& bank);
    /// Puts \a bank in the place of the one of \a original, whose name may be another.
    void change(BankName const& original, Bank const& bank);
    void drop(BankName const& name);

    /// \throws foundation::Error when the books can't take \a posting
    void post(Posting const& posting);
    /// Puts \a after in the place of \a before.
    /// \throws foundation::Error when the books can't take \a after
    void change(PostingId const& id, Posting const& before, Posting const& after);
    /// Puts a posting back that tells the same amount of the same accounts.
    void note(PostingId const& id, Posting const& posting);
    void takeBack(PostingId const& id, Posting const& posting);

    /// Posts what an account opens with, unless it is zero.
    /// \param balance as Household::balance() will tell it
    void postOpening(AccountNumber const& number, fiscora::Money const& balance, QDate const& openedOn);

    /// \return the account that serves \a purpose in \a currency, a new one called \a name where there is none
    AccountNumber purposeful(AccountPurposes purpose, fiscora::Currency currency, QString const& name);

    /// \return the postings made, in order
    std::vector<Posting> const& posted() const { return posted_; }

    /// Tells whether nothing changes.
    bool isEmpty() const { return steps_.empty() && posted_.empty() && lastSteps_.empty(); }

    /// Stores all of it in the order that a store asks for, within a transaction.
    /// \param storeItem stores what planned item changes with the books
    /// \return the identifier of the first posting made, none without one
    PostingId store(Store& store, std::function<void()> const& storeItem) const;

    /// Carries the change out. The draft is spent then.
    void moveTo(Books& books, BookIndex& index) noexcept;

private:
    using Step = std::function<void(Store&)>;

    void put(BookAccount const& account);
    void replace(AccountNumber const& original, BookAccount const& account);
    void replace(BankName const& original, Bank const& bank);
    void renumber(AccountNumber const& before, AccountNumber const& after);
    Turnover& turnover(AccountNumber const& number);

    Books const& books_;
    BookIndex const& index_;
    Books changed_;
    std::set<AccountNumber> droppedAccounts_;
    std::set<BankName> droppedBanks_;
    BookIndex added_;
    BookIndex removed_;
    std::vector<Step> steps_;
    std::vector<Posting> posted_;
    std::vector<Step> lastSteps_; ///< those that come after the item's
};
}
