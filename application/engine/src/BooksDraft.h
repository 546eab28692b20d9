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
/// Read through it, the books look as they will. Each account, bank and posting changes once at most, and one posting
/// is made at most.
class BooksDraft
{
public:
    /// Both outlive the draft and stay as they are until moveTo().
    BooksDraft(Books const& books, BookIndex const& index);

    /// \return the account as it will be, none when there is no such account
    BookAccount const* find(tlm::accounting::AccountNumber const& number) const;

    /// Adds an account, with the next number of its type.
    /// \throws foundation::Error when the chart has no number left or \a name can't be an account's
    tlm::accounting::AccountNumber open(tlm::accounting::AccountTypes type, QString const& name,
                                        fiscora::Currency currency,
                                        std::optional<tlm::accounting::AccountNumber> const& parent = std::nullopt,
                                        AccountPurposes purpose = AccountPurposes::Household);

    /// Puts \a account in the place of the one of its number.
    void change(BookAccount const& account);
    void drop(tlm::accounting::AccountNumber const& number);

    /// Adds \a bank, or puts it in the place of the one of its name.
    void put(tlm::banking::Bank const& bank);

    /// \throws foundation::Error when the books can't take \a posting
    void post(Posting const& posting);
    void takeBack(PostingId const& id, Posting const& posting);

    /// Posts what an account opens with, unless it is zero.
    /// \param balance what an asset account has, or what any other owes
    void postOpening(tlm::accounting::AccountNumber const& number, fiscora::Money const& balance,
                     QDate const& openedOn);

    /// \return the posting made, if any
    std::optional<Posting> const& posted() const { return posted_; }

    /// Stores all of it in the order that a store asks for, within a transaction.
    /// \param storeItem stores what planned item changes with the books
    /// \return the identifier of the posting made, none without one
    PostingId store(Store& store, std::function<void()> const& storeItem) const;

    /// Carries the change out. The draft is spent then.
    void moveTo(Books& books, BookIndex& index) noexcept;

private:
    tlm::accounting::AccountNumber nextNumber(tlm::accounting::AccountTypes type) const;
    unsigned int largestUpTo(unsigned int limit) const;
    tlm::accounting::AccountNumber openingBalances(fiscora::Currency currency);
    Turnover& turnover(tlm::accounting::AccountNumber const& number);

    Books const& books_;
    BookIndex const& index_;
    Books changed_;
    BookIndex added_;
    std::set<SubAccount> detached_;
    std::set<tlm::accounting::AccountNumber> unlisted_;
    std::set<tlm::accounting::AccountNumber> dropped_;
    std::optional<Posting> posted_;
    std::optional<PostingId> takenBack_;
};
}
