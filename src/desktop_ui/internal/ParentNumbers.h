#pragma once

#include <tlm/accounting/AccountNumber.h>

#include <cstddef>
#include <memory>
#include <set>

namespace tlm::desktop_ui::internal {

/// Numbers of a chart of accounts, each of which may be the parent of the others: ascending, and without the invalid one.
///
/// Whoever holds equal numbers shares them, so that a chart of hundreds of accounts, each of which offers the numbers of all
/// the others, doesn't hold the square of their number.
class ParentNumbers
{
public:
    /// Goes through \a numbers, so for many forms of one chart it is made once and copied.
    explicit ParentNumbers(std::set<accounting::AccountNumber> const& numbers);

    std::size_t size() const noexcept;
    accounting::AccountNumber const& at(std::size_t place) const;

    /// \return where \a number stands, size() when it isn't there
    std::size_t placeOf(accounting::AccountNumber const& number) const;

private:
    struct Chart;

    std::shared_ptr<Chart const> chart_;
};
}
