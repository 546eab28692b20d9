#pragma once

#include <engine/Books.h>
#include <engine/Posting.h>

namespace tallymere::engine {

/// Counts \a posting in both turnovers.
/// \throws foundation::Error when one of them leaves what can be counted
void count(Posting const& posting, Turnover& debited, Turnover& credited);

/// Takes \a posting out of both turnovers again, which have counted it.
/// \throws foundation::Error as count() does
void uncount(Posting const& posting, Turnover& debited, Turnover& credited);
}

namespace tallymere::engine::rules {

/// Refuses a posting that the books can't take.
/// \param debited the account that \a posting names, none when there is no such account
/// \param credited likewise
void check(Posting const& posting, BookAccount const* debited, BookAccount const* credited);

/// Refuses a posting without a day on which it happened.
void checkDay(Posting const& posting);

/// Refuses a closed account.
void checkOpen(BookAccount const& account);

/// Refuses an account that can't be one side of \a posting.
void checkSide(Posting const& posting, BookAccount const& account);

/// Tells whether both postings tell the same amount of the same accounts, so that they come to the same.
bool tellTheSame(Posting const& left, Posting const& right);

/// Tells dates from the year 1 to 9999, which is what dates as ISO text can tell.
bool isCalendarDay(QDate const& day);
}
