#include <tlm/budgeting/BudgetedMoney.h>

#include <tuple>
#include <utility>

namespace tlm::budgeting {

BudgetedMoney::BudgetedMoney(BudgetSource source, fiscora::Money amount, EventFrequency const& period,
                             QDate const& nextOccurOn)
    : source_(std::move(source)), amount_(amount), period_(period), nextOccurOn_(nextOccurOn)
{}

BudgetedMoney::~BudgetedMoney() = default;

BudgetItemTypes BudgetedMoney::type() const noexcept
{
    return BudgetItemTypes::None;
}

std::strong_ordering BudgetedMoney::compareTerms(BudgetedMoney const&) const
{
    return std::strong_ordering::equal;
}

std::strong_ordering operator<=>(BudgetedMoney const& left, BudgetedMoney const& right)
{
    auto const shared = [](BudgetedMoney const& item) {
        return std::tuple(item.type(), item.source_, item.amount_, item.period_, item.nextOccurOn_.toJulianDay());
    };
    auto const order = shared(left) <=> shared(right);
    return order != 0 ? order : left.compareTerms(right);
}
}
