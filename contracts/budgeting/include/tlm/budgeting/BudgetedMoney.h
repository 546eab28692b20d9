#pragma once

#include <fiscora/Money.h>
#include <tlm/budgeting/BudgetItemTypes.h>
#include <tlm/budgeting/BudgetSource.h>
#include <tlm/budgeting/EventFrequency.h>

#include <QDate>

#include <compare>

namespace tlm::budgeting {

/// An amount that is planned to occur again and again.
///
/// Forms carry half-filled items in it, so nothing is refused here: the books refuse what can't be planned.
///
/// Two items are equal when their types and all that these hold are; a Bill never equals a Wage, whatever they hold,
/// nor a plain BudgetedMoney. Ordered by type, source, amount, period and date, then by what the type adds.
class BudgetedMoney
{
public:
    /// Empty source, empty money, no period, invalid date.
    BudgetedMoney() = default;

    /// \param amount of one occurrence
    /// \param nextOccurOn the next day on which it falls due
    BudgetedMoney(BudgetSource source, fiscora::Money amount, EventFrequency const& period, QDate const& nextOccurOn);

    BudgetedMoney(BudgetedMoney const&) = default;
    BudgetedMoney(BudgetedMoney&&) noexcept = default;
    BudgetedMoney& operator=(BudgetedMoney const&) = default;
    BudgetedMoney& operator=(BudgetedMoney&&) noexcept = default;
    virtual ~BudgetedMoney();

    BudgetSource const& source() const noexcept { return source_; }
    fiscora::Money const& amount() const noexcept { return amount_; }
    EventFrequency const& period() const noexcept { return period_; }
    QDate const& nextOccurOn() const noexcept { return nextOccurOn_; }

    friend std::strong_ordering operator<=>(BudgetedMoney const& left, BudgetedMoney const& right);
    friend bool operator==(BudgetedMoney const& left, BudgetedMoney const& right) { return (left <=> right) == 0; }

private:
    virtual BudgetItemTypes type() const noexcept;
    /// Compares what this type adds to the base; \a other is of the same type.
    virtual std::strong_ordering compareTerms(BudgetedMoney const& other) const;

    BudgetSource source_;
    fiscora::Money amount_;
    EventFrequency period_ = EventFrequency::None;
    QDate nextOccurOn_;
};

/// Base of the record for the budget items of one type.
template <BudgetItemTypes Type>
class BudgetedMoneyOf : public BudgetedMoney
{
public:
    using BudgetedMoney::BudgetedMoney;

private:
    BudgetItemTypes type() const noexcept final { return Type; }
};
}
