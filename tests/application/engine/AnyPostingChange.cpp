#include "Anything.h"

#include <iterator>
#include <set>

using fiscora::Money;
using tlm::accounting::AccountNumber;

namespace tallymere::engine {

namespace {

/// \return a posting that the books take in most cases
Posting anyPosting(BooksModel const& model)
{
    auto const debiting = anyNumber(model);
    auto const* const account = model.account(debiting);
    auto const amount = anyAmount();
    Posting posting;
    posting.occurredOn = openedOn.addDays(pick(0, 40));
    posting.debiting = AccountNumber(debiting);
    posting.crediting = AccountNumber(anyNumber(model));
    posting.amount = account == nullptr || isOneOf(6) ? amount : Money::fromAmount(account->currency, amount.amount());
    posting.description = anyOf<QString>({"", "May"});
    posting.status = static_cast<BooksModel::Status>(isOneOf(4) ? pick(0, 3) : 0);
    if (isOneOf(3)) {
        posting.madeFrom = anyOf<AccountNumber>({posting.debiting, posting.crediting, AccountNumber(anyNumber(model))});
    }
    return posting;
}

PostingId anyId(BooksModel const& model)
{
    auto const& postings = model.postings();
    return postings.empty() || isOneOf(15) ? PostingId{4711}
                                           : std::next(postings.begin(), pick<long>(0, std::ssize(postings)))->first;
}

Step anyMark(BooksModel const& model)
{
    using Status = BooksModel::Status;
    auto const id = anyId(model);
    std::set<PostingId> const ids{id, anyId(model), anyId(model)};
    switch (pick(0, 3)) {
    case 0:
        return {[=](Household& household) { household.markCleared(ids); },
                [=](BooksModel& books) { return books.mark(ids, Status::Cleared, Status::Reconciled); }};
    case 1:
        return {[=](Household& household) { household.markReconciled(id); },
                [=](BooksModel& books) { return books.mark({id}, Status::Reconciled, Status::Reconciled); }};
    default:
        return {[=](Household& household) { household.markUnreconciled(ids); },
                [=](BooksModel& books) { return books.mark(ids, Status::NotCleared, Status::Cleared); }};
    }
}

Step anyTransfer(BooksModel const& model)
{
    auto const from = anyNumber(model);
    auto const to = anyNumber(model);
    auto const* const account = model.account(from);
    auto const amount = account == nullptr || isOneOf(8)
                            ? anyAmount()
                            : Money::fromAmount(account->currency, anyOf<long long>({0, 1, 400'000, 71'250}));
    auto const reason = anyOf<QString>({"", "  ", "Holidays"});
    return {[=](Household& household) {
                household.transfer(AccountNumber(from), AccountNumber(to), amount, reason, openedOn);
            },
            [=](BooksModel& books) { return books.transfer(from, to, amount, reason); }};
}
}

Step anyPostingChange(BooksModel const& model)
{
    auto const posting = anyPosting(model);
    auto const id = anyId(model);
    switch (pick(0, 6)) {
    case 0: {
        auto const found = model.postings().find(id);
        auto changed = found == model.postings().end() || isOneOf(2) ? posting : found->second;
        changed.occurredOn = posting.occurredOn;
        return {[=](Household& household) { household.changePosting(id, changed); },
                [=](BooksModel& books) { return books.changePosting(id, changed); }};
    }
    case 1:
        return {[=](Household& household) { household.removePosting(id); },
                [=](BooksModel& books) { return books.removePosting(id); }};
    case 2:
        return anyMark(model);
    case 3:
        return anyTransfer(model);
    default:
        return {[=](Household& household) { household.post(posting); },
                [=](BooksModel& books) { return books.post(posting); }};
    }
}
}
