#pragma once

#include "BookIndex.h"
#include "BooksDraft.h"

#include <engine/Books.h>

#include <QString>

#include <optional>
#include <vector>

namespace tallymere::engine {

/// Looks up what the books tell, both ways, and takes changes of them over.
class Chart
{
public:
    /// \param books outlive the chart, keep the rules, and change through it alone
    explicit Chart(Books& books);

    BooksDraft draft() const { return {books_, index_}; }
    void take(BooksDraft& draft) noexcept { draft.moveTo(books_, index_); }

    /// \return none when there is no such account
    BookAccount const* find(tlm::accounting::AccountNumber const& number) const;

    /// \throws foundation::Error when there is no such account
    BookAccount const& account(tlm::accounting::AccountNumber const& number) const;

    /// \return what the account holds, as Household::balance() tells it
    /// \throws foundation::Error when there is no such account
    fiscora::Money balance(tlm::accounting::AccountNumber const& number) const;

    /// \return numbers of the accounts that share \a name, which are compared by rules::comparable()
    std::vector<tlm::accounting::AccountNumber> called(QString const& name) const;

    /// \return the bank of that name, compared by rules::comparable(); none when there is no such bank
    tlm::banking::Bank const* find(tlm::banking::BankName const& name) const;

    /// \return the bank that lists the account, none when no bank does
    tlm::banking::Bank const* bankOf(tlm::accounting::AccountNumber const& number) const;

    /// \return what all postings to the account come to, none when it has no posting
    Turnover const* turnoverOf(tlm::accounting::AccountNumber const& number) const;

    /// \return numbers of the accounts that stand right under that of \a number, in order
    std::vector<tlm::accounting::AccountNumber> subAccounts(tlm::accounting::AccountNumber const& number) const;

    /// Tells whether the account of \a number is that of \a above or stands under it, however far.
    bool isAtOrBelow(tlm::accounting::AccountNumber const& number, tlm::accounting::AccountNumber const& above) const;

    Books const& books() const { return books_; }

private:
    Books& books_;
    BookIndex index_;
};
}
