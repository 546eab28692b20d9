#include "PostingRules.h"

#include "BookRules.h"
#include "Refuse.h"

#include <tlm/foundation/PresentationText.h>

#include <utility>

using fiscora::Money;
using tlm::foundation::presentationText;

namespace tallymere::engine {

namespace {

QString tr(char const* text)
{
    return QCoreApplication::translate("PostingRules", text);
}

/// \throws foundation::Error when \a debited can't be told from the other side either
void debit(Turnover& turnover, Money const& debited)
{
    try {
        auto sum = turnover.debited;
        sum += debited;
        -sum; // raises for the one sum that has no counterpart
        turnover.debited = sum;
    } catch (std::overflow_error const& overflow) {
        throw tlm::foundation::Error(
            tr("What is posted to one account would add up to more than can be counted. Post a smaller amount."),
            overflow);
    }
}
}

void count(Posting const& posting, Turnover& debited, Turnover& credited)
{
    debit(debited, posting.amount);
    debit(credited, -posting.amount);
    ++debited.postings;
    ++credited.postings;
}

void uncount(Posting const& posting, Turnover& debited, Turnover& credited)
{
    debit(debited, -posting.amount);
    debit(credited, posting.amount);
    --debited.postings;
    --credited.postings;
}

namespace rules {

void check(Posting const& posting, BookAccount const* debited, BookAccount const* credited)
{
    checkDay(posting);
    if (posting.amount <= 0) {
        refuse(tr("The amount of the posting isn't above zero. Enter one that is."));
    }
    if (posting.debiting == posting.crediting) {
        refuse(tr("An amount can't go from an account to itself. Choose two accounts."));
    }
    for (auto const& [number, account] :
         {std::pair(posting.debiting, debited), std::pair(posting.crediting, credited)}) {
        if (account == nullptr) {
            refuseUnknown(number);
        }
        checkSide(posting, *account);
    }
}

void checkDay(Posting const& posting)
{
    if (!isCalendarDay(posting.occurredOn)) {
        refuse(tr("The posting has no date. Enter the day on which it happened."));
    }
}

void checkOpen(BookAccount const& account)
{
    if (account.isClosed) {
        refuse(tr("%1 is closed. Open it again, or choose another account.").arg(account.code.name()));
    }
}

void checkSide(Posting const& posting, BookAccount const& account)
{
    checkOpen(account);
    if (account.currency != posting.amount.code()) {
        refuse(tr("%1 is kept in %2. Enter an amount in that currency, or choose another account.")
                   .arg(account.code.name(), presentationText(account.currency)));
    }
}

bool tellTheSame(Posting const& left, Posting const& right)
{
    return left.debiting == right.debiting && left.crediting == right.crediting && left.amount == right.amount;
}

bool isCalendarDay(QDate const& day)
{
    return day.isValid() && day.year() >= 1 && day.year() <= 9999;
}
}
}
