#pragma once

#include <QDebug>
#include <QString>

#include <compare>
#include <utility>

namespace tlm::budgeting {

/// Description of a budget item, by which it is known among those of its type. Compares to the letter.
class BudgetSource
{
public:
    BudgetSource() = default;
    explicit BudgetSource(QString name) noexcept : name_(std::move(name)) {}

    QString const& name() const noexcept { return name_; }
    bool isEmpty() const noexcept { return name_.isEmpty(); }

    friend bool operator==(BudgetSource const&, BudgetSource const&) = default;
    friend std::strong_ordering operator<=>(BudgetSource const&, BudgetSource const&) = default;

private:
    QString name_;
};

/// \return the description as it is
QString presentationText(BudgetSource const& source);

QDebug operator<<(QDebug debug, BudgetSource const& source);
}
