#include "internal/ParentNumbers.h"

#include "internal/Shared.h"

#include <algorithm>
#include <vector>

namespace tlm::desktop_ui::internal {

using accounting::AccountNumber;

struct ParentNumbers::Chart
{
    explicit Chart(std::set<AccountNumber> const& all) : numbers(all.upper_bound(AccountNumber()), all.end()) {}

    std::vector<AccountNumber> numbers;
};

ParentNumbers::ParentNumbers(std::set<AccountNumber> const& numbers) : chart_(shared<Chart>(numbers)) {}

std::size_t ParentNumbers::size() const noexcept
{
    return chart_->numbers.size();
}

AccountNumber const& ParentNumbers::at(std::size_t place) const
{
    return chart_->numbers.at(place);
}

std::size_t ParentNumbers::placeOf(AccountNumber const& number) const
{
    auto const& numbers = chart_->numbers;
    auto const found = std::ranges::lower_bound(numbers, number);
    auto const isThere = found != numbers.end() && *found == number;
    return isThere ? static_cast<std::size_t>(found - numbers.begin()) : numbers.size();
}
}
