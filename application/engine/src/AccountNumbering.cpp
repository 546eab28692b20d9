#include "AccountNumbering.h"

#include "Refuse.h"

#include <algorithm>
#include <iterator>
#include <limits>

using tlm::accounting::AccountNumber;
using tlm::accounting::AccountTypes;

namespace tallymere::engine {

namespace {

constexpr unsigned int mostOfBlock = 999;
constexpr unsigned int firstBeyondBlocks = 10'001;

unsigned int firstNumber(AccountTypes type)
{
    switch (type) {
    case AccountTypes::Asset:
        return 1'001;
    case AccountTypes::Liability:
        return 2'001;
    case AccountTypes::Equity:
        return 3'001;
    case AccountTypes::Income:
        return 4'001;
    case AccountTypes::Expense:
        return 5'001;
    case AccountTypes::Suspense:
        break;
    }
    return 9'001;
}

unsigned int largestUpTo(unsigned int limit, std::initializer_list<BookAccounts const*> used)
{
    auto largest = AccountNumber::invalid_;
    for (auto const* const accounts : used) {
        auto const beyond = accounts->upper_bound(AccountNumber(limit));
        largest = beyond == accounts->begin() ? largest : std::max(largest, std::prev(beyond)->first.integer());
    }
    return largest;
}
}

/// Each type counts in a block of its own while that has room.
AccountNumber nextNumber(AccountTypes type, std::initializer_list<BookAccounts const*> used)
{
    auto const first = firstNumber(type);
    auto const last = first + mostOfBlock - 1;
    if (auto const taken = largestUpTo(last, used); taken < last) {
        return AccountNumber(std::max(taken + 1, first));
    }
    auto const largest = largestUpTo(std::numeric_limits<unsigned int>::max(), used);
    if (largest == std::numeric_limits<unsigned int>::max()) {
        refuse(QCoreApplication::translate("AccountNumbering",
                                           "No account number is left, since account %1 has the largest that there is. "
                                           "Give that account a smaller number first.")
                   .arg(largest));
    }
    return AccountNumber(std::max(largest + 1, firstBeyondBlocks));
}
}
